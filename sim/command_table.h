// Dispatch of accepted command blocks: handlers keyed by command prefix, the longest
// registered prefix wins. A command no handler claims is unknown: the printer answers NAK.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "sim/fiscal_state.h"

namespace corvid::sim {

// What the printer answers to one command: ACK, NAK, or data in one or more blocks. A
// handler that refuses must leave the state as it found it: the host sends the same block
// again after a NAK.
struct CommandAnswer {
    enum class Kind { Ack, Nak, Data };
    Kind kind = Kind::Ack;
    std::vector<std::string> blocks;  // Data: the text of each block, fields joined by LF
    std::string reason;               // Nak: why, for the transcript

    static CommandAnswer Ack() { return {}; }
    static CommandAnswer Nak() { return {Kind::Nak, {}, {}}; }
    static CommandAnswer Refuse(std::string reason) { return {Kind::Nak, {}, std::move(reason)}; }
    static CommandAnswer Data(std::vector<std::string> blocks) {
        return {Kind::Data, std::move(blocks), {}};
    }
};

// Called with the whole command text (prefix included) and the printer's state.
using CommandHandler = std::function<CommandAnswer(std::string_view command, FiscalState&)>;

class CommandTable {
  public:
    // Adds or replaces the handler of `prefix`.
    void Register(std::string prefix, CommandHandler handler);
    CommandAnswer Dispatch(std::string_view command, FiscalState& state) const;

  private:
    std::map<std::string, CommandHandler, std::less<>> handlers_;
};

// Fields joined by line feeds, the form of a data block's text.
std::string JoinFields(const std::vector<std::string>& fields);

}  // namespace corvid::sim
