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
           "  --version              print the version and stop\n"
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
           "  --power-cut-after N    lose power once N blocks have been carried out: the\n"
           "                         last takes effect but gets no answer; while off the\n"
           "                         printer answers nothing and what the host sends is\n"
           "                         lost; it comes back with its fiscal state and open\n"
           "                         document as they were\n"
           "  --power-off MS         how long the power stays off (default 3000)\n"
           "replies:\n"
           "  The daily summary, U0Z (the last closing) and U0X (the day so far), has the\n"
           "  model's layout: 39 fields srp350, 30 hka112, 29 srp812, 20 dt230. U3A sends\n"
           "  one block per closing of its range and refuses a range holding none. Field 6\n"
           "  of S2 is the open document: 0 none, 1 invoice, 2 credit note, 3 non-fiscal.\n";
}

namespace {

// What the options parsed so far make: the options themselves, and the model, which gives
// the serial number unless one is named.
struct Parsing {
    Options options;
    Variant variant = Variant::SRP350;
    bool serialGiven = false;

    FiscalState& printer() { return options.config.printer; }
    FaultPlan& faults() { return options.config.faults; }
};

using Setter = void (*)(Parsing&, const std::string& option, const std::string& value);

struct OptionRule {
    const char* name;
    bool takesValue;
    Setter set;
};

int Count(const std::string& option, const std::string& text) {
    return static_cast<int>(Number(option, text, 0, 1000000));
}
std::chrono::milliseconds Millis(const std::string& option, const std::string& text) {
    return std::chrono::milliseconds(Number(option, text, 0, 600000));
}
std::size_t Size(const std::string& option, const std::string& text, long low, long high) {
    return static_cast<std::size_t>(Number(option, text, low, high));
}
S1Layout LayoutNamed(const std::string& option, const std::string& text) {
    if (text != "short" && text != "long") {
        throw std::invalid_argument(option + ": expected short or long");
    }
    return text == "short" ? S1Layout::Short : S1Layout::Long;
}

using Arg = const std::string&;

// The printer's identity and the simulator's own settings.
const OptionRule kSettings[] = {
    {"--help", false, [](Parsing& p, Arg, Arg) { p.options.help = true; }},
    {"-h", false, [](Parsing& p, Arg, Arg) { p.options.help = true; }},
    {"--version", false, [](Parsing& p, Arg, Arg) { p.options.version = true; }},
    {"--variant", true, [](Parsing& p, Arg, Arg v) { p.variant = VariantNamed(v); }},
    {"--serial", true,
     [](Parsing& p, Arg, Arg v) {
         p.printer().serial = v;
         p.serialGiven = true;
     }},
    {"--s1-layout", true,
     [](Parsing& p, Arg o, Arg v) { p.printer().s1Layout = LayoutNamed(o, v); }},
    {"--layout", true, [](Parsing& p, Arg o, Arg v) { p.printer().s1Layout = LayoutNamed(o, v); }},
    {"--memory", true, [](Parsing& p, Arg, Arg v) { p.printer().memory.SetPath(v); }},
    {"--sts1", true,
     [](Parsing& p, Arg o, Arg v) {
         p.printer().forcedSts1 = static_cast<unsigned char>(Number(o, v, 0, 255));
     }},
    {"--sts2", true,
     [](Parsing& p, Arg o, Arg v) {
         p.printer().forcedSts2 = static_cast<unsigned char>(Number(o, v, 0, 255));
     }},
    {"--link", true, [](Parsing& p, Arg, Arg v) { p.options.config.linkPath = v; }},
    {"--paper", true, [](Parsing& p, Arg, Arg v) { p.options.config.paperPath = v; }},
    {"--pace", false, [](Parsing& p, Arg, Arg) { p.options.config.paced = true; }},
    {"--transcript", false, [](Parsing& p, Arg, Arg) { p.options.printTranscript = true; }},
};

// Faults of the line.
const OptionRule kFaults[] = {
    {"--nak", true, [](Parsing& p, Arg o, Arg v) { p.faults().nakBlocks = Count(o, v); }},
    {"--ignore-blocks", true,
     [](Parsing& p, Arg o, Arg v) { p.faults().ignoreBlocks = Count(o, v); }},
    {"--silent-enq", true, [](Parsing& p, Arg o, Arg v) { p.faults().silentEnqs = Count(o, v); }},
    {"--enq-prefix", true,
     [](Parsing& p, Arg o, Arg v) { p.faults().enqPrefix.remaining = Count(o, v); }},
    {"--eot-end", true,
     [](Parsing& p, Arg o, Arg v) { p.faults().eotEnd.remaining = Count(o, v); }},
    {"--garbage", true,
     [](Parsing& p, Arg o, Arg v) { p.faults().garbage.remaining = Count(o, v); }},
    {"--garbage-bytes", true,
     [](Parsing& p, Arg, Arg v) { p.faults().garbageBytes = HexBytes(v); }},
    {"--bad-check", true,
     [](Parsing& p, Arg o, Arg v) { p.faults().badCheck.remaining = Count(o, v); }},
    {"--oversize", true,
     [](Parsing& p, Arg o, Arg v) { p.faults().oversize.remaining = Count(o, v); }},
    {"--oversize-to", true,
     [](Parsing& p, Arg o, Arg v) { p.faults().oversizeTo = Size(o, v, 1, 1000000); }},
    {"--drop", true, [](Parsing& p, Arg o, Arg v) { p.faults().drop.remaining = Count(o, v); }},
    {"--drop-after", true,
     [](Parsing& p, Arg o, Arg v) { p.faults().dropAfter = Size(o, v, 0, 1000000); }},
    {"--hang-up", false, [](Parsing& p, Arg, Arg) { p.faults().hangUpOnDrop = true; }},
    {"--late", true,
     [](Parsing& p, Arg o, Arg v) {
         p.faults().late = {Count(o, v), kAnyReply, 0};
     }},
    {"--late-by", true, [](Parsing& p, Arg o, Arg v) { p.faults().lateBy = Millis(o, v); }},
    {"--delay", true, [](Parsing& p, Arg o, Arg v) { p.faults().delay = Millis(o, v); }},
    {"--chunk", true, [](Parsing& p, Arg o, Arg v) { p.faults().chunkSize = Size(o, v, 1, 4096); }},
    {"--chunk-pause", true, [](Parsing& p, Arg o, Arg v) { p.faults().chunkPause = Millis(o, v); }},
    {"--mute", false, [](Parsing& p, Arg, Arg) { p.faults().muted = true; }},
    {"--power-cut-after", true,
     [](Parsing& p, Arg o, Arg v) { p.faults().powerCutAfter = Count(o, v); }},
    {"--power-off", true, [](Parsing& p, Arg o, Arg v) { p.faults().powerOff = Millis(o, v); }},
};

const OptionRule& RuleOf(const std::string& option) {
    for (const OptionRule& rule : kSettings) {
        if (option == rule.name) return rule;
    }
    for (const OptionRule& rule : kFaults) {
        if (option == rule.name) return rule;
    }
    throw std::invalid_argument("unknown option " + option);
}

}  // namespace

Options ParseOptions(const std::vector<std::string>& args) {
    Parsing parsing;
    static const std::string kNone;
    for (std::size_t i = 0; i < args.size(); ++i) {
        const std::string& option = args[i];
        const OptionRule& rule = RuleOf(option);
        if (rule.takesValue && i + 1 >= args.size()) {
            throw std::invalid_argument(option + ": missing value");
        }
        rule.set(parsing, option, rule.takesValue ? args[++i] : kNone);
    }
    if (!parsing.serialGiven) parsing.printer().serial = DefaultSerial(parsing.variant);
    return parsing.options;
}

}  // namespace corvid::sim
