// The published objects as a host's COM runtime sees them: every object the server hands
// out goes on its last Release, whatever order the host lets go in, and DllCanUnloadNow says
// the DLL may go only when no object, factory or lock of it is left. Also objects of the
// wrong kind handed over where the server expects one of its own.
#include <windows.h>
// (first: the OLE headers below use its types)
#include <gtest/gtest.h>
#include <oleauto.h>

#include <vector>

#include "registration/com_server.h"

namespace corvid::registration {
namespace {

// The CLSIDs of every creatable class.
const char* const kCreatable[] = {
    "F9B4F4D8-D40B-4CEA-A4D0-6BE36448CACC", "A704A2B7-2252-4DF2-B09A-7A534DAD3BD7",
    "FB227847-75EF-4505-B215-22BA97C10BB5", "299BCC32-3CC5-4E00-88D8-F306A6305E1B",
    "30ABF7A0-1080-452F-B932-33EBEB4826AD", "6D93AB38-5EA9-4557-A2EB-3D41E9756220",
    "F94F5C88-B28A-4482-A664-E2763B20507A", "77EEFE1C-CBDD-45C0-A930-F12420291E68",
    "109B91AE-087A-4B19-9579-7B1CDA238E67"};

class ComObjectTest : public ::testing::Test {
  protected:
    void SetUp() override {
        ASSERT_EQ(server_.CanUnloadNow(), S_OK) << "an object of an earlier test is still alive";
    }

    ComServer server_;
};

TEST_F(ComObjectTest, EachClassGoesOnItsLastReleaseAndOnlyThenMayTheServerUnload) {
    for (const char* clsid : kCreatable) {
        SCOPED_TRACE(clsid);
        IClassFactory* factory = server_.Factory(clsid);
        ASSERT_NE(factory, nullptr);
        // A host that holds a factory calls into the DLL when it lets go of it.
        EXPECT_EQ(server_.CanUnloadNow(), S_FALSE);
        IDispatch* object = nullptr;
        ASSERT_EQ(
            factory->CreateInstance(nullptr, IID_IDispatch, reinterpret_cast<void**>(&object)),
            S_OK);
        EXPECT_EQ(factory->Release(), 0u);
        EXPECT_EQ(server_.CanUnloadNow(), S_FALSE);
        ISupportErrorInfo* errors = nullptr;
        ASSERT_EQ(object->QueryInterface(IID_ISupportErrorInfo, reinterpret_cast<void**>(&errors)),
                  S_OK);
        EXPECT_EQ(errors->Release(), 1u);
        EXPECT_EQ(object->Release(), 0u);
        EXPECT_EQ(server_.CanUnloadNow(), S_OK);
    }
}

// Any factory of the server locks or unlocks it.
TEST_F(ComObjectTest, ALockKeepsTheServerWithNoObjectLeft) {
    for (const char* clsid : {kCStringBuffer, kPrinterFiscal}) {
        IClassFactory* factory = server_.Factory(clsid);
        ASSERT_NE(factory, nullptr);
        const bool lock = clsid == kCStringBuffer;
        EXPECT_EQ(factory->LockServer(lock), S_OK);
        EXPECT_EQ(factory->Release(), 0u);
        EXPECT_EQ(server_.CanUnloadNow(), lock ? S_FALSE : S_OK);
    }
}

// The records a session returns, and the one a host sets as its s3, are the host's: the
// session keeps none of them alive and none of them keeps the session alive.
TEST_F(ComObjectTest, RecordsAndTheSessionTheyCameFromGoInEitherOrder) {
    const char* const kQueries[] = {"Response1", "Response2",          "Response3",
                                    "Response4", "getEstadoDocumento", "ResumenZ"};
    for (bool session_first : {true, false}) {
        SCOPED_TRACE(session_first ? "session released first" : "records released first");
        IDispatch* session = nullptr;
        {
            // No printer: the queries give their substitute records.
            const SettingsFile settings("SkipChecks=True");
            session = server_.Create(kPrinterFiscal);
        }
        ASSERT_NE(session, nullptr);
        std::vector<IDispatch*> records;
        for (const char* query : kQueries) {
            IDispatch* record = ObjectFrom(session, query);
            ASSERT_NE(record, nullptr) << query;
            records.push_back(record);
        }
        ASSERT_EQ(CallByName(session, "s3", DISPATCH_PROPERTYPUTREF, {Object(records[2])}, nullptr),
                  S_OK);
        // A ResumenZ the host made, loaded from the session it is handed.
        IDispatch* loaded = server_.Create(kResumenZ);
        ASSERT_NE(loaded, nullptr);
        EXPECT_EQ(Call(loaded, "load", {Object(session)}), "S_OK");
        records.push_back(loaded);

        if (session_first) {
            EXPECT_EQ(session->Release(), 0u);
            EXPECT_EQ(server_.CanUnloadNow(), S_FALSE);
        }
        for (IDispatch* record : records) {
            // The session keeps its s3 until it goes itself.
            const bool kept = !session_first && record == records[2];
            EXPECT_EQ(record->Release(), kept ? 1u : 0u);
        }
        if (!session_first) {
            EXPECT_EQ(server_.CanUnloadNow(), S_FALSE);
            EXPECT_EQ(session->Release(), 0u);
        }
        EXPECT_EQ(server_.CanUnloadNow(), S_OK);
    }
}

// The dual interfaces of PrinterFiscal and PrinterResponse3.
constexpr IID kPrinterFiscalInterface = {
    0xc411d3fe, 0xa8b5, 0x4bf3, {0x94, 0x81, 0x01, 0x94, 0x42, 0xca, 0xa8, 0x75}};
constexpr IID kPrinterResponse3Interface = {
    0x5895de05, 0xa3f8, 0x40bf, {0x81, 0x01, 0x2b, 0x55, 0x1d, 0xa1, 0xea, 0xf7}};

// An object the server cannot take is refused, and the server keeps no reference to it. A
// host's own object claiming one of the server's interfaces must not be taken for one of
// the server's (calling into it as such would crash).
TEST_F(ComObjectTest, ObjectsOfTheWrongKindAreRefusedAndNotKept) {
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
    for (const auto& row : kCases) {
        SCOPED_TRACE(&row - kCases);
        IDispatch* target = server_.Create(row.clsid);
        ASSERT_NE(target, nullptr);
        HostObject impostor(row.claimed != nullptr ? *row.claimed : IID_IDispatch);
        IDispatch* argument = row.claimed != nullptr ? &impostor : server_.Create(row.other_class);
        ASSERT_NE(argument, nullptr);
        argument->AddRef();
        const ULONG before = argument->Release();
        EXPECT_EQ(CallByName(target, row.member, row.flags, {Object(argument)}, nullptr),
                  row.expected);
        argument->AddRef();
        EXPECT_EQ(argument->Release(), before);
        if (argument != &impostor) argument->Release();
        target->Release();
    }
}

}  // namespace
}  // namespace corvid::registration
