#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace nesk {

/// The text form of an entry's id: "R" for the root, and for every other entry its parent's id, "." and the
/// counter that the parent gave it, in decimal without leading zeros. So every entry has exactly one id.
class MenuId {
public:
    static constexpr std::string_view Root = "R";

    /// The id of a child.
    static std::string OfChild(std::string_view parentId, std::int32_t counter);

    /// The id of the parent; "" for the root's.
    static std::string OfParent(std::string_view id) {
        const std::size_t end = id.rfind('.');
        return std::string(end == std::string_view::npos ? "" : id.substr(0, end));
    }

    /// The last part of a child's id, which identifies it among its siblings: its counter.
    static std::string LastPart(std::int32_t counter) { return std::to_string(counter); }

    /// An id from its parts, the root's first.
    template <typename Parts>
    static std::string Join(const Parts& parts) {
        std::string id;
        for (const std::string_view part : parts)
            id.append(id.empty() ? "" : ".").append(part);
        return id;
    }

    /// The parts of an id, the root's first. Views into `id`.
    static std::vector<std::string_view> Parts(std::string_view id);

    /// Reads the counter at the front of an id's rest, ".5.2" for example, and removes it from there.
    /// @return nothing when no counter stands there
    static std::optional<std::int32_t> TakeCounter(std::string_view& rest);
};

} // namespace nesk
