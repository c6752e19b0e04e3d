#include "session/status_texts.h"

#include <cstdio>

namespace corvid::session {

std::string HexText(std::int32_t value) {
    char text[16];
    std::snprintf(text, sizeof text, "%X", static_cast<unsigned>(value));
    return text;
}

namespace {

std::string WithHex(const std::string& text, std::int32_t value) {
    return text + " (0x" + HexText(value) + ")";
}

}  // namespace

std::string ExplainStatus1(std::int32_t sts1) {
    const char* text = nullptr;
    switch (sts1) {
        case 64:
            text = "Modo entrenamiento: IDLE";
            break;
        case 65:
            text = "Modo entrenamiento: TF";
            break;
        case 66:
            text = "Modo entrenamiento: TNF";
            break;
        case 96:
            text = "Modo fiscal: IDLE";
            break;
        case 97:
            text = "Modo fiscal: TF";
            break;
        case 98:
            text = "Modo fiscal: TNF";
            break;
        case 104:
            text = "Memoria fiscal llena: IDLE";
            break;
        case 105:
            text = "Memoria fiscal llena: TF";
            break;
        case 106:
            text = "Memoria fiscal llena: TNF";
            break;
    }
    return WithHex(text ? text : "STS1 = " + std::to_string(sts1), sts1);
}

std::string ExplainStatus2(std::int32_t sts2) {
    const char* text = nullptr;
    switch (sts2) {
        case 8:
            text = "Error en gaveta";
            break;
        case 64:
            text = "STS2 = Ok";
            break;
        case 65:
            text = "Sin papel";
            break;
        case 66:
        case 67:
            text = "Sin papel/error mec\xE1nico";
            break;
        case 72:
            text = "Memoria fiscal llena";
            break;
        case 96:
            text = "Error fiscal";
            break;
        case 100:
            text = "Error en la memoria fiscal";
            break;
        case 108:
            text = "Error memoria fiscal llena";
            break;
    }
    return WithHex(text ? text : "STS2 = " + std::to_string(sts2), sts2);
}

}  // namespace corvid::session
