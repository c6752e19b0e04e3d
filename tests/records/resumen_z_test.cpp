#include "records/resumen_z.h"

#include <gtest/gtest.h>

#include "automation/locale_format.h"
#include "records/scripted_printer.h"

namespace corvid::records {
namespace {

using automation::Currency;

// Field i holds i hundred, so an amount read from it is i units.
Fields Reply(std::size_t count) {
    Fields fields(count);
    for (std::size_t i = 0; i < count; ++i) fields[i] = std::to_string(i * 100);
    return fields;
}

Currency Units(std::int64_t n) { return Currency::FromScaled(n * Currency::kScale); }

TEST(ResumenZTest, TheNumberOfFieldsPicksTheLayout) {
    struct Case {
        std::size_t count;
        std::int32_t nd, nc, dnf;
        std::int64_t exenta, exentoND, baseIgtfNC, igtfNC;
    };
    const Case cases[] = {
        {20, 0, 1900, 0, 5, 0, 0, 0},       {29, 2000, 2800, 0, 6, 13, 0, 0},
        {30, 600, 700, 800, 9, 16, 0, 0},   {31, 600, 700, 800, 9, 16, 0, 0},
        {38, 600, 700, 800, 9, 16, 37, 0},  {39, 600, 700, 800, 9, 16, 37, 38},
        {41, 600, 700, 800, 9, 16, 37, 38}, {42, 0, 1900, 0, 5, 0, 0, 0},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.count);
        ResumenZ z;
        z.loadFromFields(Reply(c.count));
        EXPECT_EQ(z.ultimaND, c.nd);
        EXPECT_EQ(z.ultimaNC, c.nc);
        EXPECT_EQ(z.ultimoDNF, c.dnf);
        EXPECT_EQ(z.ventasExentas, Units(c.exenta));
        EXPECT_EQ(z.exentoND, Units(c.exentoND));
        EXPECT_EQ(z.BaseIGTFNC, Units(c.baseIgtfNC));
        EXPECT_EQ(z.IGTFNC, Units(c.igtfNC));
    }
}

TEST(ResumenZTest, ABadFieldKeepsWhatCameBefore) {
    Fields reply = Reply(30);
    reply[9] = "123456";
    reply[10] = "1x";
    ResumenZ z;
    z.loadFromFields(reply);
    EXPECT_EQ(z.ventasExentas, Currency::FromScaled(12345600));
    EXPECT_EQ(z.baseVG, Currency());
}

TEST(ResumenZTest, LoadAsksForTheSummaryAndAFailedQueryChangesNothing) {
    ScriptedPrinter printer;
    ResumenZ z;
    z.load(printer);
    EXPECT_EQ(printer.commands, std::vector<std::string>{"U0Z"});
    EXPECT_EQ(z.numeroUltimoZ, -1);

    printer.reply = Reply(30);
    printer.reply[0] = "12";
    z.load(printer);
    printer.reply[0] = "13";
    z.Refresh(printer);
    EXPECT_EQ(z.numeroUltimoZ, 13);
}

TEST(ResumenZTest, TextKeepsItsLabels) {
    const automation::LocaleFormat saved = automation::ReplaceLocaleFormat({});
    Fields reply = Reply(30);
    reply[0] = "12";
    reply[4] = "240517";
    reply[5] = "1030";
    ResumenZ z;
    z.loadFromFields(reply);
    const std::string text = z.toString("Z1A");
    automation::ReplaceLocaleFormat(saved);
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
