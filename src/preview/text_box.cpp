#include "preview/text_box.h"

#include <algorithm>

#include "preview/vb_strings.h"

namespace corvid::preview {

void TextBox::SetText(const std::string& text) {
    text_ = text;
    sel_start_ = 0;
    sel_length_ = 0;
}

void TextBox::SetSelStart(std::int32_t start) {
    sel_start_ = std::clamp(start, 0, Len(text_));
    sel_length_ = 0;
}

void TextBox::SetSelLength(std::int32_t length) {
    sel_length_ = std::clamp(length, 0, Len(text_) - sel_start_);
}

void TextBox::SetSelText(const std::string& text) {
    text_.replace(static_cast<std::size_t>(sel_start_), static_cast<std::size_t>(sel_length_),
                  text);
    sel_start_ += Len(text);
    sel_length_ = 0;
}

}  // namespace corvid::preview
