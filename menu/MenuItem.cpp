#include "menu/MenuItem.h"

#include "menu/BlockParser.h"
#include "menu/HistoryList.h"
#include "menu/MenuItemCollection.h"
#include "shell/Messages.h"
#include "shell/NeskError.h"
#include "shell/modConvert.h"

#include <cstring>
#include <utility>

namespace nesk {

std::unique_ptr<MenuItem> MenuItem::Create(MenuEntry& parent) {
    std::unique_ptr<MenuItem> item(new (*parent.m_arena) MenuItem);
    item->Initialize(parent);
    return item;
}

namespace {

// Compares with a word of the length that is known to be the same.
template <std::size_t Size>
bool Is(std::string_view key, const char (&word)[Size]) {
    return std::memcmp(key.data(), word, Size - 1) == 0;
}

} // namespace

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
    return m_menuType.starts_with('P') || m_menuType.starts_with('p');
}

bool MenuItem::MoveUp() {
    return m_parent != nullptr && m_parent->SubMenus().MoveUp(*this);
}

bool MenuItem::MoveDown() {
    return m_parent != nullptr && m_parent->SubMenus().MoveDown(*this);
}

// Nearly all items are of one of two types, whose names need no room in the arena.
void MenuItem::SetMenuType(std::string_view value) {
    if (value == PartType)
        m_menuType = PartType;
    else if (value == SubmenuType)
        m_menuType = SubmenuType;
    else
        m_menuType = Kept(value);
}

void MenuItem::SetFromFile(const BlockParser& parser) {
    const std::string_view key = parser.Key();
    const std::string_view value = parser.Value();
    // The length tells most keys apart, so that a key is compared with two others at most.
    switch (key.size()) {
    case 7:
        if (Is(key, "CAPTION"))
            SetCaption(value);
        else if (Is(key, "GRAPHIC"))
            SetGraphic(value);
        else if (Is(key, "PREVIEW"))
            SetPreview(value);
        break;
    case 8:
        if (Is(key, "HELPFILE"))
            SetHelpFile(value);
        else if (Is(key, "MENUTYPE"))
            SetMenuType(value);
        break;
    case 9:
        if (Is(key, "HELPTOPIC"))
            SetHelpTopic(modConvert::CLng(value));
        else if (Is(key, "PROGRAMID"))
            SetProgramID(value);
        break;
    case 11:
        if (Is(key, "HISTORY_DIR")) SetHistoryDir(value);
        break;
    case 13:
        if (Is(key, "HISTORY_TITLE")) SetHistoryTitle(value);
        break;
    default: break;
    }
}

void MenuItem::RegisterHistory() const {
    if (!m_historyDir.empty()) HistoryList::Append(std::string(m_historyDir), std::string(m_historyTitle));
}

void MenuItem::LoadFromFile(BlockParser& parser) {
    // The items below this one whose blocks are open, outermost first. A file may nest them deeper than the
    // machine stack could follow.
    std::vector<std::unique_ptr<MenuItem>> open;
    const auto current = [&]() -> MenuItem& { return open.empty() ? *this : *open.back(); };
    const auto close = [&] {
        std::unique_ptr<MenuItem> item = std::move(open.back());
        open.pop_back();
        current().SubMenus().Append(std::move(item));
    };
    for (;;) {
        switch (parser.GetToken()) {
        case BlockParser::TokenKeyValue: current().SetFromFile(parser); break;
        case BlockParser::TokenStartBlock: {
            if (parser.BlockType() != "SUBMENU")
                throw NeskError(5000, "MenuLoad", Message::MenuUnknownBlock,
                                {std::to_string(parser.CurrentLine()), parser.BlockType()});
            open.push_back(Create(current()));
            break;
        }
        case BlockParser::TokenEndBlock:
            current().RegisterHistory();
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
