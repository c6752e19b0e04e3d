#include "records/reply_fields.h"

#include "automation/conversions.h"
#include "automation/vb_error.h"

namespace corvid::records {

Fields SplitFields(const std::string& text) {
    Fields fields;
    if (text.empty()) return fields;
    std::size_t start = 0;
    for (;;) {
        const std::size_t end = text.find('\n', start);
        fields.push_back(text.substr(start, end - start));
        if (end == std::string::npos) break;
        start = end + 1;
    }
    return fields;
}

const std::string& FieldAt(const Fields& fields, std::size_t i) {
    if (i >= fields.size()) {
        throw automation::VbError::Standard(automation::vb_errors::kSubscriptOutOfRange);
    }
    return fields[i];
}

}  // namespace corvid::records

namespace corvid::records::detail {

automation::Currency Hundredths(std::string_view text) {
    return automation::Currency::FromDouble(automation::CCur(text).ToDouble() / 100.0);
}

std::int16_t NarrowedCounter(std::string_view text) {
    return automation::CInt(static_cast<double>(automation::CLng(text)));
}

std::string_view Left(std::string_view text, std::size_t n) { return text.substr(0, n); }

std::string_view Mid(std::string_view text, std::size_t start, std::size_t n) {
    if (start == 0 || start > text.size()) return {};
    return text.substr(start - 1, n);
}

std::string_view Right(std::string_view text, std::size_t n) {
    return n >= text.size() ? text : text.substr(text.size() - n);
}

std::string_view Trim(std::string_view text) {
    const auto first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

}  // namespace corvid::records::detail
