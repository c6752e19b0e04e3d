// Opens a session on serial port N (default 5; ORV.ini's "Device<N>" in section
// "Config\ModComm" names its device) and prints what the printer says of itself. Exit status
// 0 only when the printer answered: a record read from the settings' substitutes fails.
#include <cstdlib>
#include <iostream>

#include "automation/vb_error.h"
#include "session/printer_fiscal.h"

int main(int argc, char** argv) {
    const auto port = static_cast<std::int16_t>(argc > 1 ? std::atoi(argv[1]) : 5);
    try {
        corvid::session::PrinterFiscal printer;
        printer.Abrir(port);
        const auto status = printer.StatusS1();
        const auto outcome = printer.outcome();
        std::cout << "serial " << status->Serial << ", last invoice " << status->numeroUltimaFactura
                  << ", status " << printer.explainSTS1() << "\n";
        printer.Cerrar();
        const bool answered = outcome.pfError == 0 && !status->isFake;
        if (!answered) std::cout << "no answer: " << outcome.DescripcionError << "\n";
        return answered ? 0 : 1;
    } catch (const corvid::automation::VbError& error) {
        std::cout << "error " << error.number() << ": " << error.description() << "\n";
        return 1;
    }
}
