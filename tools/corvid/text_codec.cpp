#include "corvid/text_codec.h"

#include <array>
#include <cstdint>

namespace corvid::tool {

namespace {

// Code points of bytes 0x80..0x9F; 0 where Windows-1252 leaves the byte undefined.
constexpr std::array<char32_t, 32> kHighControls = {
    0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0,      0x017D, 0,      0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};

char32_t CodePointOf(unsigned char byte) {
    if (byte >= 0x80 && byte < 0xA0) {
        const char32_t mapped = kHighControls[byte - 0x80];
        return mapped ? mapped : byte;
    }
    return byte;
}

void AppendUtf8(std::string& out, char32_t cp) {
    if (cp < 0x80) {
        out += static_cast<char>(cp);
    } else if (cp < 0x800) {
        out += static_cast<char>(0xC0 | (cp >> 6));
        out += static_cast<char>(0x80 | (cp & 0x3F));
    } else {
        out += static_cast<char>(0xE0 | (cp >> 12));
        out += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (cp & 0x3F));
    }
}

char ByteOf(char32_t cp) {
    if (cp < 0x80 || (cp >= 0xA0 && cp < 0x100)) return static_cast<char>(cp);
    for (std::size_t i = 0; i < kHighControls.size(); ++i) {
        if (kHighControls[i] == cp) return static_cast<char>(0x80 + i);
    }
    return '?';
}

}  // namespace

std::string Cp1252ToUtf8(std::string_view bytes) {
    std::string out;
    for (unsigned char byte : bytes) AppendUtf8(out, CodePointOf(byte));
    return out;
}

std::string Utf8ToCp1252(std::string_view utf8) {
    std::string out;
    for (std::size_t i = 0; i < utf8.size();) {
        const unsigned char lead = static_cast<unsigned char>(utf8[i]);
        int length = lead < 0x80         ? 1
                     : (lead >> 5) == 6  ? 2
                     : (lead >> 4) == 14 ? 3
                     : (lead >> 3) == 30 ? 4
                                         : 0;
        if (length == 0 || i + length > utf8.size()) {
            out += '?';
            ++i;
            continue;
        }
        char32_t cp = length == 1 ? lead : lead & (0x7F >> length);
        for (int k = 1; k < length; ++k)
            cp = (cp << 6) | (static_cast<unsigned char>(utf8[i + k]) & 0x3F);
        out += ByteOf(cp);
        i += static_cast<std::size_t>(length);
    }
    return out;
}

}  // namespace corvid::tool
