// Customer data comes before the first item of an invoice or credit note: the printer
// keeps it and prints it under the document's heading. Sending a field again replaces it.
// Refused: while a document with items or a non-fiscal document is open (the heading is
// printed already), an empty field, an unknown tag, a date that is not dd-mm-yyyy.
#include "sim/field_reader.h"
#include "sim/printer_commands.h"

namespace corvid::sim {

namespace {

bool IsDate(std::string_view text) {
    FieldReader reader(text);
    auto day = reader.Digits(2);
    bool dash1 = reader.Skip("-");
    auto month = reader.Digits(2);
    bool dash2 = reader.Skip("-");
    auto year = reader.Digits(4);
    return day && month && year && dash1 && dash2 && reader.AtEnd() && *day >= 1 && *day <= 31 &&
           *month >= 1 && *month <= 12;
}

// The field a command fills, or nothing when the command is malformed.
std::string* FieldOf(std::string_view command, CustomerData& customer, std::string_view& value) {
    FieldReader reader(command);
    const bool jForm = reader.Skip("j");
    if (!jForm) reader.Skip("i");
    struct Tag {
        const char* text;
        std::string CustomerData::*field;
    };
    static constexpr Tag kTags[] = {{"S", &CustomerData::name},
                                    {"R", &CustomerData::rif},
                                    {"F", &CustomerData::invoiceRef},
                                    {"I", &CustomerData::printerSerial},
                                    {"D", &CustomerData::invoiceDate}};
    for (const Tag& tag : kTags) {
        if (!reader.Skip(tag.text)) continue;
        bool starred = reader.Skip("*");
        // The "i" form always has the star; the "j" form has S, R and F with or without it.
        bool fits =
            jForm ? (tag.text[0] == 'S' || tag.text[0] == 'R' || tag.text[0] == 'F') : starred;
        value = reader.Rest();
        if (!fits) return nullptr;
        if (tag.field == &CustomerData::invoiceDate && !IsDate(value)) return nullptr;
        return &(customer.*tag.field);
    }
    auto number = reader.Digits(jForm ? 1 : 2);
    value = reader.Rest();
    if (!number || (jForm && *number == 0)) return nullptr;
    return &customer.lines[static_cast<int>(*number)];
}

CommandAnswer CustomerLine(std::string_view command, FiscalState& state) {
    if (state.document && state.document->kind) {
        return CommandAnswer::Refuse("customer data once the document is printing");
    }
    CustomerData customer = state.document ? state.document->customer : CustomerData{};
    std::string_view value;
    std::string* field = FieldOf(command, customer, value);
    if (field == nullptr) return CommandAnswer::Refuse("malformed customer data");
    if (value.find_first_not_of(' ') == std::string_view::npos) {
        return CommandAnswer::Refuse("empty customer field");
    }
    *field = std::string(value);
    if (!state.document) state.document.emplace();
    state.document->customer = std::move(customer);
    return CommandAnswer::Ack();
}

}  // namespace

void RegisterCustomerCommands(CommandTable& table) {
    table.Register("i", CustomerLine);
    table.Register("j", CustomerLine);
}

}  // namespace corvid::sim
