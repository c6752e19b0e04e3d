// The body of an invoice or credit note. The first sale line opens the document (an
// invoice for the classic sale and "F+", a credit note for "d" and "C+"), gets its number
// and prints its heading; each line is printed as it comes.
#include "sim/document_flow.h"
#include "sim/field_reader.h"
#include "sim/printer_commands.h"
#include "sim/receipt.h"

namespace corvid::sim {

namespace {

struct ItemRequest {
    std::optional<DocumentKind> kind;  // a classic void has none: it fits either kind
    PrintedItem item;
};

// Classic lines: the rate slot as Chr(32 + slot) for a sale, "d" + digit for a refund,
// byte 0xA0 + slot for a void; then fixed-width price and quantity, then the description.
std::optional<ItemRequest> ParseClassic(std::string_view command, const AmountFormats& formats) {
    FieldReader reader(command);
    ItemRequest request;
    unsigned char first = *reader.Byte();
    if (first == 'd') {
        auto digit = reader.Byte();
        if (!digit || *digit < '0' || *digit >= '0' + kRateSlots) return std::nullopt;
        request.kind = DocumentKind::CreditNote;
        request.item.slot = *digit - '0';
    } else if (first >= 0xA0 && first < 0xA0 + kRateSlots) {
        request.item.isVoid = true;
        request.item.slot = first - 0xA0;
    } else {
        request.kind = DocumentKind::Invoice;
        request.item.slot = first - ' ';
    }
    auto price = reader.Fixed(formats.price);
    auto quantity = reader.Fixed(formats.quantity);
    if (!price || !quantity) return std::nullopt;
    request.item.price = *price;
    request.item.quantity = *quantity;
    request.item.description = std::string(reader.Rest());
    return request;
}

// "F+" / "F-" (invoice), "C+" / "C-" (credit note), the slot digit, price "12,50" and "||",
// quantity "2,000" and "||", an optional "|code|", the description.
std::optional<ItemRequest> ParseGeneral(std::string_view command) {
    // The table routes only "F+", "F-", "C+" and "C-" here.
    ItemRequest request;
    request.kind = command[0] == 'F' ? DocumentKind::Invoice : DocumentKind::CreditNote;
    request.item.isVoid = command[1] == '-';
    FieldReader reader(command.substr(2));
    auto digit = reader.Byte();
    if (!digit || *digit < '0' || *digit >= '0' + kRateSlots) return std::nullopt;
    request.item.slot = *digit - '0';
    auto priceText = reader.Until("||");
    auto price = priceText ? ParseCommaNumber(*priceText, 2) : std::nullopt;
    auto quantityText = reader.Until("||");
    auto quantity = quantityText ? ParseCommaNumber(*quantityText, 3) : std::nullopt;
    if (!price || !quantity) return std::nullopt;
    request.item.price = *price;
    request.item.quantity = *quantity;
    if (reader.Skip("|")) {
        auto code = reader.Until("|");
        if (!code) return std::nullopt;
        request.item.code = std::string(*code);
    }
    request.item.description = std::string(reader.Rest());
    return request;
}

// Refused: a quantity of zero; a non-fiscal document open; a line of the other kind of
// document; a credit note whose customer data does not name the invoice it corrects; a void
// with no document open or of more than stands at that rate and price; any line once
// payment has begun.
CommandAnswer AddItem(FiscalState& state, std::optional<ItemRequest> request) {
    if (!request) return CommandAnswer::Refuse("malformed item line");
    PrintedItem& item = request->item;
    const std::int64_t quantity = Thousandths(item.quantity);
    if (quantity <= 0) return CommandAnswer::Refuse("item with no quantity");
    Document* document = state.document ? &*state.document : nullptr;
    std::optional<DocumentKind> open = document ? document->kind : std::nullopt;
    if (open == DocumentKind::NonFiscal) return CommandAnswer::Refuse("non-fiscal document open");
    if (open && request->kind && *request->kind != *open) {
        return CommandAnswer::Refuse("line of another kind of document");
    }
    const std::int64_t price = Rescale(item.price.units, item.price.decimals, 4);
    if (item.isVoid) {
        if (!open) return CommandAnswer::Refuse("void with no document open");
        if (document->StandingQuantity(item.slot, price) < quantity) {
            return CommandAnswer::Refuse("void of more than was sold");
        }
    } else if (!open && *request->kind == DocumentKind::CreditNote &&
               (document == nullptr || document->customer.invoiceRef.empty())) {
        return CommandAnswer::Refuse("credit note without the invoice it corrects");
    }
    if (document && !document->payments.empty()) {
        return CommandAnswer::Refuse("payment in progress");
    }

    if (!open) OpenDocument(state, *request->kind);
    item.amount = LineAmount(item.price, item.quantity) * (item.isVoid ? -1 : 1);
    Document& target = *state.document;
    target.items.push_back({item.slot, price, item.isVoid ? -quantity : quantity});
    target.bases[item.slot] += item.amount;
    state.paper.Print(ItemLines(item));
    return CommandAnswer::Ack();
}

CommandAnswer ClassicItem(std::string_view command, FiscalState& state) {
    return AddItem(state, ParseClassic(command, state.formats()));
}

CommandAnswer GeneralItem(std::string_view command, FiscalState& state) {
    return AddItem(state, ParseGeneral(command));
}

// The open fiscal document when it has items, else nothing.
Document* DocumentWithItems(FiscalState& state) {
    Document* document = state.document ? &*state.document : nullptr;
    if (document == nullptr || !document->IsFiscal() || !document->HasItems()) return nullptr;
    return document;
}

// "3" prints the subtotal, "4" only asks for it. Refused with no item on a fiscal document.
CommandAnswer Subtotal(std::string_view command, FiscalState& state) {
    if (command.size() != 1) return CommandAnswer::Refuse("malformed subtotal");
    Document* document = DocumentWithItems(state);
    if (document == nullptr) return CommandAnswer::Refuse("subtotal with no item");
    if (command == "3") state.paper.Print(AmountLine("SUBTOTAL", Sum(document->bases)));
    return CommandAnswer::Ack();
}

// A discount or surcharge on the subtotal so far, spread over the rates in proportion so
// that each rate's tax follows. Refused: no item, payment begun, an amount of zero, a
// discount beyond the subtotal.
CommandAnswer Adjust(FiscalState& state, bool percent, bool surcharge, Decimal value) {
    Document* document = DocumentWithItems(state);
    if (document == nullptr) return CommandAnswer::Refuse("discount with no item");
    if (!document->payments.empty()) return CommandAnswer::Refuse("payment in progress");
    SlotAmounts& bases = document->bases;
    const Cents subtotal = bases[0] + bases[1] + bases[2] + bases[3];
    const std::int64_t hundredths = Rescale(value.units, value.decimals, 2);
    const Cents amount =
        percent ? Rescale(static_cast<__int128>(subtotal) * hundredths, 4, 0) : hundredths;
    if (amount <= 0) return CommandAnswer::Refuse("discount of nothing");
    if (!surcharge && (amount > subtotal || (percent && hundredths > 10000))) {
        return CommandAnswer::Refuse("discount beyond subtotal");
    }

    const SlotAmounts parts = Spread(amount, bases);
    for (int slot = 0; slot < kRateSlots; ++slot)
        bases[slot] += surcharge ? parts[slot] : -parts[slot];
    std::string label = surcharge ? "RECARGO" : "DESCUENTO";
    if (percent) label += " " + FormatDecimal({hundredths, 2}) + "%";
    state.paper.Print(AmountLine(label, surcharge ? amount : -amount));
    return CommandAnswer::Ack();
}

// "p-" / "p+" and five digits: hundredths of a percent.
CommandAnswer PercentDiscount(std::string_view command, FiscalState& state) {
    FieldReader reader(command.substr(1));
    bool surcharge = reader.Skip("+");
    bool sign = surcharge || reader.Skip("-");
    auto value = reader.Digits(5);
    if (!sign || !value || !reader.AtEnd()) return CommandAnswer::Refuse("malformed discount");
    return Adjust(state, true, surcharge, {*value, 2});
}

// "q-" / "q+" and an amount in the payment format.
CommandAnswer AmountDiscount(std::string_view command, FiscalState& state) {
    FieldReader reader(command.substr(1));
    bool surcharge = reader.Skip("+");
    bool sign = surcharge || reader.Skip("-");
    auto value = reader.Fixed(state.formats().payment);
    if (!sign || !value || !reader.AtEnd()) return CommandAnswer::Refuse("malformed discount");
    return Adjust(state, false, surcharge, *value);
}

// "G", "P" (percent) or "M" (amount), "-" (discount) or "+" (surcharge), "*", the value
// with a decimal comma.
CommandAnswer GeneralDiscount(std::string_view command, FiscalState& state) {
    FieldReader reader(command.substr(1));
    bool percent = reader.Skip("P");
    bool kind = percent || reader.Skip("M");
    bool surcharge = reader.Skip("+");
    bool sign = surcharge || reader.Skip("-");
    bool star = reader.Skip("*");
    auto value = ParseCommaNumber(reader.Rest(), 2);
    if (!kind || !sign || !star || !value) return CommandAnswer::Refuse("malformed discount");
    return Adjust(state, percent, surcharge, *value);
}

}  // namespace

void RegisterItemCommands(CommandTable& table) {
    for (int slot = 0; slot < kRateSlots; ++slot) {
        table.Register(std::string(1, static_cast<char>(' ' + slot)), ClassicItem);
        table.Register(std::string(1, static_cast<char>(0xA0 + slot)), ClassicItem);
    }
    table.Register("d", ClassicItem);
    for (const char* kind : {"F+", "F-", "C+", "C-"}) table.Register(kind, GeneralItem);
    table.Register("3", Subtotal);
    table.Register("4", Subtotal);
    table.Register("p", PercentDiscount);
    table.Register("q", AmountDiscount);
    table.Register("GP", GeneralDiscount);
    table.Register("GM", GeneralDiscount);
}

}  // namespace corvid::sim
