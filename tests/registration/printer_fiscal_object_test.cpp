// PrinterFiscal as hosts other than VBScript drive it: arrays with a lower bound other than
// 0 or of Strings (VB6, .NET), and the lifetime of the object a host keeps in s3.
#include <windows.h>
// (first: the OLE headers below use its types)
#include <gtest/gtest.h>
#include <oleauto.h>

#include "registration/com_server.h"

namespace corvid::registration {
namespace {

constexpr char kPrinterFiscal[] = "F9B4F4D8-D40B-4CEA-A4D0-6BE36448CACC";
constexpr char kCStringBuffer[] = "A704A2B7-2252-4DF2-B09A-7A534DAD3BD7";

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

TEST_F(PrinterFiscalObjectTest, S3HoldsTheHostsObjectUntilTheSessionDies) {
    IDispatch* record = server_.Create(kCStringBuffer);
    ASSERT_NE(record, nullptr);
    const ULONG alone = References(record);

    VARIANT value;
    VariantInit(&value);
    value.vt = VT_DISPATCH;
    value.pdispVal = record;
    ASSERT_EQ(CallByName(session_, "s3", DISPATCH_PROPERTYPUTREF, {value}, nullptr), S_OK);
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

}  // namespace
}  // namespace corvid::registration
