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
            if (line == "_") {
                view->PageBreak();
            } else {
                view->Add(line, alignments::kLeft);
            }
        }
        view->LoadText();
        return view;
    }
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
    // Every sheet's lines stack from its top left, one line height apart, inside the sheet.
    void ExpectLinesStack(const std::vector<Page>& pages) {
        for (const Page& page : pages) {
            for (std::size_t i = 0; i < page.size(); ++i) {
                EXPECT_EQ(page[i].x, 0);
                EXPECT_EQ(page[i].y, static_cast<int>(i) * LineHeight());
            }
            if (!page.empty()) {
                EXPECT_LE(page.back().y + LineHeight(), Surface::kHeight);
            }
        }
    }

    std::shared_ptr<PrintRecord> record_ = std::make_shared<PrintRecord>();
    std::shared_ptr<GdiPrinter> gdi_;
};

// Two breaks in a row leave a blank sheet; a break at the end leaves none. 40 columns fit
// without shrinking the 14-point font.
TEST_F(GdiPrinterTest, SheetsSplitAtBreakLines) {
    auto view = Report(40, 5, {"L\xEDnea 1", "2", "3", "4", "_", "_", "5", "_"});
    view->SetLeftMargin(2);
    view->PrintListBox();
    const auto& pages = OnlyDocument();
    ASSERT_EQ(pages.size(), 4u);
    EXPECT_EQ(TextsOf(pages[0]), (Texts{L" ", L"  L\u00EDnea 1 ", L"  2 ", L"  3 "}));
    EXPECT_EQ(TextsOf(pages[1]), (Texts{L"  4 "}));
    EXPECT_TRUE(pages[2].empty());
    EXPECT_EQ(TextsOf(pages[3]), (Texts{L"  5 "}));
    EXPECT_EQ(pages[0][1].font_height, -PixelsOf(14));
    ExpectLinesStack(pages);
}

// The font is the widest at which the report's columns and six more fit 98 % of the sheet;
// half a point more would not. A size chosen by the host is printed as chosen.
TEST_F(GdiPrinterTest, FittingShrinksTheFontUntilTheColumnsFitTheSheet) {
    auto view = Report(120, 60, {std::string(126, 'n')});
    const double fitted = gdi_->FontSize();
    EXPECT_LT(fitted, 14.0);
    view->PrintListBox();
    const TextRun& columns = OnlyDocument().at(0).at(1);
    EXPECT_EQ(columns.font_height, -PixelsOf(fitted));
    EXPECT_LE(columns.Width(126), kUsableWidth);

    auto larger_record = std::make_shared<PrintRecord>();
    GdiPrinter larger(std::make_unique<Surface>(larger_record));
    larger.SetFontSize(fitted + 0.5);
    larger.PrintLine(std::string(126, 'n'));
    larger.EndDoc();
    EXPECT_GT(larger_record->documents.at(0).at(0).at(0).Width(126), kUsableWidth);

    view->SetPrintFontSize(9);
    view->PrintListBox();
    EXPECT_EQ(record_->documents.at(1).at(0).at(1).font_height, -PixelsOf(9));
}

// Pages of the fitted length fill a sheet each; a report without paging runs onto new
// sheets, every one but the last full.
TEST_F(GdiPrinterTest, LinesNeverRunOffTheSheet) {
    std::vector<std::string> lines;
    for (int i = 0; i < 250; ++i) lines.push_back(std::to_string(i));
    auto paged = Report(120, 0, lines);
    paged->PrintListBox();
    ASSERT_GE(paged->Pagina(), 2);
    EXPECT_EQ(OnlyDocument().size(), static_cast<std::size_t>(paged->Pagina()));
    ExpectLinesStack(OnlyDocument());

    record_->documents.clear();
    auto unpaged = Report(120, lfQuickView::kNoPaging, lines);
    unpaged->PrintListBox();
    const auto& pages = OnlyDocument();
    ASSERT_GE(pages.size(), 3u);
    Texts printed;
    for (const Page& page : pages) {
        for (const TextRun& run : page) printed.push_back(run.text);
        if (&page != &pages.back()) {
            EXPECT_GT(page.back().y + 2 * LineHeight(), Surface::kHeight);  // one more runs over
        }
    }
    EXPECT_EQ(printed.size(), 251u);
    EXPECT_EQ(printed.back(), L"249 ");
    ExpectLinesStack(pages);
}

TEST_F(GdiPrinterTest, StopWhilePrintingAbortsTheJobAndTheNextPrintStartsAfresh) {
    auto view = Report(40, 4, {"1", "2", "3", "4", "5", "6"});  // two report lines a page
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
    ASSERT_EQ(OnlyDocument().size(), 3u);
    EXPECT_EQ(TextsOf(OnlyDocument()[2]), (Texts{L"5 ", L"6 "}));
}

TEST_F(GdiPrinterTest, VerifoneLinesStackAsFortyColumns) {
    auto view = Report(10, lfQuickView::kNoPaging, {"uno", "_", std::string(45, 'x')}, L"VeriFone");
    view->PrintListBox();
    const auto& pages = OnlyDocument();
    ASSERT_EQ(pages.size(), 1u);
    const auto padded = [](const std::wstring& text) {
        return text + std::wstring(40 - text.size(), L' ');
    };
    EXPECT_EQ(TextsOf(pages[0]), (Texts{L" ", padded(L"uno "), padded(std::wstring(12, L'_')),
                                        std::wstring(40, L'x')}));
    ExpectLinesStack(pages);
}

TEST_F(GdiPrinterTest, DeviceRefusingTheJobRaisesPrinterErrorAndPrintsNothing) {
    auto view = Report(40, 60, {"nada"});
    record_->refuse_jobs = true;
    EXPECT_EQ(test_support::ErrorNumberOf([&] { view->PrintListBox(); }), 482);
    EXPECT_FALSE(view->printing());
    EXPECT_TRUE(record_->documents.empty());
    EXPECT_TRUE(record_->pending.empty());
}

}  // namespace
}  // namespace corvid::preview::testing
