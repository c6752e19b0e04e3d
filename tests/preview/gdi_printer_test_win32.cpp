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
    // A shown report on the test printer named `device`, holding `lines` ("_" a page break),
    // with the page length fitted when `lines_per_page` is 0.
    std::unique_ptr<lfQuickView> Report(std::int16_t width, std::int16_t lines_per_page,
                                        const std::vector<std::string>& lines,
                                        const std::wstring& device = L"Test Letter") {
        gdi_ = std::make_shared<GdiPrinter>(std::make_unique<Surface>(record_, device));
        auto view = std::make_unique<lfQuickView>(gdi_);
        view->SetReportWidth(width);
        if (lines_per_page != 0) view->SetLinesPerPage(lines_per_page);
        for (const std::string& line : lines) {
            line == "_" ? view->PageBreak() : view->Add(line, alignments::kLeft);
        }
        view->LoadText();
        return view;
    }
    // The only job printed, checking that every sheet's lines stack from its top left, one
    // line height apart, inside the sheet.
    const std::vector<Page>& OnlyDocument() {
        EXPECT_EQ(record_->documents.size(), 1u);
        static const std::vector<Page> none;
        const auto& pages = record_->documents.empty() ? none : record_->documents.front();
        const int line_height =
            static_cast<int>(std::lround(gdi_->TextHeight("N") * Surface::kDotsPerInch / 1440));
        for (const Page& page : pages) {
            for (std::size_t i = 0; i < page.size(); ++i) {
                EXPECT_EQ(page[i].x, 0);
                EXPECT_EQ(page[i].y, static_cast<int>(i) * line_height);
                EXPECT_LE(page[i].y + line_height, Surface::kHeight);
            }
        }
        return pages;
    }

    std::shared_ptr<PrintRecord> record_ = std::make_shared<PrintRecord>();
    std::shared_ptr<GdiPrinter> gdi_;
};

// Two breaks in a row leave a blank sheet; a break at the end leaves none. 40 columns fit
// without shrinking the 14-point font.
TEST_F(GdiPrinterTest, SheetsSplitAtBreakLines) {
    Report(40, 5, {"L\xEDnea 1", "2", "3", "4", "_", "_", "5", "_"})->PrintListBox();
    const auto& pages = OnlyDocument();
    ASSERT_EQ(pages.size(), 4u);
    EXPECT_EQ(TextsOf(pages[0]), (Texts{L" ", L"L\u00EDnea 1 ", L"2 ", L"3 "}));
    EXPECT_EQ(TextsOf(pages[1]), (Texts{L"4 "}));
    EXPECT_TRUE(pages[2].empty());
    EXPECT_EQ(TextsOf(pages[3]), (Texts{L"5 "}));
    EXPECT_EQ(pages[0][1].font_height, -PixelsOf(14));
}

// The font is the widest at which the report's columns and six more fit 98 % of the sheet;
// half a point more would not.
TEST_F(GdiPrinterTest, FittingShrinksTheFontUntilTheColumnsFitTheSheet) {
    const std::string columns(126, 'n');
    Report(120, 60, {columns})->PrintListBox();
    const double fitted = gdi_->FontSize();
    const auto width_of_columns = [&](const TextRun& run) {
        return static_cast<double>(run.width) * 126 / static_cast<double>(run.text.size());
    };
    const TextRun& printed = OnlyDocument().at(0).at(1);
    EXPECT_EQ(printed.font_height, -PixelsOf(fitted));
    EXPECT_LE(width_of_columns(printed), 0.98 * Surface::kWidth);

    GdiPrinter larger(std::make_unique<Surface>(record_));
    larger.SetFontSize(fitted + 0.5);
    larger.PrintLine(columns);
    larger.EndDoc();
    EXPECT_GT(width_of_columns(record_->documents.at(1).at(0).at(0)), 0.98 * Surface::kWidth);
}

// A report without paging runs onto new sheets.
TEST_F(GdiPrinterTest, LinesNeverRunOffTheSheet) {
    std::vector<std::string> lines;
    for (int i = 0; i < 250; ++i) lines.push_back(std::to_string(i));
    Report(120, lfQuickView::kNoPaging, lines)->PrintListBox();
    const auto& pages = OnlyDocument();
    ASSERT_GE(pages.size(), 3u);
    EXPECT_EQ(pages.back().back().text, L"249 ");
}

// A stop while printing aborts the job; a device refusing the job is a printer error.
TEST_F(GdiPrinterTest, AStoppedOrRefusedJobPrintsNothing) {
    auto view = Report(40, 4, {"1", "2", "3", "4", "5", "6"});  // two report lines a page
    record_->on_page_end = [&](std::size_t page) {
        if (page == 1) view->StopPrinting();
    };
    view->PrintListBox();
    EXPECT_EQ(record_->aborted, 1);
    record_->refuse_jobs = true;
    EXPECT_EQ(test_support::ErrorNumberOf([&] { view->PrintListBox(); }), 482);
    EXPECT_FALSE(view->printing());
    EXPECT_TRUE(record_->documents.empty());
}

TEST_F(GdiPrinterTest, VerifoneLinesStackAsFortyColumns) {
    Report(10, lfQuickView::kNoPaging, {"uno", "_", std::string(45, 'x')}, L"VeriFone")
        ->PrintListBox();
    const auto padded = [](const std::wstring& text) {
        return text + std::wstring(40 - text.size(), L' ');
    };
    EXPECT_EQ(
        TextsOf(OnlyDocument().at(0)),
        (Texts{L" ", padded(L"uno "), padded(std::wstring(12, L'_')), std::wstring(40, L'x')}));
}

}  // namespace
}  // namespace corvid::preview::testing
