// The terminal speaks UTF-8, the printer Windows-1252: conversion at the tool's edges.
#pragma once

#include <string>
#include <string_view>

namespace corvid::tool {

// Characters Windows-1252 lacks become "?".
std::string Utf8ToCp1252(std::string_view utf8);
std::string Cp1252ToUtf8(std::string_view bytes);

}  // namespace corvid::tool
