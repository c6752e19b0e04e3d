#include "service/web_assets.h"

#include <algorithm>

namespace corvid::service {
namespace {

std::string_view TypeOf(std::string_view path) {
    static const std::pair<std::string_view, std::string_view> types[] = {
        {".html", "text/html; charset=utf-8"},
        {".js", "text/javascript; charset=utf-8"},
        {".mjs", "text/javascript; charset=utf-8"},
        {".css", "text/css; charset=utf-8"},
        {".json", "application/json"},
        {".svg", "image/svg+xml"},
        {".png", "image/png"},
        {".ico", "image/x-icon"},
        {".txt", "text/plain; charset=utf-8"},
    };
    for (const auto& [extension, type] : types) {
        if (path.size() > extension.size() &&
            path.substr(path.size() - extension.size()) == extension)
            return type;
    }
    return "application/octet-stream";
}

}  // namespace

std::optional<WebAsset> FindWebAsset(const std::vector<std::string>& segments) {
    std::string path;
    for (const std::string& segment : segments) path += (path.empty() ? "" : "/") + segment;
    if (path.empty()) path = "index.html";
    const auto& files = EmbeddedWebFiles();
    const auto found = std::find_if(files.begin(), files.end(),
                                    [&](const auto& file) { return file.first == path; });
    if (found == files.end()) return std::nullopt;
    return WebAsset{found->second, TypeOf(path)};
}

}  // namespace corvid::service
