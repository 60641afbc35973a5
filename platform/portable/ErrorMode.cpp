#include "platform/ErrorMode.h"

namespace nesk::platform {

// Only Windows shows such error boxes.
void SuppressSystemBoxes() {}

} // namespace nesk::platform
