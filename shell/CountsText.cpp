#include "shell/CountsText.h"

#include "base/Messages.h"
#include "shell/modStringRes.h"

namespace nesk {

using modStringRes::FormatResString;

std::string CountsText(const EntryNumbers& numbers, std::size_t selected) {
    const auto counted = [](std::int64_t count, int one, int many) {
        return FormatResString(count == 1 ? one : many, count);
    };
    std::string entries = FormatResString(
        Message::CountsEntries, counted(numbers.submenus, Message::CountsSubmenu, Message::CountsSubmenus),
        counted(numbers.parts, Message::CountsPart, Message::CountsParts));
    if (selected < 2) return entries;
    return FormatResString(Message::CountsSelected, entries, static_cast<std::int64_t>(selected));
}

} // namespace nesk
