// A machine without a printer: the report works and printing tells the host there is none.
#include <gtest/gtest.h>

#include "quick_view_fixture.h"
#include "support/vb_error_testing.h"

namespace corvid::preview::testing {
namespace {

using NoPrinterTest = QuickViewTest;

TEST_F(NoPrinterTest, ReportWorksAndPrintingSaysNoPrinterIsInstalled) {
    auto view = std::make_unique<lfQuickView>();  // the platform's printer, as a host gets it
    if (!view->printer().DeviceName().empty()) {
        GTEST_SKIP() << "this machine has a default printer: " << view->printer().DeviceName();
    }
    EXPECT_TRUE(view->SetReportWidth(120));
    EXPECT_GT(view->LineasPagina(), 40);
    EXPECT_TRUE(prompts_->prompts().empty());
    view->LoadText();
    EXPECT_EQ(test_support::ErrorNumberOf([&] { view->PrintListBox(); }), 482);
    EXPECT_FALSE(view->printing());
}

}  // namespace
}  // namespace corvid::preview::testing
