#include "sim/paper_roll.h"

#include <cerrno>
#include <fstream>
#include <system_error>

#include "sim/cp1252.h"

namespace corvid::sim {

namespace {

std::string AsText(const std::vector<std::string>& lines) {
    std::string text;
    for (const std::string& line : lines) text += Cp1252ToUtf8(line) + "\n";
    return text;
}

}  // namespace

void PaperRoll::WriteTo(std::string path) {
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    if (!file) throw std::system_error(errno, std::generic_category(), path);
    path_ = std::move(path);
}

void PaperRoll::Print(std::string_view line) {
    std::string printed(line.substr(0, kPaperColumns));
    for (char& c : printed) {
        if (static_cast<unsigned char>(c) < 32 || c == 127) c = '?';
    }
    printed.erase(printed.find_last_not_of(' ') + 1);
    current_.push_back(std::move(printed));
}

void PaperRoll::Print(const std::vector<std::string>& lines) {
    for (const std::string& line : lines) Print(line);
}

std::vector<std::string> PaperRoll::Cut() {
    std::vector<std::string> lines = std::move(current_);
    current_.clear();
    std::string text = AsText(lines) + "\n";
    finished_ += text;
    if (!path_.empty()) {
        // A paper file that can no longer be written loses its copy, never the document.
        std::ofstream(path_, std::ios::binary | std::ios::app) << text << std::flush;
    }
    return lines;
}

std::string PaperRoll::Text() const { return finished_ + AsText(current_); }

}  // namespace corvid::sim
