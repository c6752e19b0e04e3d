#include "sim/cp1252.h"

namespace corvid::sim {

namespace {

// Code points of 0x80 to 0x9F. The five bytes the code page leaves undefined (0x81, 0x8D,
// 0x8F, 0x90, 0x9D) stand for the C1 control of the same value, as Windows maps them, so
// that no byte is lost and converting back gives the same byte.
constexpr char32_t kHighControls[32] = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

void AppendUtf8(std::string& out, char32_t c) {
    if (c < 0x80) {
        out += static_cast<char>(c);
    } else if (c < 0x800) {
        out += static_cast<char>(0xC0 | (c >> 6));
        out += static_cast<char>(0x80 | (c & 0x3F));
    } else {
        out += static_cast<char>(0xE0 | (c >> 12));
        out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (c & 0x3F));
    }
}

}  // namespace

std::string Cp1252ToUtf8(std::string_view bytes) {
    std::string out;
    out.reserve(bytes.size());
    for (unsigned char byte : bytes) {
        char32_t c = byte;
        if (byte >= 0x80 && byte < 0xA0) c = kHighControls[byte - 0x80];
        AppendUtf8(out, c);
    }
    return out;
}

}  // namespace corvid::sim
