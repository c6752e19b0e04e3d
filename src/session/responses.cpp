// The fields of replies, one block or several.
#include "session/responses.h"

#include "session/exchange.h"
#include "session/framing.h"

namespace corvid::session {

std::string JoinFields(const Fields& fields, std::string_view separator) {
    std::string joined;
    for (std::size_t i = 0; i < fields.size(); ++i) {
        if (i > 0) joined += separator;
        joined += fields[i];
    }
    return joined;
}

Fields ReadResponse(Exchange& exchange, std::string_view cmd, const ExecuteCommand& execute) {
    if (exchange.settings().skipChecks) {
        exchange.Trace("@GetResponse with NO_STATUS_CHECK = VOID");
        return {"VOID"};
    }
    exchange.GetStatus();
    if (exchange.outcome().pfError != pfOk) {
        exchange.Trace(
            "@GetResponse pfError = " +
            session::EscapeString(std::string(1, static_cast<char>(exchange.outcome().pfError))));
        return {"pfError"};
    }
    if ((execute ? execute(cmd) : exchange.Execute(cmd)) != 0) return {"pfError"};

    const std::string& result = exchange.outcome().result;
    const std::size_t stx = result.find(static_cast<char>(STX));
    std::string s = stx == std::string::npos ? result : result.substr(stx + 1);
    exchange.Trace("GetResponse. After Execute (1), s = " + session::EscapeString(s));
    if (!s.empty()) {
        s.pop_back();
        exchange.Trace("GetResponse. After Execute (2), s = " + session::EscapeString(s));
    }
    Fields fields = SplitFields(s);
    exchange.Trace("GetResponse. UBound = " + std::to_string(static_cast<long>(fields.size()) - 1));
    return fields;
}

void ReadFurtherBlocks(Exchange& exchange, std::vector<Fields>& blocks) {
    ExchangeOutcome& outcome = exchange.outcome();
    while (outcome.resultFlag == ETB) {
        outcome.result.clear();
        exchange.Trace(" -> ACK");
        exchange.WriteAck();
        exchange.WaitForReply();
        // A block that never completes ends the reply: its ETB would otherwise still be
        // the last end seen and the loop would ask again without end.
        if (!exchange.ready()) break;
        const std::string& result = outcome.result;
        const std::string s = result.size() >= 2 ? result.substr(1, result.size() - 2) : "";
        blocks.push_back(SplitFields(s));
    }
}

}  // namespace corvid::session
