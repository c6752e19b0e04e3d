// Subtotal, discounts, closing with payment, credit notes and cancelling. `amount` is the
// payment-amount field the session's formatter wrote.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace corvid::documents {

// "3" prints the subtotal, "4" only asks for it.
std::string SubTotalCommand(bool doPrint);
// "p-" and hundredths of a percent, rounded down, in five digits: 12.345 gives p-01234.
std::string PercentDiscountCommand(double percentage);
std::string AmountDiscountCommand(std::string_view amount);
// "G", "P" or "M", "-" or "+", "*", the value with 2 decimals and a decimal comma.
std::string GeneralDiscountCommand(bool isPorcentaje, bool isDescuento, double valor);
// "101" for no amount, else "201" and the amount.
std::string CloseCommand(bool hasAmount, std::string_view amount);
// "2", the means in two digits, the amount.
std::string CloseWithMeansCommand(double means, std::string_view amount);
// "f", the means in two digits, the amount (credit notes and refunds).
std::string CreditNoteCloseCommand(double means, std::string_view amount);
inline constexpr const char* kCancelCommand = "7";

}  // namespace corvid::documents
