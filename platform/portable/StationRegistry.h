#pragma once

namespace nesk::platform::portable {

/// Lets go of the registry in use; the next use opens that of the station which is in place then. Handles
/// become invalid.
void ReopenStationRegistry();

} // namespace nesk::platform::portable
