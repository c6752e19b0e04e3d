// The command series that pass customer data and open invoices and credit notes. Each
// builder returns the commands in the order they are sent; the sender stops (or not) at a
// failure as its method says.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "automation/variant.h"

namespace corvid::documents {

using Commands = std::vector<std::string>;

// The non-empty pieces of an address split at CR LF.
std::vector<std::string> AddressPieces(std::string_view address);

// "i01" name, "i02" "RIF:", address lines from 03, then the optional reference lines.
// `fechaFactura` is formatted "dd-mm-yyyy".
Commands PasarDatosClienteCommands(std::string_view nombre, std::string_view rif,
                                   std::string_view direccion,
                                   std::optional<std::string> datosFactRel,
                                   std::optional<std::string> serialPrinter,
                                   std::optional<automation::Variant> fechaFactura);
// "iS*", "iR*", "iF*", "iI*", "iD*", then address lines from 00.
Commands PasarDatosClienteNCCommands(std::string_view nombre, std::string_view rif,
                                     std::string_view direccion, std::string_view datosFactRel,
                                     std::string_view serialPrinter,
                                     const automation::Variant& fechaFactura);
// "iR*", "iS*", then every non-empty line of the address wrapped at `width`, numbered
// from 01.
Commands IniciarFacturaCommands(std::string_view nombre, std::string_view rif,
                                std::string_view direccion, int width);

// One command of a "j" series and the step its failure message names.
struct NumberedCommand {
    std::string command;
    int step;
};
using StepCommands = std::vector<NumberedCommand>;

// "jR" RIF cut at 20, "jS" name padded to 40, "jF" reference when given, "j1".. address.
StepCommands PasarDatosClientePACommands(std::string_view nombre, std::string_view rif,
                                         std::string_view direccion, std::string_view datosFactRel);
// "jR*", "jS*", "jF*" reference padded to 22, "j1".. address.
StepCommands PasarDatosClienteNCPACommands(std::string_view nombre, std::string_view rif,
                                           std::string_view direccion,
                                           std::string_view datosFactRel);

}  // namespace corvid::documents
