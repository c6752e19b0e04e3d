#include <windows.h>
// After windows.h, which they need.
#include <knownfolders.h>
#include <shlobj.h>

#include "service/journal.h"

namespace corvid::service {

std::filesystem::path DefaultDataFolder() {
    PWSTR folder = nullptr;
    const HRESULT result = SHGetKnownFolderPath(FOLDERID_LocalAppData, 0, nullptr, &folder);
    if (FAILED(result)) {
        CoTaskMemFree(folder);
        throw JournalError(
            "journal: the local application data folder is unknown; name one "
            "with --data");
    }
    std::filesystem::path path(folder);
    CoTaskMemFree(folder);
    return path / "Corvid";
}

}  // namespace corvid::service
