// Lifetimes as a host's COM runtime sees them: every object the server hands out goes on
// its last Release, whatever order the host lets go in, and DllCanUnloadNow says the DLL
// may go only when no object, factory or lock of it is left.
#include <windows.h>
// (first: the OLE headers below use its types)
#include <gtest/gtest.h>
#include <oleauto.h>

#include <cstdio>
#include <string>
#include <vector>

#include "registration/com_server.h"

namespace corvid::registration {
namespace {

constexpr char kPrinterFiscal[] = "F9B4F4D8-D40B-4CEA-A4D0-6BE36448CACC";
constexpr char kCStringBuffer[] = "A704A2B7-2252-4DF2-B09A-7A534DAD3BD7";
constexpr char kPrinterResponse1[] = "FB227847-75EF-4505-B215-22BA97C10BB5";
constexpr char kPrinterResponse3[] = "6D93AB38-5EA9-4557-A2EB-3D41E9756220";

// Each creatable class with one member a host would call on a fresh object.
struct CreatableClass {
    const char* name;
    const char* clsid;
    const char* member;
    WORD flags;
};
const CreatableClass kCreatable[] = {
    {"PrinterFiscal", kPrinterFiscal, "explainSTS1", DISPATCH_METHOD},
    {"CStringBuffer", kCStringBuffer, "Value", DISPATCH_PROPERTYGET},
    {"PrinterResponse1", kPrinterResponse1, "toString", DISPATCH_METHOD},
    {"PrinterResponse2", "299BCC32-3CC5-4E00-88D8-F306A6305E1B", "toString", DISPATCH_METHOD},
    {"EstadoDocumento", "30ABF7A0-1080-452F-B932-33EBEB4826AD", "toString", DISPATCH_METHOD},
    {"PrinterResponse3", kPrinterResponse3, "toString", DISPATCH_METHOD},
    {"PrinterResponse4", "F94F5C88-B28A-4482-A664-E2763B20507A", "loadFake", DISPATCH_METHOD},
    {"ResumenZ", "77EEFE1C-CBDD-45C0-A930-F12420291E68", "toString", DISPATCH_METHOD},
    {"ReporteZMF", "109B91AE-087A-4B19-9579-7B1CDA238E67", "toString", DISPATCH_METHOD},
};

VARIANT Long(LONG value) {
    VARIANT v;
    VariantInit(&v);
    v.vt = VT_I4;
    v.lVal = value;
    return v;
}

VARIANT Object(IDispatch* object) {
    VARIANT v;
    VariantInit(&v);
    v.vt = VT_DISPATCH;
    v.pdispVal = object;
    return v;
}

// The object a member returns, with the reference the host now holds; null on failure.
IDispatch* ObjectFrom(IDispatch* object, const std::string& member, std::vector<VARIANT> args) {
    VARIANT result;
    VariantInit(&result);
    if (FAILED(CallByName(object, member, DISPATCH_METHOD, std::move(args), &result)) ||
        result.vt != VT_DISPATCH) {
        VariantClear(&result);
        return nullptr;
    }
    return result.pdispVal;
}

// The outcome of a method call: S_OK, or the HRESULT with the error's description.
std::string Call(IDispatch* object, const std::string& member, std::vector<VARIANT> args = {}) {
    VARIANT result;
    VariantInit(&result);
    std::string error;
    const HRESULT hr =
        CallByName(object, member, DISPATCH_METHOD, std::move(args), &result, &error);
    VariantClear(&result);
    if (hr == S_OK) return "S_OK";
    char code[16];
    snprintf(code, sizeof code, "%08lX", static_cast<unsigned long>(hr));
    return std::string(code) + " " + error;
}

std::string Environment(const char* name) {
    char value[MAX_PATH];
    const DWORD length = GetEnvironmentVariableA(name, value, sizeof value);
    return length > 0 && length < sizeof value ? std::string(value, length) : std::string();
}

// ORV.ini in the current folder, where a session reads its settings when it is made.
class SettingsFile {
  public:
    explicit SettingsFile(const std::string& lines) {
        const std::string text = "[Config\\NimbusPF]\r\n" + lines + "\r\n";
        HANDLE file = CreateFileA("ORV.ini", GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                                  FILE_ATTRIBUTE_NORMAL, nullptr);
        DWORD written = 0;
        if (file != INVALID_HANDLE_VALUE) {
            WriteFile(file, text.data(), static_cast<DWORD>(text.size()), &written, nullptr);
            CloseHandle(file);
        }
    }
    ~SettingsFile() { DeleteFileA("ORV.ini"); }
    SettingsFile(const SettingsFile&) = delete;
    SettingsFile& operator=(const SettingsFile&) = delete;
};

class ObjectLifetimeTest : public ::testing::Test {
  protected:
    void SetUp() override {
        ASSERT_EQ(server_.CanUnloadNow(), S_OK) << "an object of an earlier test is still alive";
    }

