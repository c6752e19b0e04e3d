// The printer's daily ("Z") summary, the reply to "U0Z": last Z and invoice with their
// dates, last document numbers and the day's amounts by document kind and rate, with the
// levy and IGTF figures. The layout follows from the reply's number of fields.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "automation/currency.h"
#include "automation/variant.h"
#include "records/response_source.h"

namespace corvid::records {

class ResumenZ {
  public:
    std::int16_t numeroUltimoZ = -1;
    automation::Date fechaUltimoReporte;
    std::int32_t numeroUltimaFactura = 0;
    automation::Date fechaUltimaFactura;
    std::int32_t ultimaNC = 0;
    std::int32_t ultimaND = 0;
    std::int32_t ultimoDNF = 0;
    automation::Currency ventasExentas, baseVG, impuestoVG, baseIR, impuestoIR, baseIA, impuestoIA;
    automation::Currency exentoND, baseVGND, impuestoVGND, baseIRND, impuestoIRND, baseIAND,
        impuestoIAND;
    automation::Currency exentoNC, baseVGNC, impuestoVGNC, baseIRNC, impuestoIRNC, baseIANC,
        impuestoIANC;
    automation::Currency percibidoVentas, percibidoND, percibidoNC;
    automation::Currency BaseIGTF, ValorIGTF, BaseIGTFND, IGTFND, BaseIGTFNC, IGTFNC;

    // Sends "U0Z" through the printer and reads the reply.
    void load(ResponseSource& printer);
    void Refresh(ResponseSource& printer) { load(printer); }
    // Reads a "U0Z" reply. Never raises: a failing field ends the reading, keeping what
    // was filled before it.
    void loadFromFields(const std::vector<std::string>& fields);
    // `serial` is the printer's serial as the library last read it.
    std::string toString(const std::string& serial) const;
};

}  // namespace corvid::records
