// What a step learnt from the printer just before it was sent, as the journal keeps it: a
// line a person reads in the job's steps, which the service reads back.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace corvid::service {

// The subtotal before a discount, which tells afterwards whether the discount was taken.
inline constexpr std::string_view kSubtotalBefore = "subtotal before sending: ";
// The amount due before the first payment: the document's total.
inline constexpr std::string_view kDueBefore = "due before payment: ";

inline std::string Learnt(std::string_view what, std::int64_t cents) {
    return std::string(what) + std::to_string(cents);
}

inline std::optional<std::int64_t> LearntCents(std::string_view what, std::string_view learnt) {
    if (learnt.substr(0, what.size()) != what) return std::nullopt;
    try {
        return std::stoll(std::string(learnt.substr(what.size())));
    } catch (const std::exception&) {
        return std::nullopt;
    }
}

}  // namespace corvid::service
