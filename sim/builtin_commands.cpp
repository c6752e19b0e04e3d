#include "sim/builtin_commands.h"

#include <charconv>
#include <string>

#include "sim/printer_commands.h"

namespace corvid::sim {

namespace {

CommandAnswer MultiBlockTest(std::string_view command, FiscalState&) {
    std::string_view digits = command.substr(std::string_view(kMultiBlockTestCommand).size());
    int count = 0;
    auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), count);
    if (error != std::errc() || end != digits.data() + digits.size() || count < 1 || count > 99) {
        return CommandAnswer::Nak();
    }
    std::vector<std::string> blocks;
    for (int i = 1; i <= count; ++i) {
        blocks.push_back(JoinFields({std::to_string(i), std::to_string(count)}));
    }
    return CommandAnswer::Data(std::move(blocks));
}

}  // namespace

void RegisterBuiltinCommands(CommandTable& table) {
    table.Register(kMultiBlockTestCommand, MultiBlockTest);
    RegisterStatusCommands(table);
    RegisterCustomerCommands(table);
    RegisterItemCommands(table);
    RegisterClosingCommands(table);
    RegisterNonFiscalCommands(table);
    RegisterReportCommands(table);
    RegisterSetupCommands(table);
}

}  // namespace corvid::sim
