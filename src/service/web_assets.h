// The dashboard's files (the repository's web/ folder), built into the binary, and the
// headers every one of them is served with.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace corvid::service {

struct WebAsset {
    std::string_view body;
    std::string_view contentType;
};

// Path relative to web/ ("index.html", "examples/pos.html") and bytes; generated.
const std::vector<std::pair<std::string_view, std::string_view>>& EmbeddedWebFiles();

// The file a request path names: "/" is index.html. None for anything else, so no path
// can reach outside the folder.
std::optional<WebAsset> FindWebAsset(const std::vector<std::string>& segments);

// Scripts, styles, pictures and connections from the service itself only, and no framing:
// a page of the dashboard cannot be made to run or send anything elsewhere.
inline constexpr const char* kDashboardPolicy =
    "default-src 'self'; script-src 'self'; style-src 'self'; img-src 'self' data:; "
    "connect-src 'self'; frame-ancestors 'none'; base-uri 'none'; form-action 'none'";

}  // namespace corvid::service
