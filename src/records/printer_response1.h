// The printer's answer to "S1": cashier, day's sales, last numbers and day counters of each
// document kind, owner's tax id, serial number, date and time.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "automation/currency.h"
#include "automation/variant.h"
#include "records/reply_fields.h"

namespace corvid::records {

class PrinterResponse1 {
  public:
    std::int16_t numeroCajero = 0;
    automation::Currency totalVentasDiarias;
    std::int32_t numeroUltimaFactura = 0;
    std::int32_t facturasDia = 0;
    std::int32_t ultimoDNF = 0;
    std::int32_t ndfDia = 0;
    std::int32_t nCierres = 0;
    std::int32_t contadorReportes = 0;
    std::string RIF;
    std::string Serial;
    automation::Date Fecha;
    std::int32_t numeroUltimaND = 0;
    std::int16_t notasDebitoDia = 0;
    std::int32_t numeroUltimaNC = 0;
    std::int16_t notasCreditoDia = 0;
    bool isFake = false;

    // Substitute values from the settings section "Config\NimbusPF\Response1". Raises only
    // when a stored value does not convert.
    void loadFake();
    // The reply's fields. Fewer than 16 fields are the short layout, more the long one. A
    // reply that does not read falls back to loadFake, so only a stored value that does
    // not convert can raise.
    void loadFromResponse(const Fields& v);
    // The same, with the whole reply as one text, fields joined by line feeds.
    void loadFromResponse(const std::string& s) { loadFromResponse(SplitFields(s)); }
    std::string toString() const;

  private:
    void ReadShortLayout(const Fields& v);
    void ReadLongLayout(const Fields& v);
};

// Two counters read from an "S1" reply on their own, at fixed fields whatever the layout.
// A field that is missing or not a number raises.
// Field 2: the last invoice number.
std::int32_t LastInvoiceNumber(const Fields& s1);
// Field 6: the closures in the short layout, the last credit note in the long one; hosts
// have always read it there.
std::int32_t LastClosureNumber(const Fields& s1);

}  // namespace corvid::records
