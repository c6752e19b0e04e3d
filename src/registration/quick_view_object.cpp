#include "registration/quick_view_object.h"

#include <oleauto.h>
#include <olectl.h>

#include "registration/bstr_text.h"
#include "registration/checked_pointer.h"
#include "registration/late_bound_click_target.h"
#include "registration/module_state.h"
#include "registration/snapshot_enumerator.h"
#include "registration/variant_values.h"

namespace corvid::registration {
namespace {

// The DISPID of ReportClicked in the event interface.
constexpr DISPID kReportClicked = 1;

// Whatever a sink left in cancel, as VB's CBool would read it; what cannot be read as a
// Boolean does not cancel.
bool Cancelled(const VARIANT& cancel) {
    VARIANT flag;
    VariantInit(&flag);
    const bool cancelled =
        SUCCEEDED(VariantChangeType(&flag, const_cast<VARIANT*>(&cancel), 0, VT_BOOL)) &&
        flag.boolVal != VARIANT_FALSE;
    VariantClear(&flag);
    return cancelled;
}

// Calls one sink's ReportClicked; what the sink raises is not the report's business.
void CallSink(IDispatch* sink, BSTR line, std::int32_t column, VARIANT* cancel) {
    VARIANT arguments[3];  // the last argument first
    VariantInit(&arguments[0]);
    arguments[0].vt = VT_BYREF | VT_VARIANT;
    arguments[0].pvarVal = cancel;
    VariantInit(&arguments[1]);
    arguments[1].vt = VT_I4;
    arguments[1].lVal = column;
    VariantInit(&arguments[2]);
    arguments[2].vt = VT_BSTR;
    arguments[2].bstrVal = line;
    DISPPARAMS params{arguments, nullptr, 3, 0};
    EXCEPINFO excepinfo{};
    UINT arg_error = 0;
    sink->Invoke(kReportClicked, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &params, nullptr,
                 &excepinfo, &arg_error);
    SysFreeString(excepinfo.bstrSource);
    SysFreeString(excepinfo.bstrDescription);
    SysFreeString(excepinfo.bstrHelpFile);
}

}  // namespace

QuickViewObject::QuickViewObject(const char* error_source)
    : DispatchObject(IID__lfQuickView, error_source),
      events_(static_cast<IConnectionPointContainer*>(this), DIID___lfQuickView) {
    view_.SetReportClickedHandler(
        [this](const std::string& line, std::int32_t column, bool& cancel) {
            RaiseReportClicked(line, column, cancel);
        });
}

STDMETHODIMP QuickViewObject::QueryInterface(REFIID iid, void** object) {
    if (object == nullptr) return E_POINTER;
    if (iid == IID_IConnectionPointContainer) {
        *object = static_cast<IConnectionPointContainer*>(this);
    } else if (iid == IID_IProvideClassInfo || iid == IID_IProvideClassInfo2) {
        *object = static_cast<IProvideClassInfo2*>(this);
    } else if (iid == IReportClicks::kIid) {
        *object = static_cast<IReportClicks*>(this);
    } else {
        return DispatchObject::QueryInterface(iid, object);
    }
    AddRef();
    return S_OK;
}

STDMETHODIMP_(ULONG) QuickViewObject::AddRef() { return DispatchObject::AddRef(); }

STDMETHODIMP_(ULONG) QuickViewObject::Release() { return DispatchObject::Release(); }

STDMETHODIMP QuickViewObject::get_LeftMargin(SHORT* value) {
    return Guard([&] { *Checked(value) = view_.LeftMargin(); });
}
STDMETHODIMP QuickViewObject::put_LeftMargin(SHORT value) {
    return Guard([&] { view_.SetLeftMargin(value); });
}

STDMETHODIMP QuickViewObject::SetNotify(IDispatch** target) {
    return Guard([&] {
        IDispatch* host_object = *Checked(target);
        view_.SetNotify(
            host_object == nullptr ? nullptr : std::make_shared<LateBoundClickTarget>(host_object));
    });
}

STDMETHODIMP QuickViewObject::SetNumeroPagina(SHORT* page) {
    return Guard([&] { view_.SetNumeroPagina(*Checked(page)); });
}
STDMETHODIMP QuickViewObject::SetLinesPerPage(SHORT* lines) {
    return Guard([&] { view_.SetLinesPerPage(*Checked(lines)); });
}
STDMETHODIMP QuickViewObject::SetPrintFontSize(SHORT* size) {
    return Guard([&] { view_.SetPrintFontSize(*Checked(size)); });
}
STDMETHODIMP QuickViewObject::SetReportWidth(SHORT width, VARIANT_BOOL* fitted) {
    return Guard([&] {
        VARIANT_BOOL* out = Checked(fitted);
        *out = view_.SetReportWidth(width) ? VARIANT_TRUE : VARIANT_FALSE;
    });
}

STDMETHODIMP QuickViewObject::LoadText() {
    return Guard([&] { view_.LoadText(); });
}
STDMETHODIMP QuickViewObject::PageBreak() {
    return Guard([&] { view_.PageBreak(); });
}
STDMETHODIMP QuickViewObject::Add(BSTR* text, LONG* alignment) {
    return Guard([&] { view_.Add(BytesFromBstr(*Checked(text)), *Checked(alignment)); });
}

STDMETHODIMP QuickViewObject::get_Linea(SHORT* value) {
    return Guard([&] { *Checked(value) = view_.Linea(); });
}
STDMETHODIMP QuickViewObject::get_Pagina(SHORT* value) {
    return Guard([&] { *Checked(value) = view_.Pagina(); });
}
STDMETHODIMP QuickViewObject::get_LineasPagina(SHORT* value) {
    return Guard([&] { *Checked(value) = view_.LineasPagina(); });
}

STDMETHODIMP QuickViewObject::PrintListBox() {
    return Guard([&] { view_.PrintListBox(); });
}

STDMETHODIMP QuickViewObject::Show(VARIANT modal, VARIANT) {
    return Guard([&] { view_.Show(IsMissing(&modal) || BoolFromVariant(modal)); });
}
STDMETHODIMP QuickViewObject::Hide() {
    return Guard([&] { view_.Hide(); });
}

STDMETHODIMP QuickViewObject::EnumConnectionPoints(IEnumConnectionPoints** points) {
    if (points == nullptr) return E_POINTER;
    *points = nullptr;
    try {
        *points = new ConnectionPointsEnumerator(IID_IEnumConnectionPoints, {&events_});
        return S_OK;
    } catch (...) {
        return E_OUTOFMEMORY;
    }
}

STDMETHODIMP QuickViewObject::FindConnectionPoint(REFIID iid, IConnectionPoint** point) {
    if (point == nullptr) return E_POINTER;
    *point = nullptr;
    if (iid != events_.events()) return CONNECT_E_NOCONNECTION;
    events_.AddRef();
    *point = &events_;
    return S_OK;
}

STDMETHODIMP QuickViewObject::GetClassInfo(ITypeInfo** info) {
    if (info == nullptr) return E_POINTER;
    *info = nullptr;
    return InterfaceTypeInfo(CLSID_lfQuickView, info);
}

STDMETHODIMP QuickViewObject::GetGUID(DWORD kind, GUID* guid) {
    if (guid == nullptr) return E_POINTER;
    if (kind != GUIDKIND_DEFAULT_SOURCE_DISP_IID) {
        *guid = GUID_NULL;
        return E_INVALIDARG;
    }
    *guid = events_.events();
    return S_OK;
}

STDMETHODIMP QuickViewObject::ClickReport(BSTR line, LONG column) {
    return Guard([&] { view_.RaiseReportClicked(BytesFromBstr(line), column); });
}

void QuickViewObject::RaiseReportClicked(const std::string& line, std::int32_t column,
                                         bool& cancel) {
    const std::vector<IDispatch*> sinks = events_.Sinks();
    if (sinks.empty()) return;
    BSTR text = nullptr;
    try {
        text = BstrFromBytes(line);
    } catch (...) {
        for (IDispatch* sink : sinks) sink->Release();
        throw;
    }
    VARIANT flag;
    VariantInit(&flag);
    flag.vt = VT_BOOL;
    flag.boolVal = cancel ? VARIANT_TRUE : VARIANT_FALSE;
    for (IDispatch* sink : sinks) {
        CallSink(sink, text, column, &flag);
        sink->Release();
    }
    cancel = Cancelled(flag);
    VariantClear(&flag);
    SysFreeString(text);
}

}  // namespace corvid::registration
