#include "records/reporte_zmf.h"

#include <gtest/gtest.h>

#include "records/scripted_printer.h"
#include "support/vb_error_testing.h"

namespace corvid::records {
namespace {

using automation::Currency;

Fields Row() {
    Fields row(28, "0");
    row[0] = "12";
    row[1] = "240517";
    row[2] = "2359";
    row[3] = "345";
    row[4] = "240516";
    row[5] = "103015";
    row[9] = "150000";
    row[27] = "99";
    return row;
}

TEST(ReporteZMFTest, ReadsAClosureRow) {
    ReporteZMF record;
    record.loadFromResponse(Row());
    EXPECT_EQ(record.horaCierre, automation::Date{});
    EXPECT_EQ(record.impuestoNCIR, Currency::FromScaled(9900));
    EXPECT_EQ(record.toString().rfind("NumeroCierre = 12\r\nFecha Cierre = 17/05/2024 23:59:00\r\n"
                                      "numeroUltimaFactura = 345\r\n"
                                      "fechaUltimaFactura = 16/05/2024\r\n"
                                      "horaUltimaFactura = 10:30:15\r\nventasExentas = 1500\r\n",
                                      0),
              0u);

    Fields shortRow = Row();
    shortRow.resize(27);
    ReporteZMF partial;
    EXPECT_EQ(test_support::ErrorNumberOf([&] { partial.loadFromResponse(shortRow); }), 9);
    EXPECT_EQ(partial.ventasExentas, Currency::FromScaled(15000000));
}

TEST(ReporteZMFTest, LoadAsksForTheOneClosureAndAFailureLeavesTheRecord) {
    ScriptedPrinter printer;
    ReporteZMF record;
    record.numeroCierre = 3;
    for (const auto& rows : {std::vector<Fields>{}, {{"pfError"}}, {{}}}) {
        printer.rows = rows;
        EXPECT_FALSE(record.load(printer, std::int16_t{7}));
    }
    EXPECT_EQ(record.numeroCierre, 3);
    EXPECT_EQ(printer.commands.back(), "U3A000007000007");

    printer.rows = {Row(), {"13"}};
    EXPECT_TRUE(record.load(printer, std::int16_t{12}));
    EXPECT_EQ(record.numeroCierre, 12);
}

}  // namespace
}  // namespace corvid::records
