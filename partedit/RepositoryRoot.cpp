#include "partedit/RepositoryRoot.h"

#include "base/NeskError.h"
#include "settings/RegEntry.h"
#include "shell/modUtilities.h"

namespace nesk {

namespace {

// A text value of a key; "" when it does not exist.
std::string ReadValue(const std::string& key, const std::string& name) {
    try {
        RegEntry entry;
        entry.OpenKey(key);
        return entry.GetString(name);
    } catch (const NeskError&) {
        return "";
    }
}

std::string RootUnder(const std::string& key) {
    const std::string root = ReadValue(key, "RepositoryRoot");
    return root.substr(0, root.find_last_not_of('\\') + 1);
}

} // namespace

std::string RepositoryRoot() {
    const std::string user = ReadValue("Neskworks", "NeskUser");
    const std::string own = user.empty() ? "" : RootUnder(user);
    return modUtilities::DirectoryExists(own) ? own : RootUnder("Common");
}

} // namespace nesk
