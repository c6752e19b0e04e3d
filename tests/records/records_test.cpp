// The records read from the printer's replies: status, daily summary, closures.
#include <gtest/gtest.h>

#include <memory>

#include "automation/dates.h"
#include "automation/locale_format.h"
#include "host/trace_log.h"
#include "records/fecha_hora.h"
#include "records/printer_response1.h"
#include "records/printer_response2.h"
#include "records/printer_response3.h"
#include "records/printer_response4.h"
#include "records/reporte_zmf.h"
#include "records/resumen_z.h"
#include "support/fake_clock.h"
#include "support/memory_settings_source.h"
#include "support/vb_error_testing.h"

namespace corvid::records {
namespace {

using namespace automation;
using test_support::ErrorNumberOf;

// A fixed locale, a fake clock and settings in memory.
class RecordsTest : public ::testing::Test {
  protected:
    RecordsTest() : locale_(ReplaceLocaleFormat({})) {}
    ~RecordsTest() override { ReplaceLocaleFormat(locale_); }

    LocaleFormat locale_;
    host::ScopedSettingsSource settings_;
    std::shared_ptr<FakeClock> clock_ = std::make_shared<FakeClock>();
    ScopedClock scopedClock_{clock_};
};

// A printer that answers every query with a set reply and keeps the commands it was sent.
struct ScriptedPrinter : ResponseSource {
    Fields GetResponse(std::string_view cmd) override {
        commands.emplace_back(cmd);
        return reply;
    }
    std::vector<Fields> GetMultipleResponses(std::string_view cmd) override {
        commands.emplace_back(cmd);
        return rows;
    }
    std::int32_t tipoPrinter() const override { return 1; }
    Fields reply = {"pfError"};
    std::vector<Fields> rows;
    std::vector<std::string> commands;
};

Date At(int y, int m, int d, int h = 0, int n = 0, int s = 0) {
    return CombineDateTime(DateSerial(y, m, d), TimeSerial(h, n, s));
}

TEST_F(RecordsTest, DateAndTimeFieldsOrNow) {
    const Date now = clock_->Now();
    const struct {
        const char *fecha, *hora;
        Date expected;
    } cases[] = {
        {"991231", "2359", At(2099, 12, 31, 23, 59)},
        {"240517", "103015", At(2024, 5, 17, 10, 30, 15)},
        {"240229", "", At(2024, 2, 29)},
        {"", "1030", TimeSerial(10, 30, 0)},
        {"241317", "1030", now},
        {"230229", "", now},
        {"240517", "2400", now},
        {"2405x7", "", now},
        {"", "10", now},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(std::string(c.fecha) + " " + c.hora);
        EXPECT_EQ(ParseFechaHora(c.fecha, c.hora), c.expected);
    }
}

// Every field holds a value of its own, so a field read from the wrong place shows.
const Fields kShortS1 = {"S105", "0012345", "120",  "8",      "33",   "1234", "15",
                         "16",   "J-1",     "zpa1", "240517", "1030", "9",    "2"};
const Fields kLongS1 = {"S102", "100", "120", "8",  "40",  "1",  "50",   "2",
                        "33",   "4",   "16",  "15", "J-2", "Z1", "2359", "991231"};

TEST_F(RecordsTest, S1LayoutsReadEveryFieldFromItsPlace) {
    PrinterResponse1 r;
    const auto read = [&](const Fields& v) {
        r.loadFromResponse(v);
        return r.toString() + "ND " + std::to_string(r.numeroUltimaND) + "/" +
               std::to_string(r.notasDebitoDia) + " NC " + std::to_string(r.numeroUltimaNC) + "/" +
               std::to_string(r.notasCreditoDia);
    };
    r.numeroUltimaND = 5;  // the short layout has none
    EXPECT_EQ(read(kShortS1),
              "numeroCajero = 005\r\nTotalVentasDiarias = $123.45\r\n"
              "NumeroUltimaFactura = 000120\r\nfacturasDia = 0008\r\nultimoDNF = 000033\r\n"
              "ndfDia = 1,234\r\nnCierres = 15\r\ncontadorReportes = 16\r\nRIF = J-1\r\n"
              "Serial = ZPA1\r\nFecha = 17-05-2024 10:30\r\nND 0/0 NC 9/2");
    // The time comes before the date here.
    EXPECT_EQ(read(kLongS1),
              "numeroCajero = 002\r\nTotalVentasDiarias = $1.00\r\n"
              "NumeroUltimaFactura = 000120\r\nfacturasDia = 0008\r\nultimoDNF = 000033\r\n"
              "ndfDia = 4\r\nnCierres = 15\r\ncontadorReportes = 16\r\nRIF = J-2\r\n"
              "Serial = Z1\r\nFecha = 31-12-2099 23:59\r\nND 40/1 NC 50/2");
    r.loadFromResponse("S105\n0\n120\n8\n33\n1234\n15\n16\nJ-1\nzpa1\n240517\n1030\n9\n");
    EXPECT_EQ(r.notasCreditoDia, 0);  // a trailing line feed is an empty field

    EXPECT_EQ(LastInvoiceNumber(kShortS1), 120);
    EXPECT_EQ(LastClosureNumber(kShortS1), 15);  // the closures in the short layout
    EXPECT_EQ(LastClosureNumber(kLongS1), 50);   // the last credit note in the long one
    EXPECT_EQ(ErrorNumberOf([] { LastInvoiceNumber({"S1", "0", "abc"}); }), 13);
}

TEST_F(RecordsTest, AnS1ThatDoesNotReadFallsBackToTheSettings) {
    settings_->SetUserValue("ORV", "Config\\NimbusPF\\Response1", "numeroCajero", "7");
    Fields badShort = kShortS1, overflowing = kLongS1;
    badShort[2] = "12x";
    overflowing[5] = "40000";  // more notes than 16 bits hold
    for (const Fields& v : {badShort, overflowing, Fields{}}) {
        PrinterResponse1 r;
        r.loadFromResponse(v);
        EXPECT_EQ(r.numeroCajero, 7);
        EXPECT_EQ(r.totalVentasDiarias, Currency::FromDouble(7));  // from the cashier's key too
        EXPECT_EQ(r.RIF, "J-12345678-9");
    }
}

TEST_F(RecordsTest, TheDocumentStateIsReadByBothS2Records) {
    Fields reply = {"S2 0001500", " 240", "0", "2.5", "1740", " 2", "3"};
    PrinterResponse2 response;
    response.loadFromResponse(reply);
    EXPECT_EQ(response.toString(),
              "subTotalVenta = 15\r\nsubTotalImpuestos = 2.4\r\ncantidadItems = 2.5\r\n"
              "total = 17.4\r\ncantidadPagos = 2\r\ntipoTrans = 3\r\n");
    EstadoDocumento estado;
    estado.loadFromResponse(reply);
    EXPECT_EQ(estado.toString(),
              "subTotalBasesImponibles = $15.00\r\nsubTotalIVA = $2.40\r\nNotaS2 = 2.5\r\n"
              "MontoPorPagar = $17.40\r\nnumeroPagosRealizados = 2\r\nestado = 3\r\n");
    estado.loadFromResponse({"pfError"});  // no blank in field 0: nothing changes
    EXPECT_EQ(estado.subTotalBasesImponibles, Currency::FromScaled(150000));
    reply[4] = "17x";  // a bad field raises after the earlier ones are read
    PrinterResponse2 partial;
    EXPECT_EQ(ErrorNumberOf([&] { partial.loadFromResponse(reply); }), 13);
    EXPECT_DOUBLE_EQ(partial.cantidadItems, 2.5);
}

TEST_F(RecordsTest, S3RatesIgtfAndFlags) {
    host::TraceLog trace;
    PrinterResponse3 r;
    r.loadFromResponse({"11600", "00800", "03100", "0250", "0102030405"}, trace);
    EXPECT_EQ(r.toString(),
              "Tasa1: INCLUIDO\r\nValor 1: 16\r\nTasa2: ADICIONAL\r\nValor 2: 8\r\n"
              "Tasa3: ADICIONAL\r\nValor 3: 31\r\nFLAGS: 0102030405\r\n");
    EXPECT_DOUBLE_EQ(r.TasaIGTF, 2.5);
    EXPECT_EQ(r.Flag(4), 5);
    EXPECT_EQ(r.Flag(5), -1);
    EXPECT_EQ(r.IndexOfRate(8.05), 2);
    EXPECT_EQ(r.IndexOfRate(12), std::nullopt);  // no rate within 0.1
    // Without an IGTF field the levy is 3 and the flags come from field 3.
    r.loadFromResponse({"01600", "00800", "03100", "0021"}, trace);
    EXPECT_DOUBLE_EQ(r.TasaIGTF, 3);
    EXPECT_EQ(r.Flag(1), 21);
    // A bad field ends the reading, keeping what came before.
    PrinterResponse3 bad;
    bad.loadFromResponse({"01600", "0xx", "03100", "0021"}, trace);
    EXPECT_DOUBLE_EQ(bad.ValorTasa1, 16);
    EXPECT_DOUBLE_EQ(bad.ValorTasa3, 0);
    EXPECT_DOUBLE_EQ(RateOfField({"0825x"}, 0), 8.25);
}

TEST_F(RecordsTest, S4ReadsAtMost24AmountsDroppingTheEcho) {
    Fields reply(30);
    for (std::size_t i = 0; i < reply.size(); ++i) reply[i] = std::to_string((i + 1) * 100);
    reply[0] = "S4123456";
    PrinterResponse4 r;
    r.loadFromResponse(reply);
    EXPECT_EQ(r.nMedios(), 24);
    EXPECT_EQ(r.valor(1), Currency::FromScaled(12345600));
    EXPECT_EQ(r.valor(24), Currency::FromScaled(240000));
    EXPECT_EQ(r.valor(25), Currency());
    EXPECT_EQ(ErrorNumberOf([&] { r.loadFromResponse({"S4100", "x"}); }), 13);
}

Fields ClosureRow() {
    Fields row(28, "0");
    row[0] = "12";
    row[1] = "240517";
    row[2] = "2359";
    row[3] = "345";
    row[4] = "240516";
    row[5] = "103015";
    row[9] = "150000";
    return row;
}

TEST_F(RecordsTest, AClosureFromFiscalMemory) {
    ReporteZMF record;
    record.loadFromResponse(ClosureRow());
    EXPECT_EQ(record.toString().rfind("NumeroCierre = 12\r\nFecha Cierre = 17/05/2024 23:59:00\r\n"
                                      "numeroUltimaFactura = 345\r\n"
                                      "fechaUltimaFactura = 16/05/2024\r\n"
                                      "horaUltimaFactura = 10:30:15\r\nventasExentas = 1500\r\n",
                                      0),
              0u);
    Fields shortRow = ClosureRow();
    shortRow.resize(27);
    EXPECT_EQ(ErrorNumberOf([&] { record.loadFromResponse(shortRow); }), 9);

    ScriptedPrinter printer;
    for (const auto& rows : {std::vector<Fields>{}, {{"pfError"}}}) {
        printer.rows = rows;
        EXPECT_FALSE(record.load(printer, std::int16_t{7}));
    }
    EXPECT_EQ(printer.commands.back(), "U3A000007000007");
    printer.rows = {ClosureRow(), {"13"}};
    record.numeroCierre = 3;
    EXPECT_TRUE(record.load(printer, std::int16_t{12}));
    EXPECT_EQ(record.numeroCierre, 12);
}

// Field i holds i hundred, so an amount read from it is i units.
Fields Hundreds(std::size_t count) {
    Fields fields(count);
    for (std::size_t i = 0; i < count; ++i) fields[i] = std::to_string(i * 100);
    return fields;
}

TEST_F(RecordsTest, TheNumberOfFieldsPicksTheSummaryLayout) {
    const struct {
        std::size_t count;
        std::int32_t nd, nc, dnf;
        std::int64_t exenta, exentoND, baseIgtfNC, igtfNC;
    } cases[] = {
        {20, 0, 1900, 0, 5, 0, 0, 0},       {29, 2000, 2800, 0, 6, 13, 0, 0},
        {30, 600, 700, 800, 9, 16, 0, 0},   {31, 600, 700, 800, 9, 16, 0, 0},
        {38, 600, 700, 800, 9, 16, 37, 0},  {39, 600, 700, 800, 9, 16, 37, 38},
        {41, 600, 700, 800, 9, 16, 37, 38}, {42, 0, 1900, 0, 5, 0, 0, 0},
    };
    const auto units = [](std::int64_t n) { return Currency::FromScaled(n * Currency::kScale); };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.count);
        ResumenZ z;
        z.loadFromFields(Hundreds(c.count));
        EXPECT_EQ(z.ultimaND, c.nd);
        EXPECT_EQ(z.ultimaNC, c.nc);
        EXPECT_EQ(z.ultimoDNF, c.dnf);
        EXPECT_EQ(z.ventasExentas, units(c.exenta));
        EXPECT_EQ(z.exentoND, units(c.exentoND));
        EXPECT_EQ(z.BaseIGTFNC, units(c.baseIgtfNC));
        EXPECT_EQ(z.IGTFNC, units(c.igtfNC));
    }
}

