#include "automation/locale_format.h"

#include <utility>

#include "automation/replaceable.h"

namespace corvid::automation {
namespace {

Replaceable<LocaleFormat>& Installed() {
    static Replaceable<LocaleFormat> locale(SystemLocaleFormat);
    return locale;
}

}  // namespace

LocaleFormat CurrentLocaleFormat() { return Installed().Get(); }

LocaleFormat ReplaceLocaleFormat(LocaleFormat locale) {
    return Installed().Replace(std::move(locale));
}

}  // namespace corvid::automation
