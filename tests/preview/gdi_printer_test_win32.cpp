// Reports printed through GDI on a Letter-sized test printer that records its pages, read
// back as the text drawn on each sheet.
#include <gtest/gtest.h>

#include <cmath>
#include <memory>
#include <string>
#include <vector>

#include "preview/gdi_printer_win32.h"
#include "quick_view_fixture.h"
#include "recording_print_surface_win32.h"
#include "support/vb_error_testing.h"

namespace corvid::preview::testing {
namespace {

using Texts = std::vector<std::wstring>;
using Surface = RecordingPrintSurface;

// The report must fit in 98 % of the printable width.
constexpr double kUsableWidth = 0.98 * Surface::kWidth;

Texts TextsOf(const Page& page) {
    Texts texts;
    for (const TextRun& run : page) texts.push_back(run.text);
    return texts;
}

int PixelsOf(double points) {
    return static_cast<int>(std::lround(points * Surface::kDotsPerInch / 72));
}

class GdiPrinterTest : public QuickViewTest {
  protected:
    std::unique_ptr<lfQuickView> MakeGdiView() { return std::make_unique<lfQuickView>(gdi_); }
    const std::vector<Page>& OnlyDocument() {
        EXPECT_EQ(record_->documents.size(), 1u);
        EXPECT_EQ(record_->aborted, 0);
        static const std::vector<Page> none;
        return record_->documents.empty() ? none : record_->documents.front();
    }
    // The printer's line height, in device pixels.
    int LineHeight() {
        return static_cast<int>(std::lround(gdi_->TextHeight("N") * Surface::kDotsPerInch / 1440));
    }

