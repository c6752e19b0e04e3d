#include "automation/locale_format.h"

#include <optional>
#include <utility>

namespace corvid::automation {
namespace {

std::optional<LocaleFormat>& Installed() {
    static std::optional<LocaleFormat> locale;
    return locale;
}

}  // namespace

const LocaleFormat& CurrentLocaleFormat() {
    auto& locale = Installed();
    if (!locale) locale = SystemLocaleFormat();
    return *locale;
}

LocaleFormat ReplaceLocaleFormat(LocaleFormat locale) {
    LocaleFormat previous = CurrentLocaleFormat();
    Installed() = std::move(locale);
    return previous;
}

}  // namespace corvid::automation
