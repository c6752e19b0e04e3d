// Every family of commands under every fault of the line, through the real serial layer
// on the simulated printer: what the host gets back, what crossed the line (nothing the
// printer took whole is sent again, unless the fault hid its answer) and how long it took
// (never more than the time-outs the fault costs). The outcomes are printed as a table.
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <concepts>
#include <cstdio>
#include <fstream>
#include <functional>
#include <memory>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "automation/vb_error.h"
#include "host/library_settings.h"
#include "serial/port_devices.h"
#include "session/printer_fiscal.h"
#include "sim/simulator.h"
#include "support/memory_settings_source.h"
#include "support/recording_user_prompts.h"

namespace corvid::e2e {
namespace {

using automation::Currency;
using automation::Variant;
using session::PrinterFiscal;
using Direction = sim::TranscriptEntry::Direction;
using What = sim::TranscriptEntry::What;
using SteadyClock = std::chrono::steady_clock;

constexpr std::int16_t kPort = 9;
constexpr double kTimeOut = 1;
constexpr double kMaxWait = 1.2;
constexpr std::chrono::milliseconds kLate{400};
constexpr std::size_t kOversize = 5000;
// Work on top of the waits a cell is allowed: the family's own exchanges and the rest.
constexpr double kSlack = 0.5;
const std::string kCommErrorText = "pfError de comunicacion";
const std::string kGaveUpText = "Tiempo m\xE1ximo de espera agotado";

// A printer and a session opened on it, for one cell.
struct Bench {
    Bench(host::MemorySettingsSource& settings, double maxWait) {
        auto set = [&](const char* section, const std::string& key, const std::string& value) {
            settings.SetIniValue(host::kApplication, section, key, value);
        };
        set(host::kSessionSection, "TimeOut", std::to_string(static_cast<int>(kTimeOut)));
        set(host::kSessionSection, "MaxWait", std::to_string(maxWait));
        // The printer's own rates, so that an item line needs no "S3" first.
        for (int i = 0; const char* rate : {"0", "16", "8", "31"}) {
            set(host::kRatesSection, std::to_string(i++), rate);
        }
        printer.Start();
        serial::SetPortDevice(kPort, printer.SlavePath());
        session = std::make_unique<PrinterFiscal>();
        session->Abrir(kPort);
    }
    ~Bench() {
        session.reset();
        printer.Stop();
        serial::SetPortDevice(kPort, "");
    }
    PrinterFiscal& s() { return *session; }
    int PaperLines() const {
        const std::string paper = printer.PaperText();
        return static_cast<int>(std::count(paper.begin(), paper.end(), '\n'));
    }