    ComServer server_;
};

TEST_F(ObjectLifetimeTest, EachClassGoesOnItsLastReleaseAndOnlyThenMayTheServerUnload) {
    for (const CreatableClass& created : kCreatable) {
        SCOPED_TRACE(created.name);
        IClassFactory* factory = server_.Factory(created.clsid);
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
        ITypeInfo* info = nullptr;
        ASSERT_EQ(object->GetTypeInfo(0, LOCALE_USER_DEFAULT, &info), S_OK);
        VARIANT result;
        VariantInit(&result);
        EXPECT_EQ(CallByName(object, created.member, created.flags, {}, &result), S_OK);
        VariantClear(&result);
        info->Release();
        EXPECT_EQ(errors->Release(), 1u);

        EXPECT_EQ(object->Release(), 0u);
        EXPECT_EQ(server_.CanUnloadNow(), S_OK);
    }
}

TEST_F(ObjectLifetimeTest, ALockKeepsTheServerWithNoObjectLeftAndAStrayUnlockCancelsNothing) {
    IClassFactory* factory = server_.Factory(kCStringBuffer);
    ASSERT_NE(factory, nullptr);
    EXPECT_EQ(factory->LockServer(TRUE), S_OK);
    EXPECT_EQ(factory->Release(), 0u);
    EXPECT_EQ(server_.CanUnloadNow(), S_FALSE);

    // Any factory of the server unlocks it.
    factory = server_.Factory(kPrinterResponse1);
    ASSERT_NE(factory, nullptr);
    EXPECT_EQ(factory->LockServer(FALSE), S_OK);
    EXPECT_EQ(factory->Release(), 0u);
    EXPECT_EQ(server_.CanUnloadNow(), S_OK);

    factory = server_.Factory(kCStringBuffer);
    ASSERT_NE(factory, nullptr);
    EXPECT_EQ(factory->LockServer(FALSE), S_OK);
    EXPECT_EQ(factory->LockServer(TRUE), S_OK);
    EXPECT_EQ(factory->Release(), 0u);
    EXPECT_EQ(server_.CanUnloadNow(), S_FALSE);
    factory = server_.Factory(kCStringBuffer);
    ASSERT_NE(factory, nullptr);
    EXPECT_EQ(factory->LockServer(FALSE), S_OK);
    EXPECT_EQ(factory->Release(), 0u);
    EXPECT_EQ(server_.CanUnloadNow(), S_OK);
}

// The records a session returns, and the one a host sets as its s3, are the host's: the
// session keeps none of them alive and none of them keeps the session alive.
TEST_F(ObjectLifetimeTest, RecordsAndTheSessionTheyCameFromGoInEitherOrder) {
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
            IDispatch* record = ObjectFrom(session, query, {});
            ASSERT_NE(record, nullptr) << query;
            records.push_back(record);
        }
        ASSERT_EQ(CallByName(session, "s3", DISPATCH_PROPERTYPUTREF, {Object(records[2])}, nullptr),
                  S_OK);
        // A ResumenZ the host made, loaded from the session it is handed.
        IDispatch* loaded = server_.Create("77EEFE1C-CBDD-45C0-A930-F12420291E68");
        ASSERT_NE(loaded, nullptr);
        EXPECT_EQ(Call(loaded, "load", {Object(session)}), "S_OK");
        records.push_back(loaded);

