// A machine without a printer: the report works and printing tells the host there is none.
#include <gtest/gtest.h>

#include "quick_view_fixture.h"

namespace corvid::preview::testing {
namespace {

using NoPrinterTest = QuickViewTest;

TEST_F(NoPrinterTest, ReportWorksAndPrintingSaysNoPrinterIsInstalled) {
    // The platform's printer, as a report made by the host gets it.
    auto view = std::make_unique<lfQuickView>();
    if (!view->printer().DeviceName().empty()) {
        GTEST_SKIP() << "this machine has a default printer: " << view->printer().DeviceName();
    }
    EXPECT_TRUE(view->SetReportWidth(120));
    EXPECT_GT(view->LineasPagina(), 40);
    EXPECT_LT(view->LineasPagina(), 200);
    EXPECT_NO_THROW(view->SetPrintFontSize(10));
    EXPECT_TRUE(prompts_->prompts().empty());
    for (int i = 0; i < 100; ++i) view->Add("line", alignments::kLeft);
    EXPECT_EQ(view->Pagina(), 2);
    view->LoadText();

    try {
        view->PrintListBox();
        ADD_FAILURE() << "printing without a printer raised nothing";
    } catch (const automation::VbError& error) {
        EXPECT_EQ(error.number(), 482);
        EXPECT_EQ(error.source(), "lfQuickView::PrintListBox");
        EXPECT_EQ(error.description(), "Printer error: no printer is installed");
    }
    EXPECT_FALSE(view->printing());
}

}  // namespace
}  // namespace corvid::preview::testing
