// lfQuickView's ReportClicked as hosts receive it: through sinks advised on its connection
// point (VB's WithEvents, a script host's ConnectObject) and through the SetNotify target,
// called late-bound. Clicks are made through the object's private click interface, as the
// window makes them.
#include <windows.h>
// (first: the OLE headers below use its types)
#include <activscp.h>
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

constexpr CLSID kLfQuickViewClass = {
    0xb9f4fdfd, 0x3e73, 0x4ec8, {0xbb, 0x86, 0x5f, 0x05, 0xe5, 0xe5, 0x1c, 0x18}};
// The event interface __lfQuickView.
constexpr IID kEvents = {
    0x17e1d203, 0x0031, 0x48df, {0x82, 0xc6, 0x7c, 0x4d, 0x75, 0x76, 0x97, 0x33}};
using Calls = std::vector<std::wstring>;
constexpr CLSID kVBScript = {
    0xb54f3741, 0x5b07, 0x11cf, {0xa4, 0xb0, 0x00, 0xaa, 0x00, 0x4a, 0x55, 0xe8}};

// A script sink as a script host makes one: each event goes to the script's procedure
// qv_<event>, with the arguments as they came.
class ScriptSink : public HostObject {
  public:
    explicit ScriptSink(IDispatch* script) : script_(script) {}
    STDMETHODIMP Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS* params, VARIANT* result,
                        EXCEPINFO* excepinfo, UINT* arg_error) override {
        wchar_t name[] = L"qv_ReportClicked";
        LPOLESTR names[] = {name};
        DISPID procedure = DISPID_UNKNOWN;
        const HRESULT hr = script_->GetIDsOfNames(IID_NULL, names, 1, 0, &procedure);
        if (FAILED(hr)) return hr;
        return script_->Invoke(procedure, IID_NULL, 0, DISPATCH_METHOD, params, result, excepinfo,
                               arg_error);
    }

  private:
    IDispatch* script_;
};

// Just enough of a script host to run the VBScript engine.
class ScriptSite : public IActiveScriptSite {
  public:
    STDMETHODIMP QueryInterface(REFIID iid, void** object) override {
        *object = nullptr;
        if (iid != IID_IUnknown && iid != IID_IActiveScriptSite) return E_NOINTERFACE;
        *object = this;
        return S_OK;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return 2; }
    STDMETHODIMP_(ULONG) Release() override { return 1; }
    STDMETHODIMP GetLCID(LCID*) override { return E_NOTIMPL; }
    STDMETHODIMP GetItemInfo(LPCOLESTR, DWORD, IUnknown**, ITypeInfo**) override {
        return TYPE_E_ELEMENTNOTFOUND;
    }
    STDMETHODIMP GetDocVersionString(BSTR*) override { return E_NOTIMPL; }
    STDMETHODIMP OnScriptTerminate(const VARIANT*, const EXCEPINFO*) override { return S_OK; }
    STDMETHODIMP OnStateChange(SCRIPTSTATE) override { return S_OK; }
    STDMETHODIMP OnScriptError(IActiveScriptError*) override {
        ++errors;
        return S_OK;
    }
    STDMETHODIMP OnEnterScript() override { return S_OK; }
    STDMETHODIMP OnLeaveScript() override { return S_OK; }

    int errors = 0;
};

class QuickViewObjectTest : public ::testing::Test {
  protected:
    void SetUp() override {
        view_ = server_.Create(kLfQuickView);
        ASSERT_NE(view_, nullptr);
        ASSERT_EQ(view_->QueryInterface(IID_IConnectionPointContainer,
                                        reinterpret_cast<void**>(&container_)),
                  S_OK);
        ASSERT_EQ(container_->FindConnectionPoint(kEvents, &point_), S_OK);
    }
    void TearDown() override { ReleaseView(); }

