#include "text/windows_1252.h"

#include <array>

namespace corvid::text {

namespace {

// Characters of bytes 0x80..0x9F; the undefined ones are the C1 control of their value.
constexpr std::array<char16_t, 32> kHighCharacters = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

char32_t CharacterOf(unsigned char byte) {
    return byte >= 0x80 && byte < 0xA0 ? kHighCharacters[byte - 0x80] : byte;
}

char ByteOf(char32_t character) {
    if (character < 0x80 || (character >= 0xA0 && character < 0x100)) {
        return static_cast<char>(character);
    }
    for (std::size_t i = 0; i < kHighCharacters.size(); ++i) {
        if (kHighCharacters[i] == character) return static_cast<char>(0x80 + i);
    }
    return '?';
}

void AppendUtf8(std::string& out, char32_t character) {
    if (character < 0x80) {
        out += static_cast<char>(character);
    } else if (character < 0x800) {
        out += static_cast<char>(0xC0 | (character >> 6));
        out += static_cast<char>(0x80 | (character & 0x3F));
    } else {
        out += static_cast<char>(0xE0 | (character >> 12));
        out += static_cast<char>(0x80 | ((character >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (character & 0x3F));
    }
}

// The length of the UTF-8 sequence `lead` starts, or 0 when it starts none.
std::size_t SequenceLength(unsigned char lead) {
    if (lead < 0x80) return 1;
    if ((lead >> 5) == 0x6) return 2;
    if ((lead >> 4) == 0xE) return 3;
    if ((lead >> 3) == 0x1E) return 4;
    return 0;
}

bool IsHighSurrogate(char32_t unit) { return unit >= 0xD800 && unit < 0xDC00; }
bool IsLowSurrogate(char32_t unit) { return unit >= 0xDC00 && unit < 0xE000; }

}  // namespace

std::string Utf8FromWindows1252(std::string_view bytes) {
    std::string out;
    out.reserve(bytes.size());
    for (unsigned char byte : bytes) AppendUtf8(out, CharacterOf(byte));
    return out;
}

std::string Windows1252FromUtf8(std::string_view utf8) {
    std::string out;
    for (std::size_t i = 0; i < utf8.size();) {
        const unsigned char lead = static_cast<unsigned char>(utf8[i]);
        std::size_t length = SequenceLength(lead);
        char32_t character = length == 1 ? lead : lead & (0x7F >> length);
        for (std::size_t k = 1; k < length; ++k) {
            const unsigned char next = i + k < utf8.size() ? utf8[i + k] : 0;
            if ((next & 0xC0) != 0x80) {
                length = 0;  // cut short: the bytes read so far stand for one '?'
                i += k - 1;
                break;
            }
            character = (character << 6) | (next & 0x3F);
        }
        out += length == 0 ? '?' : ByteOf(character);
        i += length == 0 ? 1 : length;
    }
    return out;
}

std::wstring WideFromWindows1252(std::string_view bytes) {
    std::wstring wide;
    wide.reserve(bytes.size());
    for (unsigned char byte : bytes) wide += static_cast<wchar_t>(CharacterOf(byte));
    return wide;
}

std::string Windows1252FromWide(std::wstring_view wide) {
    std::string out;
    out.reserve(wide.size());
    for (std::size_t i = 0; i < wide.size(); ++i) {
        const char32_t unit = static_cast<char32_t>(wide[i]);
        // A surrogate pair is one character outside the code page.
        if (IsHighSurrogate(unit) && i + 1 < wide.size() &&
            IsLowSurrogate(static_cast<char32_t>(wide[i + 1]))) {
            ++i;
        }
        out += ByteOf(unit);
    }
    return out;
}

}  // namespace corvid::text
