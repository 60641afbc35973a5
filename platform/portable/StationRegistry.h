#pragma once

namespace nesk::platform::portable {

/// Closes the registry in use. The next use opens the registry of the station that is current then. Handles
/// become invalid.
void ReopenStationRegistry();

} // namespace nesk::platform::portable
