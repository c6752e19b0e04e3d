#include <gtest/gtest.h>

#include "host/scoped_env.h"
#include "host/special_folder.h"
#include "host/trace_log.h"
#include "support/fake_clock.h"
#include "support/memory_settings_source.h"
#include "support/temp_folder.h"

namespace corvid::host {
namespace {

using test_support::ScopedEnv;

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
    test_support::TempFolder documents;
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
}  // namespace corvid::host
