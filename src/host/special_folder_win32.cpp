#include <windows.h>
// shlobj.h needs windows.h first.
#include <shlobj.h>

#include "host/special_folder.h"

namespace corvid::host {

std::string SHgetFolder(int csidl) {
    LPITEMIDLIST list = nullptr;
    if (FAILED(SHGetSpecialFolderLocation(nullptr, csidl, &list)) || list == nullptr) return {};
    char path[MAX_PATH] = {};
    const BOOL found = SHGetPathFromIDListA(list, path);
    CoTaskMemFree(list);
    return found ? std::string(path) : std::string();  // cut at the first NUL
}

const char* PathSeparator() { return "\\"; }

}  // namespace corvid::host
