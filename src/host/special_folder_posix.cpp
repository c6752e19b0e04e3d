#include <cstdlib>

#include "host/special_folder.h"

namespace corvid::host {
namespace {

std::string Environment(const char* name) {
    const char* value = std::getenv(name);
    return value != nullptr ? std::string(value) : std::string();
}

}  // namespace

std::string SHgetFolder(int csidl) {
    if (csidl != kCsidlPersonal) return {};
    std::string documents = Environment("XDG_DOCUMENTS_DIR");
    return documents.empty() ? Environment("HOME") : documents;
}

const char* PathSeparator() { return "/"; }

}  // namespace corvid::host
