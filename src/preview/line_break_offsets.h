// The report text keeps CR LF between lines; a rich edit control keeps a single CR. These
// convert a caret offset between the two counts.
#pragma once

#include <cstdint>
#include <string>

namespace corvid::preview {

// The control's offset for `offset` into `text` (a CR LF counts once).
std::int32_t ControlOffset(const std::string& text, std::int32_t offset);
// The offset into `text` for the control's `control_offset`.
std::int32_t TextOffset(const std::string& text, std::int32_t control_offset);

}  // namespace corvid::preview