TEST_F(RecordsTest, TheSummaryIsAskedForAndPrintsItsLabels) {
    ScriptedPrinter printer;
    ResumenZ z;
    z.load(printer);
    EXPECT_EQ(printer.commands, std::vector<std::string>{"U0Z"});
    EXPECT_EQ(z.numeroUltimoZ, -1);  // a failed query changes nothing
    printer.reply = Hundreds(30);
    printer.reply[0] = "12";
    printer.reply[4] = "240517";
    printer.reply[5] = "1030";
    z.Refresh(printer);
    const std::string text = z.toString("Z1A");
    EXPECT_EQ(text.rfind("Serial = Z1A\r\nNumeroCierre = 00012\r\nultimaFactura = 000300\r\n"
                         "fechaUltimaFactura = 17-05-2024 10:30\r\nVentaExenta = $9.00\r\n"
                         "VentaBase1 = $10.00\r\nIVABAse1 = $11.00\r\n",
                         0),
              0u);
    EXPECT_NE(text.find("\r\nIVADevBase3 = $29.00\r\nUltimaNC = 700\r\nUltimoDNF = 800\r\n"
                        "BaseIGTF = $0.00\r\nValorIGTF = $0.00\r\n"),
              std::string::npos);
}

}  // namespace
}  // namespace corvid::records
