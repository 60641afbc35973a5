#include "platform/Libraries.h"

namespace nesk::platform {

std::vector<Library> LinkedLibraries() {
    return {};
}

} // namespace nesk::platform
