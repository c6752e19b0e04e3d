// PrinterFiscal as hosts other than VBScript drive it: arrays with a lower bound other than
// 0 or of Strings (VB6, .NET), and the lifetime of the record a host keeps in s3.
#include <windows.h>
// (first: the OLE headers below use its types)
#include <gtest/gtest.h>
#include <oleauto.h>

#include "registration/com_server.h"

namespace corvid::registration {
namespace {

constexpr char kPrinterFiscal[] = "F9B4F4D8-D40B-4CEA-A4D0-6BE36448CACC";
constexpr char kCStringBuffer[] = "A704A2B7-2252-4DF2-B09A-7A534DAD3BD7";
constexpr char kPrinterResponse3[] = "6D93AB38-5EA9-4557-A2EB-3D41E9756220";
constexpr char kResumenZ[] = "77EEFE1C-CBDD-45C0-A930-F12420291E68";
// The dual interfaces of PrinterFiscal and PrinterResponse3.
constexpr IID kPrinterFiscalInterface = {
    0xc411d3fe, 0xa8b5, 0x4bf3, {0x94, 0x81, 0x01, 0x94, 0x42, 0xca, 0xa8, 0x75}};
constexpr IID kPrinterResponse3Interface = {
    0x5895de05, 0xa3f8, 0x40bf, {0x81, 0x01, 0x2b, 0x55, 0x1d, 0xa1, 0xea, 0xf7}};

// A host's own object that claims one of the server's interfaces: the server must not take
// it for one of its own (calling into it as such would crash).
class Impostor : public IDispatch {
  public:
    explicit Impostor(const IID& claimed) : claimed_(claimed) {}
    STDMETHODIMP QueryInterface(REFIID iid, void** object) override {
        if (iid != IID_IUnknown && iid != IID_IDispatch && iid != claimed_) {
            *object = nullptr;
            return E_NOINTERFACE;
        }
        *object = this;
        AddRef();
        return S_OK;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return ++references_; }
    STDMETHODIMP_(ULONG) Release() override { return --references_; }
    STDMETHODIMP GetTypeInfoCount(UINT* count) override {
        *count = 0;
        return S_OK;
    }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
        return E_NOTIMPL;
    }
    STDMETHODIMP Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*,
                        UINT*) override {
        return E_NOTIMPL;
    }
    ULONG references() const { return references_; }

  private:
    IID claimed_;
    ULONG references_ = 1;
};

VARIANT Object(IDispatch* object) {
    VARIANT v;
    VariantInit(&v);
    v.vt = VT_DISPATCH;
    v.pdispVal = object;
    return v;
}

VARIANT Short(SHORT value) {
    VARIANT v;
    VariantInit(&v);
    v.vt = VT_I2;
    v.iVal = value;
    return v;
}

// Dim a(lower To lower + 2): "a", 42 and "c".
SAFEARRAY* ThreeElements(LONG lower) {
    SAFEARRAY* array = SafeArrayCreateVector(VT_VARIANT, lower, 3);
    VARIANT element;
    VariantInit(&element);
    for (LONG i = 0; i < 3; ++i) {
        LONG index = lower + i;
        if (i == 1) {
            element.vt = VT_I4;
            element.lVal = 42;
        } else {
            element.vt = VT_BSTR;
            element.bstrVal = SysAllocString(i == 0 ? L"a" : L"c");
        }
        SafeArrayPutElement(array, &index, &element);
        VariantClear(&element);
    }
    return array;
}

class PrinterFiscalObjectTest : public ::testing::Test {
  protected:
    void SetUp() override {
        session_ = server_.Create(kPrinterFiscal);
        ASSERT_NE(session_, nullptr);
    }
    void TearDown() override {
        if (session_ != nullptr) session_->Release();
    }

    // responseItem(selector, s) as a late-bound host calls it.
    VARIANT ResponseItem(SHORT selector, SAFEARRAY* array, VARTYPE element_type = VT_VARIANT) {
        VARIANT s;
        VariantInit(&s);
        s.vt = VT_ARRAY | element_type;
        s.parray = array;
        VARIANT item;
        VariantInit(&item);
        EXPECT_EQ(
            CallByName(session_, "responseItem", DISPATCH_METHOD, {Short(selector), s}, &item),
            S_OK);
        return item;
    }

