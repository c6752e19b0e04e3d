#include "documents/text_helpers.h"

#include <algorithm>

#include "automation/vb_error.h"

namespace corvid::documents {
namespace {

constexpr char kInvertedQuestion = '\xBF';     // ¿ in Windows-1252
constexpr char kInvertedExclamation = '\xA1';  // ¡

bool IsBreak(char c) {
    static constexpr std::string_view kBreaks = ",.:;?! ";
    return kBreaks.find(c) != std::string_view::npos || c == kInvertedQuestion ||
           c == kInvertedExclamation;
}

bool IsBlankOrControl(char c) { return static_cast<unsigned char>(c) <= 32; }

}  // namespace

std::string PadRightCut(std::string_view text, int width) {
    if (width <= 0) return {};
    std::string line(text.substr(0, static_cast<std::size_t>(width)));
    line.resize(static_cast<std::size_t>(width), ' ');
    return line;
}

std::string CenterCut(std::string_view text, int width) {
    if (width <= 0) return {};
    const auto w = static_cast<std::size_t>(width);
    if (text.size() >= w) return std::string(text.substr(0, w));
    return std::string((w - text.size()) / 2, ' ') + std::string(text);
}

std::vector<std::string> lmStr2Lines(std::string_view text, int width) {
    if (width < 1) {
        throw automation::VbError::Standard(automation::vb_errors::kInvalidProcedureCall);
    }
    const auto w = static_cast<std::size_t>(width);
    std::vector<std::string> lines;
    while (!text.empty()) {
        const std::string_view chunk = text.substr(0, w);
        std::size_t lineBreak = chunk.find('\r');
        if (lineBreak == std::string_view::npos) lineBreak = chunk.find('\n');
        if (lineBreak != std::string_view::npos) {
            lines.emplace_back(chunk.substr(0, lineBreak));
            std::size_t next = lineBreak + 1;
            while (next < text.size() && IsBlankOrControl(text[next])) ++next;
            text.remove_prefix(next);
            continue;
        }
        if (chunk.size() < w) {
            lines.emplace_back(chunk);
            break;
        }
        std::size_t at = chunk.size();
        while (at > 0 && !IsBreak(chunk[at - 1])) --at;
        // An opening mark that starts the chunk would begin the next line again and
        // again without end: it counts as no break at all.
        const bool openingFirst =
            at == 1 && (chunk[0] == kInvertedQuestion || chunk[0] == kInvertedExclamation);
        if (at == 0 || openingFirst) {  // no break character: a hard cut
            lines.emplace_back(chunk);
            text.remove_prefix(chunk.size());
            continue;
        }
        const char mark = chunk[at - 1];
        if (mark == ' ') {
            lines.emplace_back(chunk.substr(0, at - 1));
            text.remove_prefix(at);
        } else if (mark == kInvertedQuestion || mark == kInvertedExclamation) {
            lines.emplace_back(chunk.substr(0, at - 1));
            text.remove_prefix(at - 1);
        } else {
            lines.emplace_back(chunk.substr(0, at));
            text.remove_prefix(at);
        }
    }
    return lines;
}

}  // namespace corvid::documents