    void ReleaseView() {
        for (IUnknown* held : std::initializer_list<IUnknown*>{point_, container_, view_}) {
            if (held != nullptr) held->Release();
        }
        point_ = nullptr;
        container_ = nullptr;
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

    HRESULT Click(const wchar_t* line, LONG column) {
        IReportClicks* clicks = nullptr;
        EXPECT_EQ(view_->QueryInterface(IReportClicks::kIid, reinterpret_cast<void**>(&clicks)),
                  S_OK);
        if (clicks == nullptr) return E_NOINTERFACE;
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
    IConnectionPointContainer* container_ = nullptr;
    IConnectionPoint* point_ = nullptr;
};

// Every sink hears a click, whatever another sink does; the target only when no sink
// cancelled it. Replacing the target and releasing the view let go of them and the server.
TEST_F(QuickViewObjectTest, SinksGetLineColumnAndCancelThenTheTargetGetsLineAndColumn) {
    Advise(&sink_);
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

    // A target is held until it is replaced; the sinks and the last target until the view
    // goes.
    EXPECT_EQ(target_.references(), 2u);
    SetNotify(&second_);
    EXPECT_EQ(target_.references(), 1u);
    ReleaseView();
    EXPECT_EQ(sink_.references(), 1u);
    EXPECT_EQ(second_.references(), 1u);
    EXPECT_EQ(server_.CanUnloadNow(), S_OK);
}

TEST_F(QuickViewObjectTest, UnadvisedSinksAreReleasedAndHearNothingMore) {
    HostObject second;  // a plain IDispatch sink is accepted too
    const DWORD cookie = Advise(&sink_);
    Advise(&second);
    EXPECT_EQ(sink_.references(), 2u);

    IEnumConnections* connections = nullptr;
    ASSERT_EQ(point_->EnumConnections(&connections), S_OK);
    CONNECTDATA listed[3] = {};
    ULONG fetched = 0;
    EXPECT_EQ(connections->Next(3, listed, &fetched), S_FALSE);
    ASSERT_EQ(fetched, 2u);
    EXPECT_EQ(listed[0].dwCookie, cookie);
    for (ULONG i = 0; i < fetched; ++i) listed[i].pUnk->Release();
    connections->Release();

    EXPECT_EQ(point_->Unadvise(cookie), S_OK);
    EXPECT_EQ(point_->Unadvise(cookie), CONNECT_E_NOCONNECTION);
    EXPECT_EQ(sink_.references(), 1u);
    Click(L"line", 1);
    EXPECT_TRUE(sink_.calls.empty());
    EXPECT_EQ(second.calls.size(), 1u);

    IConnectionPoint* other = nullptr;
    EXPECT_EQ(container_->FindConnectionPoint(IID_IDispatch, &other), CONNECT_E_NOCONNECTION);
    ReleaseView();  // before `second` goes
}

// What WScript.ConnectObject and VB's WithEvents read to find the events: the event
// interface and the class, whose source interfaces the type library lists.
TEST_F(QuickViewObjectTest, ClassInfoNamesTheEventInterfaceAsTheDefaultSource) {
    IProvideClassInfo2* provider = nullptr;
    ASSERT_EQ(view_->QueryInterface(IID_IProvideClassInfo2, reinterpret_cast<void**>(&provider)),
              S_OK);
    GUID events{};
    EXPECT_EQ(provider->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, &events), S_OK);
    EXPECT_TRUE(IsEqualIID(events, kEvents));
    ITypeInfo* coclass = nullptr;
    ASSERT_EQ(provider->GetClassInfo(&coclass), S_OK);
    provider->Release();
    TYPEATTR* attributes = nullptr;
    ASSERT_EQ(coclass->GetTypeAttr(&attributes), S_OK);
    EXPECT_TRUE(IsEqualCLSID(attributes->guid, kLfQuickViewClass));
    coclass->ReleaseTypeAttr(attributes);
    coclass->Release();
}

TEST_F(QuickViewObjectTest, AVBScriptHandlerSetsCancelThroughTheReference) {
    IActiveScript* engine = nullptr;
    ASSERT_EQ(CoCreateInstance(kVBScript, nullptr, CLSCTX_INPROC_SERVER, IID_IActiveScript,
                               reinterpret_cast<void**>(&engine)),
              S_OK);
    // The 32-bit or 64-bit form of the interface, as the build is.
    IActiveScriptParse* parse = nullptr;
    ASSERT_EQ(
        engine->QueryInterface(__uuidof(IActiveScriptParse), reinterpret_cast<void**>(&parse)),
        S_OK);
    ScriptSite site;
    ASSERT_EQ(engine->SetScriptSite(&site), S_OK);
    ASSERT_EQ(parse->InitNew(), S_OK);
    ASSERT_EQ(parse->ParseScriptText(L"Dim got\n"
                                     L"Sub qv_ReportClicked(line, column, cancel)\n"
                                     L"    got = line & \"|\" & column\n"
                                     L"    cancel = True\n"
                                     L"End Sub\n",
                                     nullptr, nullptr, nullptr, 0, 0, 0, nullptr, nullptr),
              S_OK);
    ASSERT_EQ(engine->SetScriptState(SCRIPTSTATE_CONNECTED), S_OK);
    IDispatch* script = nullptr;
    ASSERT_EQ(engine->GetScriptDispatch(nullptr, &script), S_OK);

    ScriptSink sink(script);
    Advise(&sink);
    SetNotify(&target_);
    EXPECT_EQ(Click(L" 3 Caf\u00e9 ", 5), S_OK);
    EXPECT_TRUE(target_.calls.empty()) << "the script's cancel = True did not come back";
    VARIANT got;
    VariantInit(&got);
    EXPECT_EQ(CallByName(script, "got", DISPATCH_PROPERTYGET, {}, &got), S_OK);
    EXPECT_EQ(got.vt == VT_BSTR ? std::wstring(got.bstrVal) : L"", L" 3 Caf\u00e9 |5");
    EXPECT_EQ(site.errors, 0);

    VariantClear(&got);
    ReleaseView();  // lets go of the sink before the engine goes
    script->Release();
    engine->Close();
    parse->Release();
    engine->Release();
}

}  // namespace
}  // namespace corvid::registration
