#include "support/memory_settings_source.h"

#include "host/text_compare.h"

namespace corvid::host {

MemorySettingsSource::Key MemorySettingsSource::MakeKey(const std::string& a, const std::string& b,
                                                        const std::string& c) {
    return {UpperAscii(a), UpperAscii(b), UpperAscii(c)};
}

}  // namespace corvid::host
