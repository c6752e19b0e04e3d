#include "host/text_compare.h"

namespace corvid::host {
namespace {

char UpperChar(char c) { return (c >= 'a' && c <= 'z') ? static_cast<char>(c - 'a' + 'A') : c; }

}  // namespace

bool EqualsIgnoreCase(std::string_view a, std::string_view b) {
    if (a.size() != b.size()) return false;
    for (std::size_t i = 0; i < a.size(); ++i) {
        if (UpperChar(a[i]) != UpperChar(b[i])) return false;
    }
    return true;
}

std::string UpperAscii(std::string_view text) {
    std::string upper(text);
    for (char& c : upper) c = UpperChar(c);
    return upper;
}

}  // namespace corvid::host
