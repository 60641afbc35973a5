#include "shell/CountsText.h"

#include "base/Messages.h"
#include "base/ProblemMessages.h"
#include "shell/modStringRes.h"

namespace nesk {

using modStringRes::FormatResString;

std::string CountsText(const EntryNumbers& numbers, std::size_t selected, std::size_t problems) {
    const auto counted = [](std::int64_t count, int one, int many) {
        return FormatResString(count == 1 ? one : many, count);
    };
    std::string text = FormatResString(
        Message::CountsEntries, counted(numbers.submenus, Message::CountsSubmenu, Message::CountsSubmenus),
        counted(numbers.parts, Message::CountsPart, Message::CountsParts));
    if (selected > 1)
        text = FormatResString(Message::CountsSelected, text, static_cast<std::int64_t>(selected));
    if (problems == 0) return text;
    return FormatResString(
        Message::ProblemsAndCounts, text,
        counted(static_cast<std::int64_t>(problems), Message::ProblemsOne, Message::ProblemsSeveral));
}

} // namespace nesk
