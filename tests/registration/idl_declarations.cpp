#include "registration/idl_declarations.h"

#include <algorithm>
#include <cctype>

namespace corvid::registration {
namespace {

std::string WithoutLineComments(std::string text) {
    for (std::size_t at = text.find("//"); at != std::string::npos; at = text.find("//", at)) {
        text.erase(at, text.find('\n', at) - at);
    }
    return text;
}

bool IsNameCharacter(char c) { return std::isalnum(static_cast<unsigned char>(c)) || c == '_'; }

// The identifier starting at or after `at` (blanks skipped).
std::string NameAt(const std::string& text, std::size_t at) {
    while (at < text.size() && std::isspace(static_cast<unsigned char>(text[at]))) ++at;
    std::size_t end = at;
    while (end < text.size() && IsNameCharacter(text[end])) ++end;
    return text.substr(at, end - at);
}

// Where the keyword `word` next stands on its own, from `from`.
std::size_t FindWord(const std::string& text, const std::string& word, std::size_t from) {
    for (std::size_t at = text.find(word, from); at != std::string::npos;
         at = text.find(word, at + 1)) {
        const bool starts = at == 0 || !IsNameCharacter(text[at - 1]);
        const std::size_t end = at + word.size();
        if (starts && (end == text.size() || !IsNameCharacter(text[end]))) return at;
    }
    return std::string::npos;
}

// The [attribute list] that ends just before position `at`.
std::string AttributesBefore(const std::string& text, std::size_t at) {
    const std::size_t close = text.rfind(']', at);
    const std::size_t open = text.rfind('[', close);
    return text.substr(open + 1, close - open - 1);
}

std::string WithoutBlanks(std::string text) {
    std::erase_if(text, [](char c) { return std::isspace(static_cast<unsigned char>(c)); });
    return text;
}

std::vector<IdlMember> MembersOf(const std::string& body) {
    std::vector<IdlMember> members;
    for (std::size_t at = FindWord(body, "HRESULT", 0); at != std::string::npos;
         at = FindWord(body, "HRESULT", at + 1)) {
        IdlMember member{NameAt(body, at + 7),
                         WithoutBlanks(AttributesBefore(body, at)).find("id(DISPID_VALUE)") !=
                             std::string::npos};
        const bool seen = std::any_of(members.begin(), members.end(),
                                      [&](const IdlMember& m) { return m.name == member.name; });
        if (!seen) members.push_back(member);
    }
    return members;
}

}  // namespace

IdlDeclarations ParseIdl(std::string text) {
    text = WithoutLineComments(std::move(text));
    IdlDeclarations declarations;
    for (std::size_t at = FindWord(text, "interface", 0); at != std::string::npos;
         at = FindWord(text, "interface", at + 1)) {
        const std::size_t open = text.find('{', at);
        const std::size_t header_end = text.find_first_of("{;", at);
        if (open == std::string::npos || header_end != open) continue;  // a reference, no body
        const std::size_t close = text.find('}', open);
        declarations.interfaces[NameAt(text, at + 9)] =
            MembersOf(text.substr(open + 1, close - open - 1));
    }
    for (std::size_t at = FindWord(text, "coclass", 0); at != std::string::npos;
         at = FindWord(text, "coclass", at + 1)) {
        const std::string attributes = AttributesBefore(text, at);
        const std::size_t uuid = attributes.find("uuid(") + 5;
        const std::size_t open = text.find('{', at);
        const std::string body = text.substr(open, text.find('}', open) - open);
        const std::size_t default_interface = FindWord(body, "interface", body.find("[default]"));
        declarations.classes.push_back({NameAt(text, at + 7),
                                        attributes.substr(uuid, attributes.find(')', uuid) - uuid),
                                        NameAt(body, default_interface + 9)});
    }
    return declarations;
}

}  // namespace corvid::registration
