// What the printer has printed: 40-column lines in the printer's code page, one document
// after the other. A finished document is appended to the paper file at once, so a run
// that is killed keeps everything that came out of the printer.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace corvid::sim {

inline constexpr std::size_t kPaperColumns = 40;

class PaperRoll {
  public:
    // Starts the paper file at `path`, empty; throws std::system_error when it cannot.
    void WriteTo(std::string path);

    // Prints a line of the current document: cut at 40 columns, trailing blanks dropped,
    // control bytes shown as "?".
    void Print(std::string_view line);
    void Print(const std::vector<std::string>& lines);

    // Ends the current document (a blank line follows it on the roll) and returns its lines.
    std::vector<std::string> Cut();

    // Everything printed so far, the current document included, as UTF-8.
    std::string Text() const;

  private:
    std::vector<std::string> current_;
    std::string finished_;  // UTF-8
    std::string path_;
};

}  // namespace corvid::sim