    ComServer server_;
    IDispatch* session_ = nullptr;
};

TEST_F(PrinterFiscalObjectTest, ResponseItemCountsFromTheArraysLowerBound) {
    SAFEARRAY* array = ThreeElements(3);
    VARIANT first = ResponseItem(3, array);
    ASSERT_EQ(first.vt, VT_BSTR);
    EXPECT_STREQ(first.bstrVal, L"a");
    VARIANT number = ResponseItem(4, array);
    ASSERT_EQ(number.vt, VT_I4);
    EXPECT_EQ(number.lVal, 42);

    for (SHORT outside : {2, 6}) {
        VARIANT item = ResponseItem(outside, array);
        ASSERT_EQ(item.vt, VT_BSTR) << outside;
        EXPECT_STREQ(item.bstrVal, L"<nil>") << outside;
        VariantClear(&item);
    }
    VariantClear(&first);
    SafeArrayDestroy(array);

    // Dim names(1 To 1) As String
    SAFEARRAY* names = SafeArrayCreateVector(VT_BSTR, 1, 1);
    LONG one = 1;
    BSTR name = SysAllocString(L"x");
    SafeArrayPutElement(names, &one, name);
    SysFreeString(name);
    VARIANT typed = ResponseItem(1, names, VT_BSTR);
    ASSERT_EQ(typed.vt, VT_BSTR);
    EXPECT_STREQ(typed.bstrVal, L"x");
    VariantClear(&typed);
    SafeArrayDestroy(names);
}

TEST_F(PrinterFiscalObjectTest, S3HoldsTheHostsRecordUntilTheSessionDies) {
    IDispatch* record = server_.Create(kPrinterResponse3);
    ASSERT_NE(record, nullptr);
    const ULONG alone = References(record);

    ASSERT_EQ(CallByName(session_, "s3", DISPATCH_PROPERTYPUTREF, {Object(record)}, nullptr), S_OK);
    EXPECT_EQ(References(record), alone + 1);

    VARIANT held;
    VariantInit(&held);
    ASSERT_EQ(CallByName(session_, "s3", DISPATCH_PROPERTYGET, {}, &held), S_OK);
    ASSERT_EQ(held.vt, VT_DISPATCH);
    EXPECT_EQ(held.pdispVal, record);
    VariantClear(&held);

    session_->Release();
    session_ = nullptr;
    EXPECT_EQ(References(record), alone);
    record->Release();
}

TEST_F(PrinterFiscalObjectTest, S3RefusesAnObjectOfAnotherClassWithoutKeepingIt) {
    IDispatch* buffer = server_.Create(kCStringBuffer);
    ASSERT_NE(buffer, nullptr);
    const ULONG alone = References(buffer);
    EXPECT_EQ(CallByName(session_, "s3", DISPATCH_PROPERTYPUTREF, {Object(buffer)}, nullptr),
              DISP_E_TYPEMISMATCH);
    EXPECT_EQ(References(buffer), alone);
    buffer->Release();
}

TEST_F(PrinterFiscalObjectTest, S3RefusesAHostsOwnPrinterResponse3) {
    Impostor impostor(kPrinterResponse3Interface);
    EXPECT_EQ(CallByName(session_, "s3", DISPATCH_PROPERTYPUTREF, {Object(&impostor)}, nullptr),
              DISP_E_EXCEPTION);
    EXPECT_EQ(impostor.references(), 1u);
    VARIANT held;
    VariantInit(&held);
    ASSERT_EQ(CallByName(session_, "s3", DISPATCH_PROPERTYGET, {}, &held), S_OK);
    EXPECT_EQ(held.vt, VT_DISPATCH);
    EXPECT_EQ(held.pdispVal, nullptr);
}

TEST_F(PrinterFiscalObjectTest, ResumenZLoadsOnlyFromThisServersSessions) {
    IDispatch* summary = server_.Create(kResumenZ);
    ASSERT_NE(summary, nullptr);
    Impostor impostor(kPrinterFiscalInterface);
    EXPECT_EQ(CallByName(summary, "load", DISPATCH_METHOD, {Object(&impostor)}, nullptr),
              DISP_E_EXCEPTION);
    EXPECT_EQ(impostor.references(), 1u);
    summary->Release();
}

}  // namespace
}  // namespace corvid::registration
