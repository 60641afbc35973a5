#include "menu/MenuId.h"

#include <charconv>
#include <system_error>

namespace nesk {

std::string MenuId::OfChild(std::string_view parentId, std::int32_t counter) {
    return std::string(parentId).append(1, '.').append(LastPart(counter));
}

std::vector<std::string_view> MenuId::Parts(std::string_view id) {
    std::vector<std::string_view> parts;
    for (;;) {
        const std::size_t end = id.find('.');
        parts.push_back(id.substr(0, end));
        if (end == std::string_view::npos) return parts;
        id.remove_prefix(end + 1);
    }
}

std::optional<std::int32_t> MenuId::TakeCounter(std::string_view& rest) {
    if (rest.size() < 2 || rest[0] != '.' || rest[1] < '1' || rest[1] > '9') return std::nullopt;
    std::int32_t counter = 0;
    const auto [end, error] = std::from_chars(rest.data() + 1, rest.data() + rest.size(), counter);
    if (error != std::errc()) return std::nullopt;
    rest.remove_prefix(static_cast<std::size_t>(end - rest.data()));
    return counter;
}

} // namespace nesk
