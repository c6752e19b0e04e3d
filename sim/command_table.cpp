#include "sim/command_table.h"

namespace corvid::sim {

void CommandTable::Register(std::string prefix, CommandHandler handler) {
    handlers_[std::move(prefix)] = std::move(handler);
}

CommandAnswer CommandTable::Dispatch(std::string_view command, FiscalState& state) const {
    const CommandHandler* best = nullptr;
    std::size_t bestLength = 0;
    for (const auto& [prefix, handler] : handlers_) {
        if (command.starts_with(prefix) && (best == nullptr || prefix.size() > bestLength)) {
            best = &handler;
            bestLength = prefix.size();
        }
    }
    return best != nullptr ? (*best)(command, state) : CommandAnswer::Refuse("unknown command");
}

std::string JoinFields(const std::vector<std::string>& fields) {
    std::string text;
    for (std::size_t i = 0; i < fields.size(); ++i) {
        if (i > 0) text += '\n';
        text += fields[i];
    }
    return text;
}

}  // namespace corvid::sim