    sim::Simulator printer;
    std::unique_ptr<PrinterFiscal> session;
    std::int32_t lastClosing = 0;
};

// What a family gives back: a short summary that the failure cases are checked against,
// and the full record for "intact" checks against the run without faults.
struct Result {
    Result() = default;
    Result(std::string text) : summary(text), full(std::move(text)) {}
    Result(std::string s, std::string f) : summary(std::move(s)), full(std::move(f)) {}
    std::string summary;
    std::string full;
};

// A record's dump without its date lines, which move with the clock between cells.
std::string WithoutClock(const std::string& dump) {
    std::istringstream lines(dump);
    std::string line, kept;
    while (std::getline(lines, line)) {
        if (line.find("echa") == std::string::npos) kept += line + "\n";
    }
    return kept;
}

std::string Money(Currency amount) {
    char text[32];
    std::snprintf(text, sizeof text, "%.2f", amount.ToDouble());
    return text;
}

struct Family {
    std::string name;
    bool data;  // answered with data, else with a lone ACK
    std::function<void(Bench&)> setup;
    std::function<Result(Bench&)> call;
    std::string failed;   // the summary when the exchange fails
    std::string refused;  // the summary when the command draws seven NAKs
    int spare = 0;        // data replies to let pass: 1 aims at a further block
};

// A family answered with ACK: its return value and how many lines it printed.
Family AckFamily(std::string name, std::function<void(Bench&)> setup,
                 std::function<std::string(PrinterFiscal&)> call,
                 std::string failed = "1; printed 0", std::string refused = "0; printed 0") {
    auto run = [call](Bench& b) {
        const int before = b.PaperLines();
        const std::string value = call(b.s());
        return Result(value + "; printed " + std::to_string(b.PaperLines() - before));
    };
    return {std::move(name), false, std::move(setup), run, std::move(failed), std::move(refused)};
}

void Prepare(Bench& b) {
    EXPECT_EQ(b.s().SetHeader(Variant(std::int16_t{1}), "MI TIENDA"), 0);
    EXPECT_EQ(b.s().Login(Variant(std::int16_t{7})), 0);
}
void OpenInvoice(Bench& b) {
    Prepare(b);
    EXPECT_EQ(b.s().IniciarFactura("JUAN PEREZ", "V-12345678", "Calle 5"), 0);
    EXPECT_EQ(b.s().PasarItem("PAN", Currency::FromDouble(5), 2, 16), 0);
}
void TwoClosings(Bench& b) {
    Prepare(b);
    ASSERT_NE(b.s().CerrarZ(), nullptr);
    EXPECT_EQ(b.s().PasarItem("CAFE", Currency::FromDouble(95), 1, 16), 0);
    EXPECT_EQ(b.s().CerrarComprobante(), 0);
    const auto second = b.s().CerrarZ();
    ASSERT_NE(second, nullptr);
    b.lastClosing = second->numeroUltimoZ;
}
std::string Text(std::integral auto value) {
    if constexpr (std::same_as<decltype(value), bool>) return value ? "True" : "False";
    return std::to_string(value);
}

std::vector<Family> Families() {
    using S = PrinterFiscal;
    const auto none = [](Bench&) {};
    return {
        AckFamily("item line", OpenInvoice,
                  [](S& s) { return Text(s.PasarItem("CAFE", Currency::FromDouble(95), 1, 16)); }),
        AckFamily(
            "customer data", Prepare,
            [](S& s) { return Text(s.PasarDatosCliente("ANA RUIZ", "V-87654321", "Calle 9")); }),
        AckFamily(
            "subtotal", OpenInvoice, [](S& s) { return Text(s.SubTotal()); }, "True; printed 0",
            "False; printed 0"),
        AckFamily("payment", OpenInvoice,
                  [](S& s) { return Text(s.CerrarConMedio(1, Currency::FromDouble(20))); }),
        AckFamily("non-fiscal", Prepare, [](S& s) { return Text(s.PrintNoFiscal("HOLA", false)); }),
        AckFamily("header", none,
                  [](S& s) { return Text(s.SetHeader(Variant(std::int16_t{2}), "SUCURSAL")); }),
        AckFamily("flag", none,
                  [](S& s) {
                      return Text(s.setFlag(Variant(std::int16_t{21}), Variant(std::int16_t{0})));
                  }),
        {"Response1", true, none,
         [](Bench& b) {
             const auto r = b.s().Response1();
             // Its substitute is never marked as one: the settings' counters and serial.
             return Result{"#" + Text(r->numeroUltimaFactura) + " " + r->Serial,
                           WithoutClock(r->toString())};
         },
         "#0 ", "#0 "},
        {"Response2", true, OpenInvoice,
         [](Bench& b) {
             const auto r = b.s().Response2();
             return Result{r->tipoTrans == -1
                               ? "fake"
                               : "kind " + Text(r->tipoTrans) + " total " + Money(r->total),
                           r->toString()};
         },
         "fake", "raises 9"},
        {"Response3", true, none,
         [](Bench& b) {
             const auto r = b.s().Response3();
             std::ostringstream rates;
             rates << (r->isFake ? "fake " : "") << r->ValorTasa1 << "/" << r->ValorTasa2 << "/"
                   << r->ValorTasa3;
             return Result{rates.str(), r->toString()};
         },
         "fake 0/0/0", "raises 9"},
        {"Response4", true, OpenInvoice,
         [](Bench& b) {
             const auto r = b.s().Response4();
             const std::string text =
                 (r->isFake ? "fake " : "") + std::string("means ") + Text(r->nMedios());
             std::string full = text;
             for (int i = 1; i <= r->nMedios(); ++i) full += " " + Money(r->valor(i));
             return Result{text, full};
         },
         "fake means 0", "raises 9"},
        {"getEstadoDocumento", true, OpenInvoice,
         [](Bench& b) {
             const auto r = b.s().getEstadoDocumento();
             return Result{"to pay " + Money(r->MontoPorPagar) + " state " + Text(r->estado),
                           r->toString()};
         },
         "to pay 0.00 state 0", "raises 9"},
        {"tasa", true, none,
         [](Bench& b) {
             std::ostringstream rate;
             rate << b.s().tasa(1);
             return Result(rate.str());
         },
         "-1", "raises 9"},
        {"ResumenZ", true, none,
         [](Bench& b) {
             const auto r = b.s().ResumenZ();
             return Result{
                 "Z " + Text(r->numeroUltimoZ) + " invoice " + Text(r->numeroUltimaFactura),
                 WithoutClock(r->toString(b.s().SerialPrinter()))};
         },
         "Z -1 invoice 0", "Z -1 invoice 0"},
        {"numeroUltimaFactura", true, none,
         [](Bench& b) { return Result(Text(b.s().numeroUltimaFactura())); }, "-1", "raises 9"},
        {"reportesZMF", true, TwoClosings,
         [](Bench& b) {
             const auto closures =
                 b.s().reportesZMF(b.lastClosing - 1, std::int32_t{b.lastClosing});
             std::string summary = Text(closures.size()) + " closures";
             std::string full;
             for (const auto& c : closures) {
                 summary += " " + Text(c->numeroCierre);
                 // Not toString: its closing times move with the clock between cells.
                 full += " " + Text(c->numeroUltimaFactura) + ":" + Money(c->baseVG) + "/" +
                         Money(c->impuestoVG) + "/" + Money(c->baseNCVG);
             }
             return Result{summary, summary + "\n" + full};
         },
         "0 closures", "raises 9", 1},
    };
}

// The kinds of outcome a cell can have.
enum class Expect {
    kIntact,        // pfOk, the usual result, every block sent once
    kWhole,         // pfOk, the padded reply collected whole; its leading fields as usual
    kResent,        // one time-out, status asked again, the block sent again; usual result
    kAskedAgain,    // the status reply was lost: one time-out, status asked again; usual result
    kRefused,       // seven blocks, seven NAKs, pfOk with the family's refused summary
    kCommError,     // seven attempts, each one time-out: pfCommError, the failed summary
    kStatusFailed,  // the query's own status request failed after one time-out
    kGaveUp,        // "MaxWait" spent: pfCommError with its own text
    kTwice,         // the ACK was not seen: one time-out, the block sent again and done twice
    kPartial,       // a further block lost after one time-out: the closures before it only
    kGarbled,       // the further block read with the garbage in its first field
    kNotMeaningful,
    kNotRun,
};
// Their short names in the printed table, in the same order.
const char* const kCodes[] = {"ok",     "whole", "resent", "reENQ", "NAKx7", "comm", "status",
                              "gaveup", "TWICE", "part",   "garbl", "n/a",   "-"};

struct Fault {
    std::string name;
    double maxWait;
    // Arms the fault on the exchange of the family's command.
    std::function<void(sim::Simulator&, const Family&)> arm;
    std::function<Expect(const Family&)> expect;
    std::string why = "";  // why some cells are not run
    double slack = 0;      // seconds the fault may add by writing byte by byte
};

unsigned CommandReply(const Family& f) { return f.data ? sim::kDataReply : sim::kAckReply; }
// The framed reply a frame fault can hit: the data, or for a lone ACK the status reply
// that comes before it.
unsigned FramedReply(const Family& f) { return f.data ? sim::kDataReply : sim::kStatusReply; }
unsigned DataReply(const Family&) { return sim::kDataReply; }

// Arms the plan's counted fault `field` for one reply of the kind `reply` picks, letting
// the family's spare data replies pass first; `more` sets the fault's own values.
std::function<void(sim::Simulator&, const Family&)> Once(
    sim::CountedFault sim::FaultPlan::*field, unsigned (*reply)(const Family&),
    std::function<void(sim::FaultPlan&)> more = {}) {
    return [=](sim::Simulator& p, const Family& f) {
        p.ChangeFaults([&](sim::FaultPlan& plan) {
            plan.*field = {1, reply(f), f.data ? f.spare : 0};
            if (more) more(plan);
        });
    };
}

std::vector<Fault> Faults() {
    using F = const Family&;
    const auto always = [](Expect kind) { return [kind](F) { return kind; }; };
    const auto at = [](auto act) { return [act](sim::Simulator& p, F) { act(p); }; };
    return {
        {"none", 0, at([](sim::Simulator&) {}), always(Expect::kIntact)},
        {"NAK x7", 0, at([](sim::Simulator& p) { p.NakNextBlocks(7); }), always(Expect::kRefused)},
        {"silent 1", 0, at([](sim::Simulator& p) { p.IgnoreNextBlocks(1); }),
         always(Expect::kResent)},
        {"silent 7", 0, at([](sim::Simulator& p) { p.IgnoreNextBlocks(7); }),
         [](F f) { return f.name == "item line" ? Expect::kCommError : Expect::kNotRun; },
         "seven time-outs each; the same Execute path as the item line"},
        {"late 0.4s", 0,
         Once(&sim::FaultPlan::late, CommandReply, [](sim::FaultPlan& p) { p.lateBy = kLate; }),
         always(Expect::kIntact)},
        {"split 1B", 0,
         at([](sim::Simulator& p) { p.SetChunking(1, std::chrono::milliseconds(1)); }),
         always(Expect::kIntact), "", 1.0},
        {"ENQ first", 0, Once(&sim::FaultPlan::enqPrefix, CommandReply),
         [](F f) { return f.data ? Expect::kIntact : Expect::kTwice; }},
        {"EOT end", 0, Once(&sim::FaultPlan::eotEnd, FramedReply), always(Expect::kIntact)},
        {"garbage", 0, Once(&sim::FaultPlan::garbage, CommandReply),
         [](F f) {
             return !f.data ? Expect::kTwice : f.spare > 0 ? Expect::kGarbled : Expect::kIntact;
         }},
        {"bad check", 0, Once(&sim::FaultPlan::badCheck, FramedReply), always(Expect::kIntact)},
        {"dropped", 0, Once(&sim::FaultPlan::drop, FramedReply),
         [](F f) {
             return !f.data       ? Expect::kAskedAgain
                    : f.spare > 0 ? Expect::kPartial
                                  : Expect::kResent;
         }},
        {"5000 B", 0,
         Once(&sim::FaultPlan::oversize, DataReply,
              [](sim::FaultPlan& p) { p.oversizeTo = kOversize; }),
         [](F f) { return f.data ? Expect::kWhole : Expect::kNotMeaningful; },
         "answered by a lone ACK; status replies have a fixed size"},
        {"ENQ mute+MW", kMaxWait,
         at([](sim::Simulator& p) { p.SilenceNextStatusRequests(1000000); }),
         [](F f) { return f.data ? Expect::kStatusFailed : Expect::kGaveUp; }},
        {"hang-up+MW", kMaxWait,
         Once(&sim::FaultPlan::drop, FramedReply, [](sim::FaultPlan& p) { p.hangUpOnDrop = true; }),
         [](F f) {
             const bool run = f.name == "item line" || f.name == "numeroUltimaFactura";
             return run ? Expect::kGaveUp : Expect::kNotRun;
         },
         "the same Execute path as \"ENQ mute+MW\""},
    };
}

// What crossed the line in one cell; duplicates are blocks sent again after the printer
// answered one whole.
struct Traffic {
    int blocks = 0, enqs = 0, naks = 0, duplicates = 0;
};

bool AnsweredWhole(const sim::TranscriptEntry& reply) {
    if (reply.direction != Direction::PrinterToHost) return false;
    if (reply.what == What::Ack) return true;
    if (reply.what != What::DataReply) return false;
    const std::size_t stx = reply.bytes.find('\x02');
    return stx != std::string::npos &&
           reply.bytes.find_first_of(std::string("\x03\x17\x04"), stx) != std::string::npos;
}

Traffic Analyse(const std::vector<sim::TranscriptEntry>& entries) {
    Traffic t;
    std::set<std::string> taken;
    for (std::size_t i = 0; i < entries.size(); ++i) {
        const sim::TranscriptEntry& e = entries[i];
        if (e.direction == Direction::PrinterToHost) {
            t.naks += e.what == What::Nak;
            continue;
        }
        t.enqs += e.what == What::Enq;
        if (e.what != What::Block) continue;
        ++t.blocks;
        t.duplicates += taken.count(e.command) > 0;
        if (i + 1 < entries.size() && AnsweredWhole(entries[i + 1])) taken.insert(e.command);
    }
    return t;
}

struct CellRun {
    Result result;
    session::ExchangeOutcome outcome;
    Traffic traffic;
    double seconds = 0;
};

CellRun RunCell(host::MemorySettingsSource& settings, const Family& family, const Fault& fault) {
    Bench bench(settings, fault.maxWait);
    family.setup(bench);
    bench.printer.transcript().Clear();
    fault.arm(bench.printer, family);
    CellRun run;
    const auto start = SteadyClock::now();
    try {
        run.result = family.call(bench);
    } catch (const automation::VbError& e) {
        run.result = Result("raises " + Text(e.number()));
    }
    run.seconds = std::chrono::duration<double>(SteadyClock::now() - start).count();
    run.outcome = bench.s().outcome();
    run.traffic = Analyse(bench.printer.transcript().Entries());
    return run;
}

// Checks one cell against its expectation; whether it held.
bool Check(const Family& family, const Fault& fault, Expect kind, const CellRun& run,
           const CellRun& normal) {
    bool held = true;
    auto expect = [&](bool holds, const std::string& what) {
        if (!holds) ADD_FAILURE() << what;
        held = held && holds;
    };
    const Traffic& t = run.traffic;
    const Traffic& n = normal.traffic;
    const std::string& got = run.result.summary;
    const std::string traffic = "blocks " + Text(t.blocks) + ", ENQs " + Text(t.enqs);
    const bool failed = kind == Expect::kCommError || kind == Expect::kStatusFailed ||
                        kind == Expect::kGaveUp || kind == Expect::kPartial;
    const session::ExchangeOutcome& o = run.outcome;
    expect(o.pfError == (failed ? session::pfCommError : session::pfOk),
           "pfError " + Text(o.pfError));
    if (failed) {
        expect(o.DescripcionError == (kind == Expect::kGaveUp ? kGaveUpText : kCommErrorText),
               "DescripcionError " + o.DescripcionError);
    }
    double timeOuts = 0;
    switch (kind) {
        case Expect::kIntact:
        case Expect::kResent:
        case Expect::kAskedAgain:
            expect(run.result.full == normal.result.full, "result " + got);
            expect(t.blocks == n.blocks + (kind == Expect::kResent ? 1 : 0), traffic);
            if (kind != Expect::kIntact) {
                expect(t.enqs == n.enqs + 1, traffic);
                timeOuts = 1;
            }
            break;
        case Expect::kWhole:
            // The blanks end up in the last field, which some records then read otherwise.
            expect(got == normal.result.summary, "result " + got);
            expect(o.result.size() == kOversize + 2, "collected " + Text(o.result.size()));
            expect(t.blocks == n.blocks, traffic);
            break;
        case Expect::kRefused:
            expect(t.naks == 7, "NAKs " + Text(t.naks));
            // Unless a series went on with its next command, the refusal is the last word.
            if (t.blocks == 7) expect(o.resultFlag == session::NAK, "resultFlag not NAK");
            expect(t.blocks == n.blocks + 6, traffic);
            expect(got == family.refused, "result " + got);
            break;
        case Expect::kCommError:
            expect(t.blocks == 7 && t.enqs == 7 + (family.data ? 1 : 0), traffic);
            expect(got == family.failed, "result " + got);
            timeOuts = 7;
            break;
        case Expect::kStatusFailed:
        case Expect::kGaveUp:
            // The query's own status request failed, or MaxWait was spent.
            expect(kind == Expect::kGaveUp ? t.blocks <= 1 : t.blocks == 0 && t.enqs == 1, traffic);
            expect(got == family.failed, "result " + got);
            timeOuts = kind == Expect::kGaveUp ? kMaxWait / kTimeOut : 1;
            break;
        case Expect::kTwice:
            // Sent once more; a printer that refuses the repeat draws the NAKs that are left.
            expect(t.duplicates >= 1 && t.blocks == n.blocks + t.duplicates,
                   traffic + ", sent again " + Text(t.duplicates));
            timeOuts = 1;
            break;
        case Expect::kPartial:
            expect(got.starts_with("1 closures"), "result " + got);
            timeOuts = 1;
            break;
        default:  // kGarbled
            expect(t.blocks == n.blocks, traffic);
            expect(run.result.full != normal.result.full, "result unchanged");
            break;
    }
    if (kind != Expect::kTwice) {
        expect(t.duplicates == 0, "sent again " + Text(t.duplicates));
    }
    // The waits the fault costs, and no more than them plus the family's usual time.
    const double late = fault.name.starts_with("late") ? kLate.count() / 1000.0 : 0;
    const double least = timeOuts * kTimeOut + late;
    const double most = least + normal.seconds + fault.slack + kSlack;
    expect(run.seconds >= least - 0.02 && run.seconds <= most,
           "took " + std::to_string(run.seconds) + " s");
    return held;
}

TEST(FaultMatrix, EveryFamilyUnderEveryFaultOfTheLine) {
    host::ScopedSettingsSource settings;
    // Failed series show their message box; here it is recorded, not shown.
    auto previousPrompts = host::ReplaceUserPrompts(std::make_shared<host::RecordingUserPrompts>());
    const std::vector<Family> families = Families();
    const std::vector<Fault> faults = Faults();
    const auto matrixStart = SteadyClock::now();

    char text[64];
    std::string table, notes;
    for (const Family& family : families) {
        std::snprintf(text, sizeof text, "%-20s", family.name.c_str());
        table += text;
        CellRun normal;
        for (const Fault& fault : faults) {
            const Expect kind = fault.expect(family);
            std::string cell = kCodes[static_cast<int>(kind)];
            if (kind != Expect::kNotMeaningful && kind != Expect::kNotRun) {
                SCOPED_TRACE(family.name + " / " + fault.name);
                const CellRun run = RunCell(settings.source(), family, fault);
                if (fault.name == "none") normal = run;
                const bool held = Check(family, fault, kind, run, normal);
                std::snprintf(text, sizeof text, "%s%s %.2f", held ? "" : "!", cell.c_str(),
                              run.seconds);
                cell = text;
                if (kind == Expect::kRefused || kind == Expect::kTwice ||
                    kind == Expect::kPartial || kind == Expect::kGarbled) {
                    notes += "  " + family.name + " / " + fault.name + ": " + run.result.summary +
                             " (without the fault: " + normal.result.summary + ")\n";
                }
            }
            std::snprintf(text, sizeof text, "%-11s ", cell.c_str());
            table += text;
        }
        table += "\n";
    }
    const double total = std::chrono::duration<double>(SteadyClock::now() - matrixStart).count();
    host::ReplaceUserPrompts(previousPrompts);

    std::ostringstream out;
    out << "\nFault matrix (TimeOut " << kTimeOut << " s, MaxWait " << kMaxWait
        << " s where marked MW; outcome and seconds per cell)\n"
        << std::string(20, ' ');
    for (const Fault& fault : faults) {
        std::snprintf(text, sizeof text, "%-11s ", fault.name.c_str());
        out << text;
    }
    out << "\n"
        << table
        << "\nA fault hits the reply to the family's command (for reportesZMF its further\n"
           "block); frame faults hit the status reply before a lone ACK. MW: MaxWait set.\n"
           "ok intact, whole 5000-byte reply read whole, resent block sent again, reENQ status\n"
           "asked again, NAKx7 refused seven times, comm seven time-outs, status the query's\n"
           "status timed out, gaveup MaxWait spent, TWICE the hidden ACK made it run twice,\n"
           "part further block lost, garbl further block garbled, n/a not meaningful, - not\n"
           "run, ! did not go as stated.\n";
    for (const Fault& fault : faults) {
        if (!fault.why.empty()) out << "  " << fault.name << ": " << fault.why << "\n";
    }
    out << "Results of the refused and hidden-answer cells:\n"
        << notes << "Matrix run: " << total << " s\n";
    std::fputs(out.str().c_str(), stdout);
    // Kept beside the test, for make test to show after ctest, which hides passing output.
    std::ofstream("fault-matrix.txt") << out.str();
}

}  // namespace
}  // namespace corvid::e2e
