// The creatable lfQuickView class: the report preview behind the _lfQuickView dual
// interface, with its ReportClicked event raised to the sinks hosts advise through its
// connection point (VB's WithEvents, WScript.ConnectObject).
#pragma once

#include <windows.h>
// (first: the OLE headers below use its types)
#include <ocidl.h>

#include "preview/quick_view.h"
#include "registration/CorvidAPI_h.h"
#include "registration/connection_point.h"
#include "registration/dispatch_object.h"
#include "registration/report_clicks.h"

namespace corvid::registration {

class QuickViewObject : public DispatchObject<_lfQuickView>,
                        public IConnectionPointContainer,
                        public IProvideClassInfo2,
                        public IReportClicks {
  public:
    explicit QuickViewObject(const char* error_source);

    STDMETHODIMP QueryInterface(REFIID iid, void** object) override;
    STDMETHODIMP_(ULONG) AddRef() override;
    STDMETHODIMP_(ULONG) Release() override;

    STDMETHODIMP get_LeftMargin(SHORT* value) override;
    STDMETHODIMP put_LeftMargin(SHORT value) override;
    STDMETHODIMP SetNotify(IDispatch** target) override;
    STDMETHODIMP SetNumeroPagina(SHORT* page) override;
    STDMETHODIMP SetLinesPerPage(SHORT* lines) override;
    STDMETHODIMP SetPrintFontSize(SHORT* size) override;
    STDMETHODIMP SetReportWidth(SHORT width, VARIANT_BOOL* fitted) override;
    STDMETHODIMP LoadText() override;
    STDMETHODIMP PageBreak() override;
    STDMETHODIMP Add(BSTR* text, LONG* alignment) override;
    STDMETHODIMP get_Linea(SHORT* value) override;
    STDMETHODIMP get_Pagina(SHORT* value) override;
    STDMETHODIMP get_LineasPagina(SHORT* value) override;
    STDMETHODIMP PrintListBox() override;
    STDMETHODIMP Show(VARIANT modal, VARIANT owner) override;
    STDMETHODIMP Hide() override;

    STDMETHODIMP EnumConnectionPoints(IEnumConnectionPoints** points) override;
    STDMETHODIMP FindConnectionPoint(REFIID iid, IConnectionPoint** point) override;

    STDMETHODIMP GetClassInfo(ITypeInfo** info) override;
    STDMETHODIMP GetGUID(DWORD kind, GUID* guid) override;

    STDMETHODIMP ClickReport(BSTR line, LONG column) override;

  private:
    // ReportClicked to every advised sink, all sharing one cancel flag, as VB raises it.
    void RaiseReportClicked(const std::string& line, std::int32_t column, bool& cancel);

    ConnectionPoint events_;
    preview::lfQuickView view_;
};

}  // namespace corvid::registration
