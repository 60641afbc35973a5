#include "menu/MenuItem.h"

#include "base/Messages.h"
#include "base/NeskError.h"
#include "base/modConvert.h"
#include "menu/BlockParser.h"
#include "menu/HistoryList.h"
#include "menu/MenuItemCollection.h"
#include "menu/MenuKeys.h"

#include <utility>

namespace nesk {

namespace {

// Nearly all items are of one of two types, whose names need no room in the arena.
constexpr KeptText Part = KeptText::Counted("\14Part Program");
constexpr KeptText Submenu = KeptText::Counted("\4Menu");
static_assert(Part == MenuItem::PartType && Submenu == MenuItem::SubmenuType);

} // namespace

std::unique_ptr<MenuItem> MenuItem::Create(MenuEntry& parent) {
    std::unique_ptr<MenuItem> item(new (*parent.m_arena) MenuItem);
    item->Initialize(parent);
    return item;
}

void MenuItem::Initialize(MenuEntry& parent) {
    m_parent = &parent;
    m_arena = parent.m_arena;
    m_counter = parent.NextCounter();
}

const std::string& MenuItem::RootDirectory() const {
    const MenuEntry* root = this;
    while (root->ParentMenu() != nullptr)
        root = root->ParentMenu();
    static const std::string none;
    return root != this ? root->RootDirectory() : none;
}

bool MenuItem::IsPart() const {
    return MenuType().starts_with('P') || MenuType().starts_with('p');
}

bool MenuItem::MoveUp() {
    return m_parent != nullptr && m_parent->SubMenus().MoveUp(*this);
}

bool MenuItem::MoveDown() {
    return m_parent != nullptr && m_parent->SubMenus().MoveDown(*this);
}

void MenuItem::SetMenuType(std::string_view value) {
    if (value == PartType)
        m_menuType = Part;
    else if (value == SubmenuType)
        m_menuType = Submenu;
    else
        m_menuType = Kept(value);
}

void MenuItem::SetFromFile(const BlockParser& parser) {
    const std::string_view value = parser.Value();
    // Keys of other programs are none of these.
    switch (static_cast<MenuKey>(parser.KeyIndex())) {
    case MenuKey::Caption: SetCaption(value); break;
    case MenuKey::Graphic: SetGraphic(value); break;
    case MenuKey::Preview: SetPreview(value); break;
    case MenuKey::HelpFile: SetHelpFile(value); break;
    case MenuKey::HelpTopic: SetHelpTopic(modConvert::CLng(value)); break;
    case MenuKey::MenuType: SetMenuType(value); break;
    case MenuKey::ProgramId: SetProgramID(value); break;
    case MenuKey::HistoryDir: SetHistoryDir(value); break;
    case MenuKey::HistoryTitle: SetHistoryTitle(value); break;
    }
}

void MenuItem::RegisterHistory() const {
    if (!HistoryDir().empty()) HistoryList::Append(std::string(HistoryDir()), std::string(HistoryTitle()));
}

void MenuItem::LoadFromFile(BlockParser& parser) {
    // The items below this one whose blocks are open, outermost first. A file may nest them deeper than the
    // machine stack could follow.
    std::vector<std::unique_ptr<MenuItem>> open;
    MenuItem* current = this;
    const auto close = [&] {
        std::unique_ptr<MenuItem> item = std::move(open.back());
        open.pop_back();
        current = open.empty() ? this : open.back().get();
        current->SubMenus().Append(std::move(item));
    };
    for (;;) {
        switch (parser.GetToken()) {
        case BlockParser::TokenKeyValue: current->SetFromFile(parser); break;
        case BlockParser::TokenStartBlock:
            if (parser.BlockType() != "SUBMENU")
                throw NeskError(5000, "MenuLoad", Message::MenuUnknownBlock,
                                {std::to_string(parser.CurrentLine()), parser.BlockType()});
            current = open.emplace_back(Create(*current)).get();
            break;
        case BlockParser::TokenEndBlock:
            current->RegisterHistory();
            if (open.empty()) return;
            close();
            break;
        default:
            while (!open.empty())
                close();
            return;
        }
    }
}

} // namespace nesk
