#include "platform/ErrorMode.h"

#include <windows.h>

namespace nesk::platform {

void SuppressSystemBoxes() {
    ::SetErrorMode(::SetErrorMode(0) | SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX);
}

} // namespace nesk::platform
