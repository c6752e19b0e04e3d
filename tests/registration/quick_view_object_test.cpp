// lfQuickView's ReportClicked as hosts receive it: through sinks advised on its connection
// point (VB's WithEvents, a script host's ConnectObject) and through the SetNotify target,
// called late-bound. Clicks are made through the object's private click interface, as the
// window makes them. A sink sets cancel as a script's handler does: through the reference.
#include <windows.h>
// (first: the OLE headers below use its types)
#include <gtest/gtest.h>
#include <ocidl.h>
#include <oleauto.h>
#include <olectl.h>

#include <string>
#include <vector>

#include "registration/com_server.h"
#include "registration/report_clicks.h"

namespace corvid::registration {
namespace {

// The event interface __lfQuickView.
constexpr IID kEvents = {
    0x17e1d203, 0x0031, 0x48df, {0x82, 0xc6, 0x7c, 0x4d, 0x75, 0x76, 0x97, 0x33}};
using Calls = std::vector<std::wstring>;

class QuickViewObjectTest : public ::testing::Test {
  protected:
    void SetUp() override {
        view_ = server_.Create(kLfQuickView);
        ASSERT_NE(view_, nullptr);
        IConnectionPointContainer* container = nullptr;
        ASSERT_EQ(view_->QueryInterface(IID_IConnectionPointContainer,
                                        reinterpret_cast<void**>(&container)),
                  S_OK);
        EXPECT_EQ(container->FindConnectionPoint(kEvents, &point_), S_OK);
        container->Release();
        ASSERT_NE(point_, nullptr);
    }
    void TearDown() override { ReleaseView(); }

    void ReleaseView() {
        if (point_ != nullptr) point_->Release();
        if (view_ != nullptr) view_->Release();
        point_ = nullptr;
        view_ = nullptr;
    }

    DWORD Advise(IUnknown* sink) {
        DWORD cookie = 0;
        EXPECT_EQ(point_->Advise(sink, &cookie), S_OK);
        return cookie;
    }

    void SetNotify(IDispatch* target) {
        ASSERT_EQ(CallByName(view_, "SetNotify", DISPATCH_METHOD, {Object(target)}, nullptr), S_OK);
    }

    // A click on the report, as the window makes it.
    HRESULT Click(const wchar_t* line, LONG column) {
        IReportClicks* clicks = nullptr;
        if (FAILED(view_->QueryInterface(IReportClicks::kIid, reinterpret_cast<void**>(&clicks)))) {
            return E_NOINTERFACE;
        }
        BSTR text = SysAllocString(line);
        const HRESULT hr = clicks->ClickReport(text, column);
        SysFreeString(text);
        clicks->Release();
        return hr;
    }

    ComServer server_;
    // The host's objects outlive the view, which may hold them until TearDown.
    HostObject sink_{kEvents};
    HostObject second_{kEvents};
    HostObject target_;
    IDispatch* view_ = nullptr;
    IConnectionPoint* point_ = nullptr;
};

// Every sink hears a click, whatever another sink does; the target only when no sink
// cancelled it. Unadvising, replacing the target and releasing the view let go of them.
TEST_F(QuickViewObjectTest, SinksGetLineColumnAndCancelThenTheTargetGetsLineAndColumn) {
    const DWORD cookie = Advise(&sink_);
    Advise(&second_);
    SetNotify(&target_);
    target_.fail = true;  // the target's errors are ignored
    ASSERT_EQ(Click(L"Total a pagar \u00e1 ", 5), S_OK);
    // The sinks get a cancel by reference (VT_BYREF | VT_VARIANT); the target, found by name,
    // only line and column.
    EXPECT_EQ(sink_.calls, Calls{L"1|Total a pagar \u00e1 |5|16396"});
    EXPECT_EQ(target_.calls, Calls{L"7|Total a pagar \u00e1 |5|0"});

    sink_.set_cancel = true;
    second_.fail = true;
    EXPECT_EQ(Click(L"line", 1), S_OK);
    EXPECT_EQ(second_.calls.size(), 2u);
    EXPECT_EQ(target_.calls.size(), 1u);

    EXPECT_EQ(point_->Unadvise(cookie), S_OK);
    EXPECT_EQ(sink_.references(), 1u);
    EXPECT_EQ(Click(L"line", 2), S_OK);
    EXPECT_EQ(sink_.calls.size(), 2u);
    EXPECT_EQ(target_.calls.size(), 2u);

    EXPECT_EQ(target_.references(), 2u);
    SetNotify(&second_);
    EXPECT_EQ(target_.references(), 1u);
    ReleaseView();
    EXPECT_EQ(second_.references(), 1u);
    EXPECT_EQ(server_.CanUnloadNow(), S_OK);
}

// What WScript.ConnectObject and VB's WithEvents read to find the events.
TEST_F(QuickViewObjectTest, ClassInfoNamesTheEventInterfaceAsTheDefaultSource) {
    IProvideClassInfo2* provider = nullptr;
    ASSERT_EQ(view_->QueryInterface(IID_IProvideClassInfo2, reinterpret_cast<void**>(&provider)),
              S_OK);
    GUID events{};
    EXPECT_EQ(provider->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, &events), S_OK);
    EXPECT_TRUE(IsEqualIID(events, kEvents));
    provider->Release();
}

}  // namespace
}  // namespace corvid::registration
