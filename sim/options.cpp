#include "sim/options.h"

#include <charconv>
#include <stdexcept>

namespace corvid::sim {

namespace {

long Number(const std::string& option, const std::string& text, long low, long high) {
    long value = 0;
    int base = 10;
    std::string_view digits = text;
    if (digits.starts_with("0x") || digits.starts_with("0X")) {
        base = 16;
        digits.remove_prefix(2);
    }
    auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value, base);
    if (digits.empty() || error != std::errc() || end != digits.data() + digits.size() ||
        value < low || value > high) {
        throw std::invalid_argument(option + ": expected a number from " + std::to_string(low) +
                                    " to " + std::to_string(high) + ", got \"" + text + "\"");
    }
    return value;
}

Variant VariantNamed(const std::string& name) {
    if (name == "srp350") return Variant::SRP350;
    if (name == "dt230") return Variant::DT230;
    if (name == "hka112") return Variant::HKA112;
    if (name == "srp812") return Variant::SRP812;
    throw std::invalid_argument("--variant: expected srp350, dt230, hka112 or srp812, got \"" +
                                name + "\"");
}

std::string HexBytes(const std::string& text) {
    if (text.empty() || text.size() % 2 != 0) {
        throw std::invalid_argument("--garbage-bytes: expected pairs of hex digits");
    }
    std::string bytes;
    for (std::size_t i = 0; i < text.size(); i += 2) {
        bytes += static_cast<char>(Number("--garbage-bytes", "0x" + text.substr(i, 2), 0, 255));
    }
    return bytes;
}

}  // namespace

std::string Usage() {
    return "usage: corvid-sim [options]\n"
           "A simulated fiscal printer on a pseudo-terminal; prints the terminal's path and\n"
           "serves until interrupted. It keeps the day's fiscal state, refuses with NAK what\n"
           "makes no sense in it, and prints its documents on a 40-column paper roll.\n"
           "  --variant srp350|dt230|hka112|srp812  model, sets a matching serial number\n"
           "  --serial TEXT          serial number (its first three characters give the model)\n"
           "  --s1-layout short|long layout of the S1 record: 14 or 16 fields (by default\n"
           "                         short for srp350 and dt230, long for hka112 and srp812);\n"
           "                         --layout is the same option\n"
           "  --memory FILE          keep the fiscal memory (the daily closings) in FILE, read\n"
           "                         at start and added to by each closing; the closing\n"
           "                         counter and document numbers go on from its last closing.\n"
           "                         An empty memory starts with closing 204, nothing sold\n"
           "  --sts1 N, --sts2 N     force the status bytes (decimal or 0x hex); by default\n"
           "                         they follow the printer's state\n"
           "  --link PATH            make PATH a symbolic link to the terminal\n"
           "  --paper FILE           write the paper roll to FILE (UTF-8), each document as it\n"
           "                         is finished\n"
           "  --pace                 take and send bytes at the speed of a 9600-baud 8E1 line\n"
           "                         (11 bits, about 1.146 ms, a byte)\n"
           "  --transcript           print every exchange as it happens\n"
           "faults:\n"
           "  --nak N                refuse the next N blocks with NAK\n"
           "  --ignore-blocks N      answer nothing to the next N blocks\n"
           "  --silent-enq N         answer nothing to the next N status requests\n"
           "  --enq-prefix N         send ENQ before the next N status or data replies\n"
           "  --eot-end N            end the next N status or data replies with EOT\n"
           "  --garbage N            send garbage before the next N status or data replies\n"
           "  --garbage-bytes HEX    the garbage, e.g. ff117f\n"
           "  --bad-check N          send a wrong check byte with the next N status or data\n"
           "                         replies\n"
           "  --oversize N           pad the text of the next N data replies with blanks...\n"
           "  --oversize-to BYTES    ...to this many bytes (default 5000)\n"
           "  --drop N               drop the line in the middle of the next N status or data\n"
           "                         replies: only their first bytes go out\n"
           "  --drop-after K         how many bytes go out before the drop (default 3)\n"
           "  --hang-up              after a drop, close the terminal for good\n"
           "  --late N               hold back the next N replies of any kind...\n"
           "  --late-by MS           ...by MS milliseconds\n"
           "  --delay MS             wait MS milliseconds before every reply\n"
           "  --chunk K              write replies in pieces of K bytes\n"
           "  --chunk-pause MS       pause between pieces (default 3)\n"
           "  --mute                 answer nothing at all\n"
           "replies:\n"
           "  The daily summary, U0Z (the last closing) and U0X (the day so far), has the\n"
           "  model's layout: 39 fields srp350, 30 hka112, 29 srp812, 20 dt230. U3A sends\n"
           "  one block per closing of its range and refuses a range holding none. Field 6\n"
           "  of S2 is the open document: 0 none, 1 invoice, 2 credit note, 3 non-fiscal.\n";
}

