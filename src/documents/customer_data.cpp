#include "documents/customer_data.h"

#include "automation/format.h"
#include "documents/text_helpers.h"

namespace corvid::documents {
namespace {

std::string Left(std::string_view text, std::size_t count) {
    return std::string(text.substr(0, count));
}

std::string Numbered(const char* prefix, int n, const char* pattern, std::string_view text) {
    return prefix + automation::Format(automation::Variant(static_cast<std::int32_t>(n)), pattern) +
           Left(text, 40);
}

}  // namespace

std::vector<std::string> AddressPieces(std::string_view address) {
    std::vector<std::string> pieces;
    std::size_t start = 0;
    for (;;) {
        const std::size_t end = address.find("\r\n", start);
        const std::string_view piece = address.substr(start, end - start);
        if (!piece.empty()) pieces.emplace_back(piece);
        if (end == std::string_view::npos) break;
        start = end + 2;
    }
    return pieces;
}

Commands PasarDatosClienteCommands(std::string_view nombre, std::string_view rif,
                                   std::string_view direccion,
                                   std::optional<std::string> datosFactRel,
                                   std::optional<std::string> serialPrinter,
                                   std::optional<automation::Variant> fechaFactura) {
    Commands commands{"i01" + Left(nombre, 40), "i02RIF:" + std::string(rif)};
    int n = 3;
    for (const std::string& piece : AddressPieces(direccion)) {
        commands.push_back(Numbered("i", n++, "00", piece));
    }
    if (datosFactRel) {
        commands.push_back(Numbered("i", n++, "00", "") +
                           "#Factura afectada: " + Left(*datosFactRel, 12));
    }
    if (serialPrinter) {
        commands.push_back(Numbered("i", n++, "00", "") +
                           "Serial impresora: " + Left(*serialPrinter, 12));
    }
    if (fechaFactura) {
        commands.push_back(Numbered("i", n, "00", "") +
                           "Fecha factura: " + automation::Format(*fechaFactura, "dd-mm-yyyy"));
    }
    return commands;
}

Commands PasarDatosClienteNCCommands(std::string_view nombre, std::string_view rif,
                                     std::string_view direccion, std::string_view datosFactRel,
                                     std::string_view serialPrinter,
                                     const automation::Variant& fechaFactura) {
    Commands commands{"iS*" + Left(nombre, 40), "iR*" + std::string(rif),
                      "iF*" + Left(datosFactRel, 40), "iI*" + std::string(serialPrinter),
                      "iD*" + automation::Format(fechaFactura, "dd-mm-yyyy")};
    int n = 0;
    for (const std::string& piece : AddressPieces(direccion)) {
        commands.push_back(Numbered("i", n++, "00", piece));
    }
    return commands;
}

Commands IniciarFacturaCommands(std::string_view nombre, std::string_view rif,
                                std::string_view direccion, int width) {
    Commands commands{"iR*" + std::string(rif), "iS*" + Left(nombre, 40)};
    // The line count of "LineasDireccion" is only ever raised to the wrapped lines' count,
    // and lines past the last wrapped one are not read: every wrapped line is sent.
    int n = 1;
    for (const std::string& line : lmStr2Lines(direccion, width)) {
        if (!line.empty()) commands.push_back(Numbered("i", n++, "00", line));
    }
    return commands;
}

StepCommands PasarDatosClientePACommands(std::string_view nombre, std::string_view rif,
                                         std::string_view direccion,
                                         std::string_view datosFactRel) {
    StepCommands commands{{"jR" + Left(rif, 20), 1}, {"jS" + PadRightCut(nombre, 40), 2}};
    if (!datosFactRel.empty()) commands.push_back({"jF" + std::string(datosFactRel), 3});
    int n = 0;
    for (const std::string& piece : AddressPieces(direccion)) {
        // The address shares step 3 with the reference line.
        commands.push_back({Numbered("j", ++n, "0", piece), 3});
    }
    return commands;
}

StepCommands PasarDatosClienteNCPACommands(std::string_view nombre, std::string_view rif,
                                           std::string_view direccion,
                                           std::string_view datosFactRel) {
    StepCommands commands{{"jR*" + std::string(rif), 1},
                          {"jS*" + Left(nombre, 40), 2},
                          {"jF*" + PadRightCut(datosFactRel, 22), 3}};
    int n = 0;
    for (const std::string& piece : AddressPieces(direccion)) {
        commands.push_back({Numbered("j", ++n, "0", piece), 4});
    }
    return commands;
}

}  // namespace corvid::documents