        if (session_first) {
            EXPECT_EQ(session->Release(), 0u);
            EXPECT_EQ(server_.CanUnloadNow(), S_FALSE);
        }
        for (IDispatch* record : records) {
            VARIANT text;
            VariantInit(&text);
            CallByName(record, "toString", DISPATCH_METHOD, {}, &text);
            VariantClear(&text);
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

bool RunningUnderWine() {
    HMODULE ntdll = GetModuleHandleA("ntdll.dll");
    return ntdll != nullptr && GetProcAddress(ntdll, "wine_get_version") != nullptr;
}

std::string PrefixPath(const std::string& unix_path) {
    std::string path = "Z:" + unix_path;
    for (char& c : path) {
        if (c == '/') c = '\\';
    }
    return path;
}

// Where COM`port` of the Wine prefix links to.
std::string PortLink(int port) {
    std::string prefix = Environment("WINEPREFIX");
    if (prefix.empty()) prefix = Environment("HOME") + "/.wine";
    return prefix + "/dosdevices/com" + std::to_string(port);
}

// Runs `script` with the Linux shell, after the old link of COM`port` is removed, and
// waits until the script made it again. Wine starts a Linux program without a handle to
// wait on, and hands it this process's descriptors (its server connection among them),
// which the script closes first.
bool LinkPortWith(int port, const std::string& script) {
    const std::string link = PrefixPath(PortLink(port));
    DeleteFileA(link.c_str());
    std::string command =
        "/bin/bash -c \"exec </dev/null >/dev/null 2>&1; for f in /proc/self/fd/*; do "
        "n=${f##*/}; [ $n -gt 2 ] && eval exec $n\\>\\&-; done; " +
        script + "\"";
    STARTUPINFOA startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION process{};
    if (!CreateProcessA(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                        &startup, &process)) {
        return false;
    }
    if (process.hProcess != nullptr) CloseHandle(process.hProcess);
    if (process.hThread != nullptr) CloseHandle(process.hThread);
    // Looked up as a directory entry: the attributes of a device cannot be read.
    for (int i = 0; i < 500; ++i) {
        WIN32_FIND_DATAA found;
        HANDLE search = FindFirstFileA(link.c_str(), &found);
        if (search != INVALID_HANDLE_VALUE) {
            FindClose(search);
            return true;
        }
        Sleep(20);
    }
    return false;
}

// The port table is the process's: a port stays in use until the session that opened it
// closes it, so another session can open it only once the first one is gone.
TEST_F(ObjectLifetimeTest, ReleasingASessionWithAnOpenPortClosesThePort) {
    if (!RunningUnderWine()) GTEST_SKIP() << "the port is a Linux pseudo-terminal";
    // Two digits: under Wine here, COM100 and above did not reach the linked device.
    const int port = 20 + static_cast<int>(GetCurrentProcessId() % 35);
    // Every open of /dev/ptmx is a fresh pseudo-terminal: a port that opens and takes its
    // settings, with no printer behind it.
    ASSERT_TRUE(LinkPortWith(port, "exec ln -sfn /dev/ptmx " + PortLink(port))) << "COM" << port;

    IDispatch* opener = nullptr;
    IDispatch* refused = nullptr;
    IDispatch* next = nullptr;
    {
        // No status request on opening: nothing answers on the terminal.
        const SettingsFile settings("SkipChecks=True");
        opener = server_.Create(kPrinterFiscal);
        refused = server_.Create(kPrinterFiscal);
        next = server_.Create(kPrinterFiscal);
    }
    ASSERT_NE(opener, nullptr);
    ASSERT_NE(refused, nullptr);
    ASSERT_NE(next, nullptr);

    ASSERT_EQ(Call(opener, "Abrir", {Long(port)}), "S_OK");
    EXPECT_NE(Call(refused, "Abrir", {Long(port)}).find("in use"), std::string::npos);
    EXPECT_EQ(opener->Release(), 0u);
    // A session that never tried this port: it opens only a port the table has free.
    EXPECT_EQ(Call(next, "Abrir", {Long(port)}), "S_OK");
    EXPECT_EQ(Call(next, "Cerrar"), "S_OK");

    EXPECT_EQ(next->Release(), 0u);
    EXPECT_EQ(refused->Release(), 0u);
    EXPECT_EQ(server_.CanUnloadNow(), S_OK);
}

// For Each takes an enumerator from the collection and may clone it: each keeps the
// collection, and the collection its closures, for as long as it lives itself and no
// longer. The closures come from the simulated printer that CORVID_SIM names.
TEST_F(ObjectLifetimeTest, ClosureCollectionsEnumeratorsAndClonesLetGoOfWhatTheyWalk) {
    const std::string simulator = Environment("CORVID_SIM");
    if (!RunningUnderWine() || simulator.empty()) {
        GTEST_SKIP() << "CORVID_SIM names no simulated printer (corvid-sim)";
    }
    const int port = 60 + static_cast<int>(GetCurrentProcessId() % 35);
    // Bounded: nothing here can stop a Linux program.
    ASSERT_TRUE(LinkPortWith(port, "exec timeout 60 " + simulator + " --link " + PortLink(port)))
        << "COM" << port;

    IDispatch* session = server_.Create(kPrinterFiscal);
    ASSERT_NE(session, nullptr);
    ASSERT_EQ(Call(session, "Abrir", {Long(port)}), "S_OK");
    IDispatch* summary = ObjectFrom(session, "CerrarZ", {});
    ASSERT_NE(summary, nullptr);
    VARIANT closing;
    VariantInit(&closing);
    ASSERT_EQ(CallByName(summary, "numeroUltimoZ", DISPATCH_PROPERTYGET, {}, &closing), S_OK);
    ASSERT_EQ(VariantChangeType(&closing, &closing, 0, VT_I4), S_OK);
    EXPECT_EQ(summary->Release(), 0u);
    IDispatch* closures =
        ObjectFrom(session, "reportesZMF", {Long(closing.lVal), Long(closing.lVal)});
    ASSERT_NE(closures, nullptr);
    EXPECT_EQ(Call(session, "Cerrar"), "S_OK");
    EXPECT_EQ(session->Release(), 0u);

    VARIANT count;
    VariantInit(&count);
    ASSERT_EQ(CallByName(closures, "Count", DISPATCH_PROPERTYGET, {}, &count), S_OK);
    ASSERT_EQ(count.vt, VT_I4);
    ASSERT_EQ(count.lVal, 1);

    DISPPARAMS none{};
    VARIANT items;
    VariantInit(&items);
    ASSERT_EQ(
        closures->Invoke(DISPID_NEWENUM, IID_NULL, LOCALE_USER_DEFAULT,
                         DISPATCH_METHOD | DISPATCH_PROPERTYGET, &none, &items, nullptr, nullptr),
        S_OK);
    ASSERT_EQ(items.vt, VT_UNKNOWN);
    IEnumVARIANT* walker = nullptr;
    ASSERT_EQ(items.punkVal->QueryInterface(IID_IEnumVARIANT, reinterpret_cast<void**>(&walker)),
              S_OK);
    VariantClear(&items);
    EXPECT_EQ(closures->Release(), 1u) << "the enumerator holds the collection";

    VARIANT first;
    VariantInit(&first);
    ULONG fetched = 0;
    ASSERT_EQ(walker->Next(1, &first, &fetched), S_OK);
    ASSERT_EQ(first.vt, VT_DISPATCH);
    IEnumVARIANT* clone = nullptr;
    ASSERT_EQ(walker->Clone(&clone), S_OK);
    EXPECT_EQ(walker->Release(), 0u);

    // The clone is at the end, where its original was; Reset takes it to the closure again.
    VARIANT again;
    VariantInit(&again);
    EXPECT_EQ(clone->Next(1, &again, &fetched), S_FALSE);
    EXPECT_EQ(fetched, 0u);
    EXPECT_EQ(clone->Reset(), S_OK);
    ASSERT_EQ(clone->Next(1, &again, &fetched), S_OK);
    ASSERT_EQ(again.vt, VT_DISPATCH);
    EXPECT_EQ(again.pdispVal, first.pdispVal);
    EXPECT_EQ(clone->Release(), 0u);
    EXPECT_EQ(server_.CanUnloadNow(), S_FALSE) << "the host still holds the closure";

    // With the collection gone, the host's two references are the closure's last.
    VariantClear(&again);
    EXPECT_EQ(first.pdispVal->Release(), 0u);
    EXPECT_EQ(server_.CanUnloadNow(), S_OK);
}

}  // namespace
}  // namespace corvid::registration
