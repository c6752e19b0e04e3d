// The door through which a click on a shown report reaches an lfQuickView object from
// outside its own window: a window or a test in another module tells the object which line
// and column were clicked, and the object raises ReportClicked as its own window would.
// Not in the type library; only lfQuickView objects answer it.
#pragma once

#include <windows.h>
// (first: the OLE headers below use its types)
#include <unknwn.h>

namespace corvid::registration {

struct IReportClicks : public IUnknown {
    static constexpr IID kIid = {
        0x46c4667d, 0x23f2, 0x4303, {0x81, 0x7a, 0x79, 0x89, 0xb0, 0x67, 0x51, 0x27}};

    // `line` is the clicked line's text, `column` the caret's column in it.
    virtual HRESULT STDMETHODCALLTYPE ClickReport(BSTR line, LONG column) = 0;
};

}  // namespace corvid::registration
