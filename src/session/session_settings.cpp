#include "session/session_settings.h"

#include <algorithm>

#include "automation/conversions.h"
#include "host/library_settings.h"
#include "host/settings_store.h"
#include "session/process_state.h"

namespace corvid::session {

SessionSettings ReadSessionSettings(ProcessState& process) {
    using host::ReadBoolSetting;
    using host::ReadInt16Setting;
    SessionSettings s;
    // A value that does not fit leaves the default in place.
    if (auto v = ReadInt16Setting("TimeOut", 10)) s.exchange.timeOut = *v;
    if (auto v = ReadInt16Setting("Retries", 3)) s.retries = *v;
    s.exchange.skipChecks = ReadBoolSetting("SkipChecks", false);
    process.testMode = ReadBoolSetting("TestMode", false);
    s.testMode = process.testMode;
    process.trace.SetIsDebug(ReadBoolSetting("IsDebug", false));
    process.trace.SetDebugInmediato(ReadBoolSetting("DebugInmediato", false));
    if (auto v = host::ReadInt32Setting("ColumnasDescripcion", 28)) s.columnasDescripcion = *v;

    while (s.numTasas < 7) {
        const std::string text = host::GetSettingString(host::kApplication, host::kRatesSection,
                                                        std::to_string(s.numTasas), "nil");
        if (text == "nil") break;
        s.tasas[static_cast<std::size_t>(s.numTasas)] = automation::Val(text);
        ++s.numTasas;
    }
    // Read last; a negative bound is no bound.
    s.exchange.maxWait = std::max(0.0, host::ReadNumberSetting("MaxWait", 0));
    return s;
}

}  // namespace corvid::session
