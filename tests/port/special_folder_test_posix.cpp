#include <gtest/gtest.h>

#include "automation/fake_clock.h"
#include "port/memory_settings_source.h"
#include "port/special_folder.h"
#include "port/trace_log.h"
#include "scoped_env.h"
#include "temp_folder.h"

namespace corvid::port {
namespace {

using testing::ScopedEnv;

TEST(SpecialFolderPosix, DocumentsAreXdgDocumentsDirElseHome) {
    ScopedEnv home("HOME", "/home/cajero");
    {
        ScopedEnv documents("XDG_DOCUMENTS_DIR", "/home/cajero/Documentos");
        EXPECT_EQ(SHgetFolder(kCsidlPersonal), "/home/cajero/Documentos");
    }
    ScopedEnv no_documents("XDG_DOCUMENTS_DIR", "");
    EXPECT_EQ(SHgetFolder(kCsidlPersonal), "/home/cajero");
    EXPECT_EQ(SHgetFolder(0x1A), "");  // other folders are unknown here
}

TEST(SpecialFolderPosix, TheTraceFileDefaultsToFprinterLogInTheDocumentsFolder) {
    testing::TempFolder documents;
    ScopedEnv documents_env("XDG_DOCUMENTS_DIR", documents.path().string());
    ScopedSettingsSource settings;
    automation::ScopedClock clock(std::make_shared<automation::FakeClock>());
    TraceLog log;
    log.SetIsDebug(true);
    log.Trace("hola");
    EXPECT_EQ(log.file_name(), documents.path().string() + "/FPRINTER.LOG");
    EXPECT_EQ(documents.Read("FPRINTER.LOG"), "15/01 12:00:00      43200 hola\r\n");
}

}  // namespace
}  // namespace corvid::port
