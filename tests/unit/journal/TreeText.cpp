#include "unit/journal/TreeText.h"

#include "menu/MenuItem.h"
#include "menu/MenuItemCollection.h"

#include <utility>
#include <vector>

namespace nesk::testing {

namespace {

std::string TextOf(const Menu& menu, bool withIds) {
    std::string text;
    std::vector<std::pair<const MenuEntry*, std::size_t>> open{{&menu, 0}};
    while (!open.empty()) {
        const auto [entry, level] = open.back();
        open.pop_back();
        text.append(level, ' ');
        if (withIds) text.append(entry->ID()).append(1, ' ');
        text.append(entry->Caption()).append(1, '|').append(entry->Graphic());
        if (const auto* item = dynamic_cast<const MenuItem*>(entry)) {
            for (const std::string_view field : {item->MenuType(), item->Preview(), item->HelpFile(),
                                                 item->ProgramID(), item->HistoryDir(), item->HistoryTitle()})
                text.append(1, '|').append(field);
            text.append(1, '|').append(std::to_string(item->HelpTopic()));
        }
        text += '\n';
        for (int i = entry->ChildCount(); i > 0; --i)
            open.emplace_back(&entry->Children()->Item(i), level + 1);
    }
    return text;
}

} // namespace

std::string TreeText(const Menu& menu) {
    return TextOf(menu, true);
}

std::string TreeTextWithoutIds(const Menu& menu) {
    return TextOf(menu, false);
}

} // namespace nesk::testing
