#include "corvid/document_file.h"

#include <cerrno>
#include <cstring>
#include <fstream>
#include <sstream>

#include "jobs/documents.h"

namespace corvid::tool {

std::string ReadDocumentFile(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    if (!in) throw jobs::DocumentError(std::string("cannot be read: ") + std::strerror(errno));
    std::ostringstream text;
    text << in.rdbuf();
    return text.str();
}

}  // namespace corvid::tool
