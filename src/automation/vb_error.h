// Run-time errors as a VB host sees them: a number, a source and a description.
#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>

namespace corvid::automation {

// Numbers of the VB run-time errors the library raises.
namespace vb_errors {
inline constexpr std::int32_t kInvalidProcedureCall = 5;
inline constexpr std::int32_t kOverflow = 6;
inline constexpr std::int32_t kSubscriptOutOfRange = 9;
inline constexpr std::int32_t kTypeMismatch = 13;
// Base of host-defined object errors (vbObjectError).
inline constexpr std::int32_t kObjectErrorBase = static_cast<std::int32_t>(0x80040000u);
}  // namespace vb_errors

// One exception type for every run-time error. `number` is either a VB error number
// (1..65535, such as 5 or 40001) or a full 32-bit error code (such as 0x80040005).
class VbError : public std::runtime_error {
  public:
    VbError(std::int32_t number, std::string source, std::string description);

    // The standard VB text for the number when no description is given.
    static VbError Standard(std::int32_t number, std::string source = {});

    std::int32_t number() const { return number_; }
    const std::string& source() const { return source_; }
    const std::string& description() const { return description_; }

  private:
    std::int32_t number_;
    std::string source_;
    std::string description_;
};

// The text VB gives a run-time error number ("Invalid procedure call or argument" for 5).
std::string StandardDescription(std::int32_t number);

}  // namespace corvid::automation
