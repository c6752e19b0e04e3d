#include <windows.h>

#include "host/message_pump.h"

namespace corvid::host {

void PumpPlatformMessages() {
    MSG message;
    while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) {
        TranslateMessage(&message);
        DispatchMessageA(&message);
    }
}

}  // namespace corvid::host
