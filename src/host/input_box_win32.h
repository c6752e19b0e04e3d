// A modal input box like the host language's own: the prompt, an edit field holding the
// default text, OK and Cancel. Returns the text typed, or empty on Cancel.
#pragma once

#include <string>

namespace corvid::host {

std::string ShowInputBox(const std::string& prompt, const std::string& title,
                         const std::string& default_text);

}  // namespace corvid::host
