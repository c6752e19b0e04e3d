// Fitting the printer font and the page length to the report width.
#include <gtest/gtest.h>

#include "automation/vb_error.h"
#include "preview/printer_metrics.h"
#include "quick_view_fixture.h"

namespace corvid::preview::testing {
namespace {

using host::PromptAnswer;
using host::PromptButtons;

const std::string kWarning =
    "ADVERTENCIA: El reporte podr\xED"
    "a no imprimirse completo con su actual configuraci\xF3n de impresi\xF3n";
const std::string kQuestion = "Desea emitirlo, a pesar de ello";

// On the fake's 8-inch page, 126 columns (120 + the allowance of 6) fit at 7 points:
// 126 x 0.6 x 7.5 / 72 inches exceeds 98 % of 8 inches, 7 points does not.
TEST_F(QuickViewTest, NewReportFitsOneHundredTwentyColumnsInHalfPointSteps) {
    auto view = MakeView();
    EXPECT_EQ(printer_->font_name, "Courier New");
    EXPECT_FALSE(printer_->bold);
    EXPECT_DOUBLE_EQ(printer_->font_size, 7.0);
    EXPECT_EQ(view->LineasPagina(), 104);  // 15120 / 140 - 3 = 105 lines per page
    EXPECT_TRUE(prompts_->prompts().empty());
}

TEST_F(QuickViewTest, NarrowReportStartsFromTheConfiguredSize) {
    SetViewSetting("MaxFontSize", "11.5pt");
    auto view = MakeView();
    EXPECT_TRUE(view->SetReportWidth(40));
    EXPECT_DOUBLE_EQ(printer_->font_size, 11.5);
    EXPECT_EQ(view->LineasPagina(), 62);  // 15120 / 230 - 3 = 62.7 -> 63
}

TEST_F(QuickViewTest, LinesPerPageRoundsHalfToEven) {
    auto view = MakeView();
    printer_->scale_height = 280 * 51.5;  // 14 points: 48.5 lines
    ASSERT_TRUE(view->SetReportWidth(40));
    EXPECT_EQ(view->LineasPagina(), 47);
}

TEST_F(QuickViewTest, FittingStopsAtTheSmallestSizeTheDeviceOffers) {
    printer_->smallest_size = 9;
    auto view = MakeView();
    EXPECT_DOUBLE_EQ(printer_->font_size, 9.0);
    EXPECT_EQ(view->LineasPagina(), 80);  // 15120 / 180 - 3 = 81
    EXPECT_TRUE(prompts_->prompts().empty());
}

TEST_F(QuickViewTest, OffsetAndFactorAdjustTheFittedSize) {
    SetViewSetting("FontOffset", "2.5");  // rounds half to even: 2
    SetViewSetting("FontFactor", "1.5");
    MakeView();
    EXPECT_DOUBLE_EQ(printer_->font_size, (7.0 + 2) * 1.5);
}

TEST_F(QuickViewTest, TooSmallAFontWarnsAndOnlyNoGoesOn) {
    SetViewSetting("FontFactor", "0.5");  // 7 points become 3.5
    auto view = MakeView();
    ASSERT_EQ(prompts_->texts(), (std::vector<std::string>{kWarning, kQuestion}));
    EXPECT_EQ(prompts_->prompts()[0].buttons, PromptButtons::kOk);
    EXPECT_EQ(prompts_->prompts()[0].title, "");
    EXPECT_EQ(prompts_->prompts()[1].buttons, PromptButtons::kYesNo);

    // Yes (the default answer here) keeps the old page length and reports no fit.
    view->SetLinesPerPage(30);
    EXPECT_FALSE(view->SetReportWidth(120));
    EXPECT_EQ(view->LineasPagina(), 29);

    prompts_->QueueAnswer(PromptAnswer::kOk);
    prompts_->QueueAnswer(PromptAnswer::kNo);
    EXPECT_TRUE(view->SetReportWidth(120));
    EXPECT_EQ(view->LineasPagina(), 15120 / 70 - 3 - 1);
}

TEST_F(QuickViewTest, PixelScaleModeHasNoPrintableWidthAndShrinksToFourPoints) {
    printer_->scale_mode = scale_modes::kPixels;
    prompts_->QueueAnswer(PromptAnswer::kOk);
    prompts_->QueueAnswer(PromptAnswer::kNo);
    auto view = MakeView();
    EXPECT_DOUBLE_EQ(printer_->font_size, 4.0);
    EXPECT_EQ(prompts_->texts(), (std::vector<std::string>{kWarning, kQuestion}));
    EXPECT_EQ(view->LineasPagina(), 15120 / 80 - 3 - 1);
}

TEST_F(QuickViewTest, ChosenPrintFontOnlyStoresTheWidth) {
    auto view = MakeView();
    view->SetPrintFontSize(9);
    EXPECT_TRUE(view->printFontFixed());
    EXPECT_DOUBLE_EQ(printer_->font_size, 9.0);

    EXPECT_FALSE(view->SetReportWidth(40));
    EXPECT_EQ(view->reportWidth(), 40);
    EXPECT_DOUBLE_EQ(printer_->font_size, 9.0);
    EXPECT_EQ(view->LineasPagina(), 104);
}

TEST_F(QuickViewTest, FailingPrinterEndsTheFittingQuietly) {
    printer_->failing = {"TextHeight"};
    auto view = MakeView();  // never got to the page length
    EXPECT_EQ(view->LineasPagina(), -1);

    printer_->failing = {};
    ASSERT_TRUE(view->SetReportWidth(120));
    printer_->failing = {"ScaleWidth"};
    EXPECT_FALSE(view->SetReportWidth(40));
    EXPECT_EQ(view->LineasPagina(), 104);
}

TEST_F(QuickViewTest, WidthBeyondTheIntegerRangeWithItsAllowanceOverflows) {
    auto view = MakeView();
    try {
        view->SetReportWidth(32762);
        FAIL() << "no error raised";
    } catch (const automation::VbError& error) {
        EXPECT_EQ(error.number(), 6);
    }
}

TEST(PrinterMetricsTest, PointsShareTheTwipsFactorAndPixelsHaveNone) {
    EXPECT_DOUBLE_EQ(ScaleToInches(scale_modes::kPoints), 1.0 / 1440);
    EXPECT_DOUBLE_EQ(ScaleToInches(scale_modes::kCharacters), 120.0 / 1440);
    EXPECT_DOUBLE_EQ(ScaleToInches(scale_modes::kPixels), 0.0);
}

TEST(PrinterMetricsTest, TextWidthInchesMeasuresLettersInTheScaleMode) {
    FakePrinter printer;
    printer.scale_mode = scale_modes::kMillimetres;
    printer.font_size = 10;
    EXPECT_DOUBLE_EQ(TextWidthInches(printer, 5), 5 * 10 * 12 / 25.4);
}

}  // namespace
}  // namespace corvid::preview::testing
