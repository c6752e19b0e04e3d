// Configuration and housekeeping. Everything here except the cash drawer is refused while a
// document is open: what it changes would show half-way through the document.
#include "sim/field_reader.h"
#include "sim/printer_commands.h"

namespace corvid::sim {

namespace {

CommandAnswer Malformed() { return CommandAnswer::Refuse("malformed command"); }

// "PH" + line number + exactly 40 columns: a header line for numbers 1 to 99, a footer line
// for a letter, Chr(n + 64), "A" to "Z". A line of blanks is not printed.
CommandAnswer HeaderOrFooter(std::string_view command, FiscalState& state) {
    std::string_view rest = command.substr(2);
    if (rest.size() <= kPaperColumns || rest.size() > kPaperColumns + 2) return Malformed();
    std::string_view number = rest.substr(0, rest.size() - kPaperColumns);
    std::string text(rest.substr(number.size()));
    FieldReader reader(number);
    auto digits = reader.Digits(number.size());
    const bool footer = number.size() == 1 && number[0] >= 'A' && number[0] <= 'Z';
    if (!footer && (!digits || *digits == 0)) return Malformed();
    if (state.document) return CommandAnswer::Refuse("document open");
    if (footer) {
        state.footer[number[0] - 64] = std::move(text);
    } else {
        state.header[static_cast<int>(*digits)] = std::move(text);
    }
    return CommandAnswer::Ack();
}

// "PG" + ddmmyy and "PF" + hhnnss set the printer's clock; a date or time that does not
// exist is refused.
CommandAnswer SetDateOrTime(std::string_view command, FiscalState& state) {
    FieldReader reader(command.substr(2));
    auto a = reader.Digits(2);
    auto b = reader.Digits(2);
    auto c = reader.Digits(2);
    if (!a || !b || !c || !reader.AtEnd()) return Malformed();
    std::tm time = state.Now();
    if (command[1] == 'G') {
        std::tm wanted{};
        wanted.tm_mday = static_cast<int>(*a);
        wanted.tm_mon = static_cast<int>(*b) - 1;
        wanted.tm_year = 100 + static_cast<int>(*c);
        wanted.tm_hour = 12;
        wanted.tm_isdst = -1;
        std::tm normal = wanted;
        std::mktime(&normal);
        if (normal.tm_mday != wanted.tm_mday || normal.tm_mon != wanted.tm_mon) return Malformed();
        time.tm_mday = wanted.tm_mday;
        time.tm_mon = wanted.tm_mon;
        time.tm_year = wanted.tm_year;
    } else {
        if (*a > 23 || *b > 59 || *c > 59) return Malformed();
        time.tm_hour = static_cast<int>(*a);
        time.tm_min = static_cast<int>(*b);
        time.tm_sec = static_cast<int>(*c);
    }
    if (state.document) return CommandAnswer::Refuse("document open");
    state.SetClock(time);
    return CommandAnswer::Ack();
}

// "PJ" + flag (00 to 63) + value (00 to 99). Flag 21 sets the widths of the numbers in
// document commands.
CommandAnswer SetFlag(std::string_view command, FiscalState& state) {
    FieldReader reader(command.substr(2));
    auto flag = reader.Digits(2);
    auto value = reader.Digits(2);
    if (!flag || !value || !reader.AtEnd() || *flag >= kFlagCount) return Malformed();
    if (state.document) return CommandAnswer::Refuse("document open");
    state.flags[static_cast<std::size_t>(*flag)] = static_cast<int>(*value);
    return CommandAnswer::Ack();
}

// "5" + five digits logs a cashier in (1 to 99999); refused while one is logged in.
CommandAnswer Login(std::string_view command, FiscalState& state) {
    FieldReader reader(command.substr(1));
    auto cashier = reader.Digits(5);
    if (!cashier || !reader.AtEnd() || *cashier == 0) return Malformed();
    if (state.document) return CommandAnswer::Refuse("document open");
    if (state.cashier != 0) return CommandAnswer::Refuse("a cashier is logged in");
    state.cashier = static_cast<int>(*cashier);
    return CommandAnswer::Ack();
}

// "6" logs the cashier off; refused when nobody is logged in.
CommandAnswer Logoff(std::string_view command, FiscalState& state) {
    if (command.size() != 1) return Malformed();
    if (state.document) return CommandAnswer::Refuse("document open");
    if (state.cashier == 0) return CommandAnswer::Refuse("no cashier logged in");
    state.cashier = 0;
    return CommandAnswer::Ack();
}

// "T1" starts training mode, "T2" ends it; each is refused when the mode is already so. In
// training the documents say so, keep their numbers unused and stay out of the totals.
CommandAnswer Training(std::string_view command, FiscalState& state) {
    if (command != "T1" && command != "T2") return Malformed();
    if (state.document) return CommandAnswer::Refuse("document open");
    const bool start = command == "T1";
    if (state.training == start) return CommandAnswer::Refuse("training mode already so");
    state.training = start;
    return CommandAnswer::Ack();
}

// "w" opens the cash drawer, whatever the printer is doing.
CommandAnswer OpenDrawer(std::string_view command, FiscalState&) {
    return command == "w" ? CommandAnswer::Ack() : Malformed();
}

}  // namespace

void RegisterSetupCommands(CommandTable& table) {
    table.Register("PH", HeaderOrFooter);
    table.Register("PG", SetDateOrTime);
    table.Register("PF", SetDateOrTime);
    table.Register("PJ", SetFlag);
    table.Register("5", Login);
    table.Register("6", Logoff);
    table.Register("T", Training);
    table.Register("w", OpenDrawer);
}

}  // namespace corvid::sim
