// PrinterFiscal and the records as hosts other than VBScript drive them: arrays with a lower
// bound other than 0 or of Strings (VB6, .NET), and objects of the wrong kind where the
// server expects one of its own.
#include <windows.h>
// (first: the OLE headers below use its types)
#include <gtest/gtest.h>
#include <oleauto.h>

#include "registration/com_server.h"

namespace corvid::registration {
namespace {

// The dual interfaces of PrinterFiscal and PrinterResponse3.
constexpr IID kPrinterFiscalInterface = {
    0xc411d3fe, 0xa8b5, 0x4bf3, {0x94, 0x81, 0x01, 0x94, 0x42, 0xca, 0xa8, 0x75}};
constexpr IID kPrinterResponse3Interface = {
    0x5895de05, 0xa3f8, 0x40bf, {0x81, 0x01, 0x2b, 0x55, 0x1d, 0xa1, 0xea, 0xf7}};

// responseItem(selector, s) as a late-bound host calls it, shown as "vt:text".
std::wstring ResponseItem(IDispatch* session, SHORT selector, SAFEARRAY* array, VARTYPE type) {
    VARIANT s;
    VariantInit(&s);
    s.vt = VT_ARRAY | type;
    s.parray = array;
    VARIANT item;
    VariantInit(&item);
    if (FAILED(CallByName(session, "responseItem", DISPATCH_METHOD, {Long(selector), s}, &item))) {
        return L"failed";
    }
    std::wstring shown = std::to_wstring(item.vt) + L":";
    if (SUCCEEDED(VariantChangeType(&item, &item, 0, VT_BSTR))) shown += item.bstrVal;
    VariantClear(&item);
    return shown;
}

TEST(PrinterFiscalObjectTest, ResponseItemCountsFromTheArraysLowerBound) {
    ComServer server;
    IDispatch* session = server.Create(kPrinterFiscal);
    ASSERT_NE(session, nullptr);
    // Dim a(3 To 4) As Variant: "a", 42; Dim names(1 To 1) As String: "x".
    SAFEARRAY* variants = SafeArrayCreateVector(VT_VARIANT, 3, 2);
    SAFEARRAY* names = SafeArrayCreateVector(VT_BSTR, 1, 1);
    void* data = nullptr;
    SafeArrayAccessData(variants, &data);
    static_cast<VARIANT*>(data)[0] = Bstr(L"a");
    static_cast<VARIANT*>(data)[1] = Long(42);
    SafeArrayUnaccessData(variants);
    SafeArrayAccessData(names, &data);
    static_cast<BSTR*>(data)[0] = SysAllocString(L"x");
    SafeArrayUnaccessData(names);
    const struct {
        SHORT selector;
        SAFEARRAY* array;
        VARTYPE type;
        const wchar_t* expected;
    } kCases[] = {{3, variants, VT_VARIANT, L"8:a"},
                  {4, variants, VT_VARIANT, L"3:42"},
                  {2, variants, VT_VARIANT, L"8:<nil>"},
                  {5, variants, VT_VARIANT, L"8:<nil>"},
                  {1, names, VT_BSTR, L"8:x"}};
    for (const auto& row : kCases) {
        EXPECT_EQ(ResponseItem(session, row.selector, row.array, row.type), row.expected)
            << "selector " << row.selector;
    }
    SafeArrayDestroy(variants);
    SafeArrayDestroy(names);
    session->Release();
}

// An object the server cannot take is refused, and the server keeps no reference to it. A
// host's own object claiming one of the server's interfaces must not be taken for one of
// the server's (calling into it as such would crash).
TEST(PrinterFiscalObjectTest, ObjectsOfTheWrongKindAreRefusedAndNotKept) {
    const struct {
        const char* clsid;
        const char* member;
        WORD flags;
        const IID* claimed;       // a host's object claiming this interface...
        const char* other_class;  // ...or an object of another class of the server
        HRESULT expected;
    } kCases[] = {
        {kPrinterFiscal, "s3", DISPATCH_PROPERTYPUTREF, &kPrinterResponse3Interface, nullptr,
         DISP_E_EXCEPTION},
        {kPrinterFiscal, "s3", DISPATCH_PROPERTYPUTREF, nullptr, kCStringBuffer,
         DISP_E_TYPEMISMATCH},
        {kResumenZ, "load", DISPATCH_METHOD, &kPrinterFiscalInterface, nullptr, DISP_E_EXCEPTION},
    };
    ComServer server;
    for (const auto& row : kCases) {
        SCOPED_TRACE(&row - kCases);
        IDispatch* target = server.Create(row.clsid);
        ASSERT_NE(target, nullptr);
        HostObject impostor(row.claimed != nullptr ? *row.claimed : IID_IDispatch);
        IDispatch* argument = row.claimed != nullptr ? &impostor : server.Create(row.other_class);
        ASSERT_NE(argument, nullptr);
        const ULONG before = References(argument);
        EXPECT_EQ(CallByName(target, row.member, row.flags, {Object(argument)}, nullptr),
                  row.expected);
        EXPECT_EQ(References(argument), before);
        if (argument != &impostor) argument->Release();
        target->Release();
    }
}

}  // namespace
}  // namespace corvid::registration
