// Building a report: alignment, paging, page breaks and the text as shown.
#include <gtest/gtest.h>

#include <string>

#include "automation/vb_error.h"
#include "quick_view_fixture.h"

namespace corvid::preview::testing {
namespace {

using automation::VbError;

std::string Underscores(int count) { return std::string(static_cast<std::size_t>(count), '_'); }

class QuickViewReportTest : public QuickViewTest {
  protected:
    // A report `width` columns wide whose printer font is fixed, so no fitting happens.
    std::unique_ptr<lfQuickView> MakeReport(std::int16_t width) {
        auto view = MakeView();
        view->SetPrintFontSize(10);
        view->SetReportWidth(width);
        return view;
    }
};

TEST_F(QuickViewReportTest, BreaksThePageBeforeTheLineThatWouldReachTheLastLine) {
    auto view = MakeReport(6);
    view->SetLinesPerPage(10);
    EXPECT_EQ(view->LineasPagina(), 9);
    std::string expected;
    for (int i = 1; i <= 8; ++i) {
        view->Add("l" + std::to_string(i), alignments::kLeft);
        expected += "l" + std::to_string(i) + " \r\n";
    }
    EXPECT_EQ(view->Linea(), 9);
    EXPECT_EQ(view->Pagina(), 1);

    view->Add("l9", alignments::kLeft);
    EXPECT_EQ(view->Pagina(), 2);
    EXPECT_EQ(view->Linea(), 2);
    expected += Underscores(8) + "\r\nl9 \r\n";
    EXPECT_EQ(Shown(*view), expected);
}

TEST_F(QuickViewReportTest, NoPagingKeepsTheLineCounterStill) {
    auto view = MakeReport(6);
    view->SetLinesPerPage(lfQuickView::kNoPaging);
    for (int i = 0; i < 200; ++i) view->Add("x", alignments::kLeft);
    EXPECT_EQ(view->Linea(), 1);
    EXPECT_EQ(view->Pagina(), 1);
    EXPECT_EQ(Shown(*view).find('_'), std::string::npos);
}

TEST_F(QuickViewReportTest, ExplicitPageBreakCountsFromTheGivenPage) {
    auto view = MakeReport(3);
    view->SetLinesPerPage(50);
    view->SetNumeroPagina(7);
    view->Add("a", alignments::kLeft);
    view->PageBreak();
    EXPECT_EQ(view->Pagina(), 8);
    EXPECT_EQ(view->Linea(), 1);
    EXPECT_EQ(Shown(*view), "a \r\n" + Underscores(5) + "\r\n");
}

TEST_F(QuickViewReportTest, CentresRoundingHalfToEvenAndCutsLongTexts) {
    auto eight = MakeReport(8);
    eight->Add("abc", alignments::kCentre);         // 2.5 spaces -> 2
    eight->Add("abcdefghij", alignments::kCentre);  // cut to the width
    EXPECT_EQ(Shown(*eight), "  abc \r\nabcdefgh \r\n");

    auto ten = MakeReport(10);
    ten->Add("abc", alignments::kCentre);  // 3.5 spaces -> 4
    EXPECT_EQ(Shown(*ten), "    abc \r\n");
}

TEST_F(QuickViewReportTest, RightAlignsAndRefusesTextsWiderThanTheReport) {
    auto view = MakeReport(8);
    view->Add("abc", alignments::kRight);
    view->Add("12345678", alignments::kRight);
    view->Add("ignored", 7);  // an unknown alignment gives an empty line
    EXPECT_EQ(Shown(*view), "     abc \r\n12345678 \r\n \r\n");

    try {
        view->Add("123456789", alignments::kRight);
        FAIL() << "no error raised";
    } catch (const VbError& error) {
        EXPECT_EQ(error.number(), 5);
    }
}

TEST_F(QuickViewReportTest, LinesAddedAfterShowingGoIntoTheTextBoxBreakFirst) {
    auto view = MakeReport(8);
    view->Add("a", alignments::kLeft);
    view->Add("b", alignments::kLeft);
    view->LoadText();
    EXPECT_TRUE(view->loaded());
    EXPECT_EQ(view->textBox().sel_start(), 1);

    view->Add("c", alignments::kLeft);
    EXPECT_EQ(view->textBox().text(), "a \r\nb \r\n\r\nc ");
    EXPECT_EQ(view->textBox().sel_start(), 12);  // after the new line

    // Showing again keeps the text and puts the caret back near the top.
    view->LoadText();
    EXPECT_EQ(view->textBox().text(), "a \r\nb \r\n\r\nc ");
    EXPECT_EQ(view->textBox().sel_start(), 1);
}

TEST_F(QuickViewReportTest, CountersOverflowLikeVbIntegers) {
    auto view = MakeReport(8);
    view->SetNumeroPagina(32767);
    EXPECT_THROW(view->PageBreak(), VbError);

    auto wide = MakeReport(32766);  // the break line would be 32768 wide
    EXPECT_THROW(wide->PageBreak(), VbError);

    view->SetLinesPerPage(-32768);
    EXPECT_THROW(view->LineasPagina(), VbError);
}

TEST_F(QuickViewReportTest, NegativeLeftMarginIsRefusedWithTheWindowsOwnError) {
    auto view = MakeView();
    view->SetLeftMargin(4);
    try {
        view->SetLeftMargin(-1);
        FAIL() << "no error raised";
    } catch (const VbError& error) {
        EXPECT_EQ(static_cast<std::uint32_t>(error.number()), 0x80040005u);
        EXPECT_EQ(error.source(), "lfQuickView::SetLeftMargin");
        EXPECT_EQ(error.description(), "Argumento inv\xE1lido");
    }
    EXPECT_EQ(view->LeftMargin(), 4);
}

class RecordingWindow : public QuickViewWindow {
  public:
    void Show(lfQuickView& view, bool) override {
        view.LoadText();
        shown_text = view.textBox().text();
    }
    std::string shown_text;
    void Hide() override {}
};

TEST_F(QuickViewReportTest, ShowModalUsesTheWindowFromTheFactoryOrJustLoadsTheText) {
    auto bare = MakeReport(8);
    bare->Add("x", alignments::kLeft);
    bare->ShowModal();
    EXPECT_TRUE(bare->loaded());
    EXPECT_EQ(bare->textBox().text(), "x \r\n");

    auto window = std::make_shared<RecordingWindow>();
    auto previous = ReplaceQuickViewWindowFactory([window] { return window; });
    auto view = MakeReport(8);
    ReplaceQuickViewWindowFactory(previous);
    view->Add("y", alignments::kLeft);
    view->ShowModal();
    EXPECT_EQ(window->shown_text, "y \r\n");
}

}  // namespace
}  // namespace corvid::preview::testing
