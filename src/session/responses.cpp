// Commands whose answer carries data: the reply's line-feed separated fields, one block
// or several.
#include "preview/quick_view.h"
#include "session/framing.h"
#include "session/printer_fiscal.h"

namespace corvid::session {

namespace {

constexpr char kFieldSeparator = '\n';

// Split at line feed the way the host's Split does: an empty text has no fields.
Fields SplitFields(const std::string& text) {
    Fields fields;
    if (text.empty()) return fields;
    std::size_t start = 0;
    for (;;) {
        const std::size_t end = text.find(kFieldSeparator, start);
        fields.push_back(text.substr(start, end - start));
        if (end == std::string::npos) break;
        start = end + 1;
    }
    return fields;
}

std::string Join(const Fields& fields, std::string_view separator) {
    std::string joined;
    for (std::size_t i = 0; i < fields.size(); ++i) {
        if (i > 0) joined += separator;
        joined += fields[i];
    }
    return joined;
}

}  // namespace

Fields PrinterFiscal::GetResponse(std::string_view cmd) {
    Trace("GetResponse: " + session::EscapeString(cmd));
    if (testMode_) {
        if (preview_) preview_->Add("GET RESPONSE: " + std::string(cmd), 0);
        return {"Ok"};
    }
    if (skipChecks_) {
        Trace("@GetResponse with NO_STATUS_CHECK = VOID");
        return {"VOID"};
    }
    GetStatus();
    if (pfError != pfOk) {
        Trace("@GetResponse pfError = " +
              session::EscapeString(std::string(1, static_cast<char>(pfError))));
        return {"pfError"};
    }
    if (Execute(cmd) != 0) return {"pfError"};

    const std::size_t stx = result.find(static_cast<char>(STX));
    std::string s = stx == std::string::npos ? result : result.substr(stx + 1);
    Trace("GetResponse. After Execute (1), s = " + session::EscapeString(s));
    if (!s.empty()) {
        s.pop_back();
        Trace("GetResponse. After Execute (2), s = " + session::EscapeString(s));
    }
    Fields fields = SplitFields(s);
    Trace("GetResponse. UBound = " + std::to_string(static_cast<long>(fields.size()) - 1));
    return fields;
}

std::string PrinterFiscal::GetResponseString(std::string_view cmd, std::string_view sep) {
    const std::string separator = sep.empty() ? std::string(1, kFieldSeparator) : std::string(sep);
    std::string text;
    for (const std::string& field : GetResponse(cmd)) text += separator + field;
    return text;
}

std::vector<Fields> PrinterFiscal::GetMultipleResponses(std::string_view cmd) {
    Trace("GetMultipleResponses: " + session::EscapeString(cmd));
    std::vector<Fields> blocks{GetResponse(cmd)};
    while (resultFlag == ETB) {
        result.clear();
        Trace(" -> ACK");
        line_->Write(port_, std::string(1, static_cast<char>(ACK)));
        WaitForReply();
        // A block that never completes ends the reply: its ETB would otherwise still be
        // the last end seen and the loop would ask again without end.
        if (!ready_) break;
        const std::string s = result.size() >= 2 ? result.substr(1, result.size() - 2) : "";
        blocks.push_back(SplitFields(s));
    }
    return blocks;
}

std::string PrinterFiscal::GetMultipleResponsesStr(std::string_view cmd,
                                                   std::optional<std::string_view> itemSep,
                                                   std::optional<std::string_view> rowSep) {
    const std::string item =
        itemSep ? std::string(*itemSep) : std::string(1, static_cast<char>(US));
    const std::string row = rowSep ? std::string(*rowSep) : std::string(1, static_cast<char>(RS));
    std::string text;
    const std::vector<Fields> blocks = GetMultipleResponses(cmd);
    for (std::size_t i = 0; i < blocks.size(); ++i) {
        if (i > 0) text += row;
        text += Join(blocks[i], item);
    }
    return text;
}

std::string PrinterFiscal::responseItem(std::int16_t selector, const Fields& s) {
    if (selector < 0 || static_cast<std::size_t>(selector) >= s.size()) return "<nil>";
    return s[static_cast<std::size_t>(selector)];
}

std::string PrinterFiscal::SerialFromStatusS1() {
    // Short "S1" layout carries the serial in field 9, the long one (16 fields or more)
    // in field 13.
    const Fields fields = GetResponse("S1");
    if (fields.empty() || fields[0] == "pfError") return {};
    const std::size_t index = fields.size() < 16 ? 9 : 13;
    return index < fields.size() ? fields[index] : std::string();
}

}  // namespace corvid::session
