#pragma once

namespace nesk::platform {

/// Keeps the system from showing a box of its own when a drive has no medium or is faulty; the call that met
/// the fault fails instead. Holds for the whole program from then on.
void SuppressSystemBoxes();

} // namespace nesk::platform
