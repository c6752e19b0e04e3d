#include <windows.h>

#include "port/message_pump.h"

namespace corvid::port {

void PumpPlatformMessages() {
    MSG message;
    while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) {
        TranslateMessage(&message);
        DispatchMessageA(&message);
    }
}

}  // namespace corvid::port
