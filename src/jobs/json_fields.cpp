#include "jobs/json_fields.h"

#include "automation/vb_error.h"
#include "jobs/documents.h"
#include "text/windows_1252.h"

namespace corvid::jobs::fields {

void Fail(const std::string& where, const std::string& what) {
    throw DocumentError(where.empty() ? what : where + ": " + what);
}

std::string Found(const json& value) {
    const std::string type = value.type_name();
    return "found " + std::string(type == "object" || type == "array" ? "an " : "a ") + type;
}

std::string Member(const std::string& where, const char* key) {
    return where.empty() ? key : where + "." + key;
}

std::string Element(const std::string& where, std::size_t index) {
    return where + "[" + std::to_string(index) + "]";
}

json ParseJson(std::string_view text) {
    try {
        return json::parse(text);
    } catch (const json::parse_error& e) {
        // Drop the library's "[json.exception.parse_error.101] " tag; keep line and column.
        std::string what = e.what();
        const std::size_t tag = what.find("] ");
        Fail("", "not valid JSON: " + (tag == std::string::npos ? what : what.substr(tag + 2)));
    }
}

const json& Object(const json& value, const std::string& where, Keys allowed) {
    if (!value.is_object()) Fail(where, "expected an object, " + Found(value));
    for (const auto& [key, member] : value.items()) {
        bool known = false;
        for (const char* name : allowed) known = known || key == name;
        if (!known) {
            std::string names;
            for (const char* name : allowed) names += std::string(names.empty() ? "" : ", ") + name;
            Fail(Member(where, key.c_str()), "unknown field (expected " + names + ")");
        }
    }
    return value;
}

const json& Required(const json& object, const std::string& where, const char* key) {
    if (!object.contains(key)) Fail(Member(where, key), "missing");
    return object.at(key);
}

const json* Optional(const json& object, const char* key) {
    return object.contains(key) ? &object.at(key) : nullptr;
}

const json& Array(const json& value, const std::string& where, bool mayBeEmpty) {
    if (!value.is_array()) Fail(where, "expected an array, " + Found(value));
    if (value.empty() && !mayBeEmpty) Fail(where, "expected at least one entry");
    return value;
}

std::string Text(const json& value, const std::string& where) {
    if (!value.is_string()) Fail(where, "expected a string, " + Found(value));
    return text::Windows1252FromUtf8(value.get<std::string>());
}

double Number(const json& value, const std::string& where) {
    if (!value.is_number()) Fail(where, "expected a number, " + Found(value));
    return value.get<double>();
}

double PositiveNumber(const json& value, const std::string& where) {
    const double number = Number(value, where);
    if (!(number > 0)) Fail(where, "expected a number above 0");
    return number;
}

automation::Currency Money(double amount, const std::string& where) {
    try {
        return automation::Currency::FromDouble(amount);
    } catch (const automation::VbError&) {
        Fail(where, "amount out of range");
    }
}

}  // namespace corvid::jobs::fields
