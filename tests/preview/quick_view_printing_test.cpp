// Printing the shown report text.
#include <gtest/gtest.h>

#include <algorithm>

#include "quick_view_fixture.h"
#include "support/vb_error_testing.h"

namespace corvid::preview::testing {
namespace {

using Log = std::vector<std::string>;

class QuickViewPrintingTest : public QuickViewTest {
  protected:
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

TEST_F(QuickViewPrintingTest, PrintsLinesWithTheMarginAndTurnsBreakLinesIntoNewPages) {
    auto view = ShownReport();
    view->SetLeftMargin(2);
    view->PrintListBox();
    EXPECT_EQ(printer_->log,
              (Log{"line: ", "line:  one ", "line:   two ", "newpage", "line:  three ", "enddoc"}));
    EXPECT_FALSE(view->printing());
}

TEST_F(QuickViewPrintingTest, LinesAddedAfterShowingPrintWithTheBlankLineBeforeThem) {
    auto view = ShownReport();
    view->Add("four", alignments::kLeft);
    view->Add("_under", alignments::kLeft);  // any line starting with "_" breaks the page
    view->PrintListBox();
    EXPECT_EQ(printer_->log, (Log{"line: ", "line:one ", "line: two ", "newpage", "line:three ",
                                  "line:", "line:four ", "newpage", "enddoc"}));
}

TEST_F(QuickViewPrintingTest, VerifoneGetsEveryLineAsCarriageReturnAndFortyColumns) {
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

TEST_F(QuickViewPrintingTest, RefitsTheFontUnlessItWasChosen) {
    auto view = ShownReport();
    view->SetReportWidth(120);
    printer_->font_size = 20;
    view->PrintListBox();
    EXPECT_DOUBLE_EQ(printer_->font_size, 7.0);

    view->SetPrintFontSize(9);
    view->PrintListBox();
    EXPECT_DOUBLE_EQ(printer_->font_size, 9.0);
}

TEST_F(QuickViewPrintingTest, ReportNotYetShownPrintsOnlyTheOpeningSpace) {
    auto view = MakeView();
    view->Add("hidden", alignments::kLeft);
    view->PrintListBox();
    EXPECT_EQ(printer_->log, (Log{"line: ", "enddoc"}));
}

TEST_F(QuickViewPrintingTest, StopRequestedWhilePrintingAbortsAtTheNextLine) {
    auto view = ShownReport();
    printer_->on_print_line = [&](const std::string& line) {
        if (line == "one ") view->StopPrinting();
    };
    view->PrintListBox();
    EXPECT_EQ(printer_->log, (Log{"line: ", "line:one ", "killdoc"}));
    EXPECT_FALSE(view->printing());
}

TEST_F(QuickViewPrintingTest, StopRequestedAtTheLastLineAbortsTheJob) {
    auto view = ShownReport();
    printer_->on_print_line = [&](const std::string& line) {
        if (line == "three ") view->StopPrinting();
    };
    view->PrintListBox();
    EXPECT_EQ(printer_->log.back(), "killdoc");
    EXPECT_EQ(std::count(printer_->log.begin(), printer_->log.end(), "enddoc"), 0);
}

TEST_F(QuickViewPrintingTest, PrinterErrorAbandonsTheJobAndReachesTheHost) {
    auto view = ShownReport();
    bool printing_while_printing = false;
    printer_->on_print_line = [&](const std::string&) {
        printing_while_printing = printing_while_printing || view->printing();
    };
    printer_->failing = {"NewPage"};
    try {
        view->PrintListBox();
        ADD_FAILURE() << "the printer error was swallowed";
    } catch (const automation::VbError& error) {
        EXPECT_EQ(error.number(), 482);
        EXPECT_EQ(error.source(), "lfQuickView::PrintListBox");
        EXPECT_EQ(error.description(), "Printer error");
    }
    EXPECT_TRUE(printing_while_printing);
    EXPECT_FALSE(view->printing());
    EXPECT_EQ(printer_->log, (Log{"line: ", "line:one ", "line: two ", "killdoc"}));
}

TEST_F(QuickViewPrintingTest, FailingAbortKeepsTheFirstError) {
    auto view = ShownReport();
    printer_->failing = {"EndDoc", "KillDoc"};
    EXPECT_EQ(test_support::ErrorNumberOf([&] { view->PrintListBox(); }), 482);
    EXPECT_FALSE(view->printing());
}

}  // namespace
}  // namespace corvid::preview::testing
