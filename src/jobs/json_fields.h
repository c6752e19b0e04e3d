// Reading JSON documents field by field, with the place of every mistake named
// ("items[1].price: expected a number, found a string"). Each function throws
// DocumentError; `where` is the place of the value ("" for the whole text).
#pragma once

#include <initializer_list>
#include <nlohmann/json.hpp>
#include <string>
#include <string_view>

#include "automation/currency.h"

namespace corvid::jobs::fields {

using nlohmann::json;
using Keys = std::initializer_list<const char*>;

[[noreturn]] void Fail(const std::string& where, const std::string& what);
// "found a string", "found an object".
std::string Found(const json& value);
std::string Member(const std::string& where, const char* key);
std::string Element(const std::string& where, std::size_t index);

// The text as JSON; "not valid JSON: ..." with line and column otherwise.
json ParseJson(std::string_view text);
// An object holding only `allowed` keys: a misspelt key would otherwise drop its value
// without a word.
const json& Object(const json& value, const std::string& where, Keys allowed);
const json& Required(const json& object, const std::string& where, const char* key);
const json* Optional(const json& object, const char* key);
const json& Array(const json& value, const std::string& where, bool mayBeEmpty);
// A string, converted from UTF-8 to the printer's code page.
std::string Text(const json& value, const std::string& where);
double Number(const json& value, const std::string& where);
double PositiveNumber(const json& value, const std::string& where);
automation::Currency Money(double amount, const std::string& where);

}  // namespace corvid::jobs::fields