    std::shared_ptr<PrintRecord> record_ = std::make_shared<PrintRecord>();
    std::shared_ptr<GdiPrinter> gdi_ =
        std::make_shared<GdiPrinter>(std::make_unique<Surface>(record_));
};

TEST_F(GdiPrinterTest, SheetsSplitAtBreakLinesWithLinesInOrderAndTheMargin) {
    auto view = MakeGdiView();
    view->SetReportWidth(40);
    view->SetLinesPerPage(5);  // three report lines a page
    for (int i = 1; i <= 4; ++i) view->Add("L\xEDnea " + std::to_string(i), alignments::kLeft);
    view->PageBreak();
    view->PageBreak();  // two breaks in a row leave a blank sheet
    view->Add("L\xEDnea 5", alignments::kLeft);
    view->PageBreak();  // a break at the end leaves none
    view->LoadText();
    view->SetLeftMargin(2);
    view->PrintListBox();

    const auto& pages = OnlyDocument();
    ASSERT_EQ(pages.size(), 4u);
    EXPECT_EQ(TextsOf(pages[0]),
              (Texts{L" ", L"  L\u00EDnea 1 ", L"  L\u00EDnea 2 ", L"  L\u00EDnea 3 "}));
    EXPECT_EQ(TextsOf(pages[1]), (Texts{L"  L\u00EDnea 4 "}));
    EXPECT_TRUE(pages[2].empty());
    EXPECT_EQ(TextsOf(pages[3]), (Texts{L"  L\u00EDnea 5 "}));
    // Lines stack from the top left of each sheet, one line height apart, in the font that
    // 40 columns fit at without shrinking.
    const int height = LineHeight();
    EXPECT_GT(height, PixelsOf(14));
    for (const Page& page : pages) {
        for (std::size_t i = 0; i < page.size(); ++i) {
            EXPECT_EQ(page[i].x, 0);
            EXPECT_EQ(page[i].y, static_cast<int>(i) * height);
            EXPECT_EQ(page[i].font_height, -PixelsOf(14));
        }
    }
}

// The widest font the fitting may choose is the one at which the report's columns and six
// more still fit 98 % of the sheet; half a point more would not.
TEST_F(GdiPrinterTest, FittingShrinksTheFontUntilTheColumnsFitTheSheet) {
    auto view = MakeGdiView();  // fitted to 120 columns when made
    const double fitted = gdi_->FontSize();
    EXPECT_LT(fitted, 14.0);
    EXPECT_DOUBLE_EQ(std::fmod(14.0 - fitted, 0.5), 0.0);
    view->Add(std::string(126, 'n'), alignments::kLeft);
    view->LoadText();
    view->PrintListBox();
    const auto& pages = OnlyDocument();
    ASSERT_EQ(pages.size(), 1u);
    ASSERT_EQ(pages[0].size(), 2u);
    const TextRun& columns = pages[0][1];
    EXPECT_EQ(columns.font_height, -PixelsOf(fitted));
    EXPECT_LE(columns.Width(126), kUsableWidth);

    auto larger_record = std::make_shared<PrintRecord>();
    GdiPrinter larger(std::make_unique<Surface>(larger_record));
    larger.SetFontSize(fitted + 0.5);
    larger.PrintLine(std::string(126, 'n'));
    larger.EndDoc();
    ASSERT_EQ(larger_record->documents.size(), 1u);
    EXPECT_GT(larger_record->documents[0][0][0].Width(126), kUsableWidth);

    // A wider report shrinks further; a size chosen by the host is printed as chosen.
    EXPECT_TRUE(view->SetReportWidth(160));
    EXPECT_LT(gdi_->FontSize(), fitted);
    EXPECT_TRUE(prompts_->prompts().empty());
    view->SetPrintFontSize(9);
    EXPECT_FALSE(view->SetReportWidth(200));
    view->PrintListBox();
    ASSERT_EQ(record_->documents.size(), 2u);
    EXPECT_EQ(record_->documents[1][0][1].font_height, -PixelsOf(9));
}

TEST_F(GdiPrinterTest, FittedPagesFillTheSheetWithoutRunningOver) {
    auto view = MakeGdiView();
    const int lines = 2 * view->LineasPagina();
    for (int i = 0; i < lines; ++i) view->Add(std::to_string(i), alignments::kLeft);
    view->LoadText();
    view->PrintListBox();

    const auto& pages = OnlyDocument();
    ASSERT_EQ(pages.size(), static_cast<std::size_t>(view->Pagina()));
    ASSERT_GE(pages.size(), 2u);
    EXPECT_EQ(pages[1].size(), static_cast<std::size_t>(view->LineasPagina() - 1));
    for (const Page& page : pages) {
        EXPECT_LE(page.back().y + LineHeight(), Surface::kHeight);
    }
}

TEST_F(GdiPrinterTest, ReportWithoutPagingRunsOntoNewSheets) {
    auto view = MakeGdiView();
    view->SetLinesPerPage(lfQuickView::kNoPaging);
    Texts expected{L" "};
    for (int i = 0; i < 250; ++i) {
        view->Add(std::to_string(i), alignments::kLeft);
        expected.push_back(std::to_wstring(i) + L" ");
    }
    view->LoadText();
    view->PrintListBox();

    const auto& pages = OnlyDocument();
    ASSERT_GE(pages.size(), 3u);
    Texts printed;
    const int height = LineHeight();
    for (std::size_t p = 0; p < pages.size(); ++p) {
        const Page& page = pages[p];
        for (const TextRun& run : page) printed.push_back(run.text);
        EXPECT_EQ(page.front().y, 0);
        EXPECT_LE(page.back().y + height, Surface::kHeight);
        // Every sheet but the last is full: one more line would have run over.
        if (p + 1 < pages.size()) {
            EXPECT_GT(page.back().y + 2 * height, Surface::kHeight);
        }
    }
    EXPECT_EQ(printed, expected);
}

TEST_F(GdiPrinterTest, StopWhilePrintingAbortsTheJobAndTheNextPrintStartsAfresh) {
    auto view = MakeGdiView();
    view->SetLinesPerPage(4);  // two report lines a page
    for (int i = 1; i <= 6; ++i) view->Add(std::to_string(i), alignments::kLeft);
    view->LoadText();
    record_->on_page_end = [&](std::size_t page) {
        if (page == 1) view->StopPrinting();
    };
    view->PrintListBox();
    EXPECT_TRUE(record_->documents.empty());
    EXPECT_EQ(record_->aborted, 1);
    EXPECT_FALSE(view->printing());

    record_->on_page_end = nullptr;
    record_->aborted = 0;
    view->PrintListBox();
    const auto& pages = OnlyDocument();
    ASSERT_EQ(pages.size(), 3u);
    EXPECT_EQ(TextsOf(pages[2]), (Texts{L"5 ", L"6 "}));
}

TEST_F(GdiPrinterTest, VerifoneLinesStackAsFortyColumns) {
    auto verifone = std::make_shared<GdiPrinter>(std::make_unique<Surface>(record_, L"VeriFone"));
    lfQuickView view(verifone);
    view.SetReportWidth(10);
    view.SetLinesPerPage(lfQuickView::kNoPaging);
    view.Add("uno", alignments::kLeft);
    view.PageBreak();
    view.Add(std::string(45, 'x'), alignments::kLeft);
    view.LoadText();
    view.PrintListBox();

    const auto& pages = OnlyDocument();
    ASSERT_EQ(pages.size(), 1u);
    const auto padded = [](const std::wstring& text) {
        return text + std::wstring(40 - text.size(), L' ');
    };
    EXPECT_EQ(TextsOf(pages[0]), (Texts{L" ", padded(L"uno "), padded(std::wstring(12, L'_')),
                                        std::wstring(40, L'x')}));
    const int height =
        static_cast<int>(std::lround(verifone->TextHeight("N") * Surface::kDotsPerInch / 1440));
    for (std::size_t i = 0; i < pages[0].size(); ++i) {
        EXPECT_EQ(pages[0][i].x, 0);
        EXPECT_EQ(pages[0][i].y, static_cast<int>(i) * height);
    }
}

TEST_F(GdiPrinterTest, DeviceRefusingTheJobRaisesPrinterErrorAndPrintsNothing) {
    auto view = MakeGdiView();
    view->Add("nada", alignments::kLeft);
    view->LoadText();
    record_->refuse_jobs = true;
    EXPECT_EQ(test_support::ErrorNumberOf([&] { view->PrintListBox(); }), 482);
    EXPECT_FALSE(view->printing());
    EXPECT_TRUE(record_->documents.empty());
    EXPECT_TRUE(record_->pending.empty());
}

}  // namespace
}  // namespace corvid::preview::testing
