#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace nesk {

/// The text form of an entry's id. The root's id is "R". Every other id is the parent's id, "." and the
/// counter that the parent assigned, in decimal without leading zeros. So every entry has exactly one id.
class MenuId {
public:
    static constexpr std::string_view Root = "R";

    /// Builds the id of a child.
    static std::string OfChild(std::string_view parentId, std::int32_t counter);

    /// The id of the parent; "" for the root.
    static std::string OfParent(std::string_view id) {
        const std::size_t end = id.rfind('.');
        return std::string(end == std::string_view::npos ? "" : id.substr(0, end));
    }

    /// The last part of a child's id: its counter, which identifies it among its siblings.
    static std::string LastPart(std::int32_t counter) { return std::to_string(counter); }

    /// Joins the parts of an id. The root's part comes first.
    template <typename Parts>
    static std::string Join(const Parts& parts) {
        std::string id;
        for (const std::string_view part : parts)
            id.append(id.empty() ? "" : ".").append(part);
        return id;
    }

    /// Splits an id into its parts, as views into `id`. The root's part comes first.
    static std::vector<std::string_view> Parts(std::string_view id);

    /// Reads the counter at the front of the rest of an id, for example ".5.2", and removes it from `rest`.
    /// @return nothing when `rest` does not begin with a counter
    static std::optional<std::int32_t> TakeCounter(std::string_view& rest);
};

} // namespace nesk
