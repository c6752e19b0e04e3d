// Building, fitting and printing a report on the fake printer.
#include <gtest/gtest.h>

#include <string>

#include "quick_view_fixture.h"
#include "support/vb_error_testing.h"

namespace corvid::preview::testing {
namespace {

using host::PromptAnswer;
using test_support::ErrorNumberOf;
using Log = std::vector<std::string>;

class QuickViewReportTest : public QuickViewTest {
  protected:
    // A report `width` columns wide whose printer font is fixed, so no fitting happens.
    std::unique_ptr<lfQuickView> MakeReport(std::int16_t width) {
        auto view = MakeView();
        view->SetPrintFontSize(10);
        view->SetReportWidth(width);
        return view;
    }
    // A shown four-column report: two lines, a page break, one more line.
    std::unique_ptr<lfQuickView> ShownReport() {
        auto view = MakeView();
        view->SetReportWidth(4);
        view->SetLinesPerPage(lfQuickView::kNoPaging);
        view->Add("one", alignments::kLeft);
        view->Add("two", alignments::kRight);
        view->PageBreak();
        view->Add("three", alignments::kLeft);
        view->LoadText();
        return view;
    }
};

// The page breaks before the line that would reach the last line.
TEST_F(QuickViewReportTest, BreaksThePageBeforeTheLineThatWouldReachTheLastLine) {
    auto view = MakeReport(6);
    view->SetLinesPerPage(10);
    EXPECT_EQ(view->LineasPagina(), 9);
    std::string expected;
    for (int i = 1; i <= 9; ++i) {
        view->Add("l" + std::to_string(i), alignments::kLeft);
        if (i == 9) expected += "________\r\n";
        expected += "l" + std::to_string(i) + " \r\n";
        EXPECT_EQ(view->Pagina(), i < 9 ? 1 : 2);
    }
    EXPECT_EQ(view->Linea(), 2);
    EXPECT_EQ(Shown(*view), expected);
}

// Centring rounds the spaces half to even (2.5 -> 2, 3.5 -> 4) and cuts long texts; an
// unknown alignment gives an empty line.
TEST_F(QuickViewReportTest, AlignsEachLineInTheReportWidth) {
    const std::tuple<std::int16_t, const char*, std::int16_t, const char*> cases[] = {
        {8, "abc", alignments::kCentre, "  abc \r\n"},
        {10, "abc", alignments::kCentre, "    abc \r\n"},
        {8, "abcdefghij", alignments::kCentre, "abcdefgh \r\n"},
        {8, "abc", alignments::kRight, "     abc \r\n"},
        {8, "ignored", 7, " \r\n"}};
    for (const auto& [width, text, alignment, shown] : cases) {
        auto view = MakeReport(width);
        view->Add(text, alignment);
        EXPECT_EQ(Shown(*view), shown) << text;
    }
}

// The font is fitted in half-point steps until the report's columns and six more fit 98 % of
// the page: on the fake's 8-inch page, 126 columns fit at 7 points. The page length is the
// page over the line height, less three, rounded half to even; the report uses one line less.
TEST_F(QuickViewReportTest, FitsTheFontAndThePageLengthToTheReportWidth) {
    struct Case {
        std::int16_t width;
        std::vector<std::pair<const char*, const char*>> view_settings;
        double smallest_size;
        double scale_height;
        double font_size;
        int lines;
    };
    const Case cases[] = {
        {120, {}, 1, 15120, 7.0, 104},
        {40, {{"MaxFontSize", "11.5pt"}}, 1, 15120, 11.5, 62},
        {40, {}, 1, 280 * 51.5, 14.0, 47},  // 48.5 lines
        {120, {}, 9, 15120, 9.0, 80},       // the smallest size offered
        {120, {{"FontOffset", "2.5"}, {"FontFactor", "1.5"}}, 1, 15120, (7.0 + 2) * 1.5, 52}};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.width);
        for (const auto& [key, value] : c.view_settings) SetViewSetting(key, value);
        printer_->smallest_size = c.smallest_size;
        printer_->scale_height = c.scale_height;
        auto view = MakeView();
        EXPECT_TRUE(view->SetReportWidth(c.width));
        EXPECT_DOUBLE_EQ(printer_->font_size, c.font_size);
        EXPECT_EQ(view->LineasPagina(), c.lines);
        EXPECT_EQ(printer_->font_name + (printer_->bold ? " bold" : ""), "Courier New");
        settings_->Clear();
    }
    EXPECT_TRUE(prompts_->prompts().empty());
}

