// The printer's answer to "S3": the three tax rates with their kind (included in the price
// or added to it), the IGTF rate and the printer's flag table.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "records/reply_fields.h"

namespace corvid::host {
class TraceLog;
}

namespace corvid::records {

class PrinterResponse3 {
  public:
    bool TipoTasa1 = false;
    double ValorTasa1 = 0;
    bool TipoTasa2 = false;
    double ValorTasa2 = 0;
    bool TipoTasa3 = false;
    double ValorTasa3 = 0;
    std::int16_t nFlags = -1;
    bool isFake = false;
    double TasaIGTF = 0;

    // Zero rates and kinds; the flag table stays as it is.
    void loadFake();
    // Parses the zero-based "S3" fields. Never raises: a field that does not convert ends
    // the parse (with a trace line) and keeps what was set before it.
    void loadFromResponse(const std::vector<std::string>& fields, host::TraceLog& trace);
    // As loadFromResponse when the reply cannot even be read as fields (a host passing
    // something that is not an array): the reading ends at once, with the same trace line.
    void loadFromUnreadable(const std::string& errorText, host::TraceLog& trace);
    // The number (1 to 3) of the first rate within 0.1 points of `tasa`.
    std::optional<std::int16_t> IndexOfRate(double tasa) const;
    // Flag n, or -1 outside the table.
    std::int16_t Flag(std::int32_t n) const;
    static std::string imagenIncluido(bool included) { return included ? "INCLUIDO" : "ADICIONAL"; }
    std::string toString() const;

  private:
    std::vector<std::int16_t> flags_;
};

// The rate in field `index` of the "S3" fields, read on its own: the text after the kind
// character as a leading number (Val), in hundredths. Raises when the field is missing,
// overflow (6) when the result is not finite.
double RateOfField(const Fields& s3, std::size_t index);

}  // namespace corvid::records
