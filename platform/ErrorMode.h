#pragma once

namespace nesk::platform {

/// Disables the system's error boxes for drives that have no medium or are faulty; the failing call returns
/// an error instead. Applies to the whole program from then on.
void SuppressSystemBoxes();

} // namespace nesk::platform