// Past the report's limits it raises what VB raises: a right-aligned text wider than the
// report (a negative count of spaces) and a page number past 32767.
TEST_F(QuickViewReportTest, RaisesWhatVbRaisesPastTheReportsLimits) {
    auto view = MakeReport(8);
    EXPECT_EQ(ErrorNumberOf([&] { view->Add("abcdefghij", alignments::kRight); }), 5);
    view->SetNumeroPagina(32767);
    EXPECT_EQ(ErrorNumberOf([&] { view->PageBreak(); }), 6);
}

// Yes keeps the old page length and reports no fit.
TEST_F(QuickViewReportTest, TooSmallAFontWarnsAndOnlyNoGoesOn) {
    SetViewSetting("FontFactor", "0.5");  // 7 points become 3.5
    auto view = MakeView();
    ASSERT_EQ(prompts_->texts().size(), 2u);
    EXPECT_EQ(prompts_->prompts()[1].buttons, host::PromptButtons::kYesNo);
    view->SetLinesPerPage(30);
    EXPECT_FALSE(view->SetReportWidth(120));
    EXPECT_EQ(view->LineasPagina(), 29);
    prompts_->QueueAnswer(PromptAnswer::kOk);
    prompts_->QueueAnswer(PromptAnswer::kNo);
    EXPECT_TRUE(view->SetReportWidth(120));
    EXPECT_EQ(view->LineasPagina(), 15120 / 70 - 3 - 1);
}

// Printing refits the font unless it was chosen; any line starting with "_" breaks the page.
TEST_F(QuickViewReportTest, PrintsTheShownTextWithTheMarginAndBreakLinesAsNewPages) {
    auto view = ShownReport();
    view->SetReportWidth(120);
    printer_->font_size = 20;
    view->SetLeftMargin(0);  // a margin of none is allowed
    view->SetLeftMargin(2);
    view->Add("_under", alignments::kLeft);
    view->PrintListBox();
    EXPECT_EQ(printer_->log, (Log{"line: ", "line:  one ", "line:   two ", "newpage",
                                  "line:  three ", "line:  ", "newpage", "enddoc"}));
    EXPECT_DOUBLE_EQ(printer_->font_size, 7.0);
    view->SetPrintFontSize(9);
    view->PrintListBox();
    EXPECT_DOUBLE_EQ(printer_->font_size, 9.0);
}

TEST_F(QuickViewReportTest, VerifoneGetsEveryLineAsCarriageReturnAndFortyColumns) {
    printer_->device_name = "VeriFone";
    auto view = ShownReport();
    view->SetLeftMargin(3);
    view->Add(std::string(45, 'x'), alignments::kLeft);
    view->PrintListBox();
    const auto padded = [](const std::string& line) {
        return "text:\r" + line + std::string(40 - line.size(), ' ');
    };
    EXPECT_EQ(printer_->log,
              (Log{"line: ", padded("one "), padded(" two "), padded("______"), padded("three "),
                   padded(""), "text:\r" + std::string(40, 'x'), "enddoc"}));
}

// A stop aborts at the next line; a printer error abandons the job and reaches the host, and
// a failing abort keeps the first error.
TEST_F(QuickViewReportTest, StopOrPrinterErrorAbandonsTheJob) {
    auto view = ShownReport();
    printer_->on_print_line = [&](const std::string& line) {
        if (line == "three ") view->StopPrinting();
    };
    view->PrintListBox();
    EXPECT_EQ(printer_->log,
              (Log{"line: ", "line:one ", "line: two ", "newpage", "line:three ", "killdoc"}));
    EXPECT_FALSE(view->printing());

    printer_->log.clear();
    printer_->on_print_line = nullptr;
    printer_->failing = {"NewPage"};
    EXPECT_EQ(ErrorNumberOf([&] { view->PrintListBox(); }), 482);
    EXPECT_FALSE(view->printing());
    EXPECT_EQ(printer_->log, (Log{"line: ", "line:one ", "line: two ", "killdoc"}));
    printer_->failing = {"EndDoc", "KillDoc"};
    EXPECT_EQ(ErrorNumberOf([&] { view->PrintListBox(); }), 482);
    EXPECT_FALSE(view->printing());
}

}  // namespace
}  // namespace corvid::preview::testing
