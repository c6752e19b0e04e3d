// Paths of the shell's special folders.
// On Windows: SHGetSpecialFolderLocation then SHGetPathFromIDListA (260 characters, cut at
// the first NUL). On POSIX only the documents folder is known: $XDG_DOCUMENTS_DIR when set,
// else $HOME. Empty when the folder is unknown or the lookup fails.
#pragma once

#include <string>

namespace corvid::host {

inline constexpr int kCsidlPersonal = 5;  // "My Documents"

std::string SHgetFolder(int csidl);

// The separator between a folder and a file name on this platform ("\" or "/").
const char* PathSeparator();

}  // namespace corvid::host
