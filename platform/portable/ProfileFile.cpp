#include "platform/ProfileFile.h"

#include "platform/common/ProfileSearch.h"

namespace nesk::platform {

std::string ReadProfileString(const std::string& file, const std::string& section, const std::string& key,
                              const std::string& defaultValue, std::size_t capacity) {
    return common::SearchProfile(file, section, key, defaultValue, capacity);
}

} // namespace nesk::platform
