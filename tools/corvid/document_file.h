// The document files the tool is given: read whole before anything is opened.
#pragma once

#include <string>

namespace corvid::tool {

// The whole file; jobs::DocumentError saying why when it cannot be read.
std::string ReadDocumentFile(const std::string& path);

}  // namespace corvid::tool