Options ParseOptions(const std::vector<std::string>& args) {
    Options options;
    FiscalState& printer = options.config.printer;
    FaultPlan& faults = options.config.faults;
    bool serialGiven = false;
    Variant variant = Variant::SRP350;
    for (std::size_t i = 0; i < args.size(); ++i) {
        const std::string& option = args[i];
        auto value = [&]() -> const std::string& {
            if (i + 1 >= args.size()) throw std::invalid_argument(option + ": missing value");
            return args[++i];
        };
        auto count = [&] { return static_cast<int>(Number(option, value(), 0, 1000000)); };
        auto millis = [&] { return std::chrono::milliseconds(Number(option, value(), 0, 600000)); };
        if (option == "--help" || option == "-h") {
            options.help = true;
        } else if (option == "--variant") {
            variant = VariantNamed(value());
        } else if (option == "--serial") {
            printer.serial = value();
            serialGiven = true;
        } else if (option == "--s1-layout" || option == "--layout") {
            const std::string& layout = value();
            if (layout != "short" && layout != "long") {
                throw std::invalid_argument(option + ": expected short or long");
            }
            printer.s1Layout = layout == "short" ? S1Layout::Short : S1Layout::Long;
        } else if (option == "--memory") {
            printer.memory.SetPath(value());
        } else if (option == "--sts1") {
            printer.forcedSts1 = static_cast<unsigned char>(Number(option, value(), 0, 255));
        } else if (option == "--sts2") {
            printer.forcedSts2 = static_cast<unsigned char>(Number(option, value(), 0, 255));
        } else if (option == "--link") {
            options.config.linkPath = value();
        } else if (option == "--paper") {
            options.config.paperPath = value();
        } else if (option == "--pace") {
            options.config.paced = true;
        } else if (option == "--transcript") {
            options.printTranscript = true;
        } else if (option == "--nak") {
            faults.nakBlocks = count();
        } else if (option == "--ignore-blocks") {
            faults.ignoreBlocks = count();
        } else if (option == "--silent-enq") {
            faults.silentEnqs = count();
        } else if (option == "--enq-prefix") {
            faults.enqPrefix.remaining = count();
        } else if (option == "--eot-end") {
            faults.eotEnd.remaining = count();
        } else if (option == "--garbage") {
            faults.garbage.remaining = count();
        } else if (option == "--garbage-bytes") {
            faults.garbageBytes = HexBytes(value());
        } else if (option == "--bad-check") {
            faults.badCheck.remaining = count();
        } else if (option == "--oversize") {
            faults.oversize.remaining = count();
        } else if (option == "--oversize-to") {
            faults.oversizeTo = static_cast<std::size_t>(Number(option, value(), 1, 1000000));
        } else if (option == "--drop") {
            faults.drop.remaining = count();
        } else if (option == "--drop-after") {
            faults.dropAfter = static_cast<std::size_t>(Number(option, value(), 0, 1000000));
        } else if (option == "--hang-up") {
            faults.hangUpOnDrop = true;
        } else if (option == "--late") {
            faults.late = {count(), kAnyReply, 0};
        } else if (option == "--late-by") {
            faults.lateBy = millis();
        } else if (option == "--delay") {
            faults.delay = millis();
        } else if (option == "--chunk") {
            faults.chunkSize = static_cast<std::size_t>(Number(option, value(), 1, 4096));
        } else if (option == "--chunk-pause") {
            faults.chunkPause = millis();
        } else if (option == "--mute") {
            faults.muted = true;
        } else {
            throw std::invalid_argument("unknown option " + option);
        }
    }
    if (!serialGiven) printer.serial = DefaultSerial(variant);
    return options;
}

}  // namespace corvid::sim
