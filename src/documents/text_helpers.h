// Text helpers of the document commands. Widths count characters (single bytes of the
// printer's code page).
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace corvid::documents {

// The text padded on the right with spaces, or cut, to exactly `width` characters.
std::string PadRightCut(std::string_view text, int width);
// (width - length) \ 2 spaces in front of a shorter text, nothing behind; a longer one is
// cut to `width`.
std::string CenterCut(std::string_view text, int width);
// Word wrap at `width`: breaks at CR or LF, else after , . : ; ? ! or before a space, ¿ or
// ¡ found last in the chunk, else a hard cut. A width below 1 raises error 5.
std::vector<std::string> lmStr2Lines(std::string_view text, int width);

}  // namespace corvid::documents
