#include "platform/ErrorMode.h"

namespace nesk::platform {

// No system but Windows shows boxes by itself.
void SuppressSystemBoxes() {}

} // namespace nesk::platform
