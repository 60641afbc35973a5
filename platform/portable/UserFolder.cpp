#include "platform/UserFolder.h"

#include "platform/portable/Station.h"

namespace nesk::platform {

// A station that is a folder belongs to its user, so the data lies in it, but on none of its drives.
std::string UserDataFolder() {
    return portable::ToWindowsPath(portable::StationFolder() / "user");
}

} // namespace nesk::platform
