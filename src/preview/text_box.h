// The report's text box as plain state (text, caret and selection), behaving as the
// window's rich text box does: the caret is a 0-based offset clamped to the text, setting
// the text puts it at 0, and typing over the selection leaves it after the new text.
#pragma once

#include <cstdint>
#include <string>

namespace corvid::preview {

class TextBox {
  public:
    const std::string& text() const { return text_; }
    void SetText(const std::string& text);

    std::int32_t sel_start() const { return sel_start_; }
    std::int32_t sel_length() const { return sel_length_; }
    // Clamped to 0..length; the selection shrinks so that it stays inside the text.
    void SetSelStart(std::int32_t start);
    void SetSelLength(std::int32_t length);
    // Replaces the selection with `text`; the caret ends after it with nothing selected.
    void SetSelText(const std::string& text);

  private:
    std::string text_;
    std::int32_t sel_start_ = 0;
    std::int32_t sel_length_ = 0;
};

}  // namespace corvid::preview
