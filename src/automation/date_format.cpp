#include "automation/date_format.h"

#include <cstdio>
#include <vector>

#include "automation/dates.h"
#include "automation/pattern_literal.h"

namespace corvid::automation {
namespace {

char Lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }
bool IsFieldLetter(char c) {
    const char l = Lower(c);
    return l == 'd' || l == 'm' || l == 'y' || l == 'h' || l == 'n' || l == 's';
}

// A run of one field letter ("dd"), or a literal text when `letter` is 0.
struct Piece {
    char letter = 0;
    std::size_t length = 0;
    std::string literal;
};

std::vector<Piece> Split(std::string_view pattern) {
    std::vector<Piece> pieces;
    std::size_t i = 0;
    while (i < pattern.size()) {
        if (IsFieldLetter(pattern[i])) {
            Piece piece;
            piece.letter = Lower(pattern[i]);
            while (i < pattern.size() && Lower(pattern[i]) == piece.letter) {
                ++piece.length;
                ++i;
            }
            pieces.push_back(piece);
        } else {
            if (pieces.empty() || pieces.back().letter != 0) pieces.emplace_back();
            i = CopyPatternLiteral(pattern, i, pieces.back().literal);
        }
    }
    return pieces;
}

// "m" means minutes right after an hour field or right before a seconds field.
void MarkMinutes(std::vector<Piece>& pieces) {
    char previous = 0;
    for (std::size_t i = 0; i < pieces.size(); ++i) {
        Piece& piece = pieces[i];
        if (piece.letter == 0) continue;
        if (piece.letter == 'm' && piece.length <= 2) {
            char next = 0;
            for (std::size_t j = i + 1; j < pieces.size() && next == 0; ++j)
                next = pieces[j].letter;
            if (previous == 'h' || next == 's') piece.letter = 'n';
        }
        previous = piece.letter;
    }
}

std::string Number(int value, std::size_t width) {
    char buffer[16];
    std::snprintf(buffer, sizeof buffer, "%0*d", static_cast<int>(width), value);
    return buffer;
}

int DayOfYear(const DateParts& p) {
    return static_cast<int>(DateSerial(p.year, p.month, p.day).days -
                            DateSerial(p.year, 1, 1).days) +
           1;
}

}  // namespace

bool IsDatePattern(std::string_view pattern) {
    for (const Piece& piece : Split(pattern)) {
        if (piece.letter != 0) return true;
    }
    return false;
}

std::string FormatDate(Date value, std::string_view pattern) {
    std::vector<Piece> pieces = Split(pattern);
    MarkMinutes(pieces);
    const DateParts p = SplitDate(value);
    std::string text;
    for (const Piece& piece : pieces) {
        const std::size_t width = piece.length >= 2 ? 2 : 1;
        switch (piece.letter) {
            case 'd':
                text += Number(p.day, width);
                break;
            case 'm':
                text += Number(p.month, width);
                break;
            case 'y':
                if (piece.length >= 4) {
                    text += Number(p.year, 4);
                } else if (piece.length >= 2) {
                    text += Number(p.year % 100, 2);
                } else {
                    text += Number(DayOfYear(p), 1);
                }
                break;
            case 'h':
                text += Number(p.hour, width);
                break;
            case 'n':
                text += Number(p.minute, width);
                break;
            case 's':
                text += Number(p.second, width);
                break;
            default:
                text += piece.literal;
        }
    }
    return text;
}

}  // namespace corvid::automation
