#include "documents/totals.h"

#include "automation/conversions.h"
#include "automation/format.h"
#include "documents/item_lines.h"

namespace corvid::documents {
namespace {

std::string TwoDigits(double means) { return automation::Format(automation::Variant(means), "00"); }

}  // namespace

std::string SubTotalCommand(bool doPrint) { return doPrint ? "3" : "4"; }

std::string PercentDiscountCommand(double percentage) {
    return "p-" +
           automation::Format(automation::Variant(automation::Int(percentage * 100)), "00000");
}

std::string AmountDiscountCommand(std::string_view amount) { return "q-" + std::string(amount); }

std::string GeneralDiscountCommand(bool isPorcentaje, bool isDescuento, double valor) {
    std::string command = "G";
    command += isPorcentaje ? 'P' : 'M';
    command += isDescuento ? '-' : '+';
    command += '*';
    return command + DecimalComma(automation::Variant(valor), "###0.00");
}

std::string CloseCommand(bool hasAmount, std::string_view amount) {
    return hasAmount ? "201" + std::string(amount) : std::string("101");
}

std::string CloseWithMeansCommand(double means, std::string_view amount) {
    return "2" + TwoDigits(means) + std::string(amount);
}

std::string CreditNoteCloseCommand(double means, std::string_view amount) {
    return "f" + TwoDigits(means) + std::string(amount);
}

}  // namespace corvid::documents
