#include "menu/MenuItem.h"

#include "menu/BlockParser.h"
#include "menu/HistoryList.h"
#include "menu/MenuItemCollection.h"
#include "shell/Messages.h"
#include "shell/NeskError.h"
#include "shell/modConvert.h"

#include <utility>

namespace nesk {

void MenuItem::Initialize(MenuEntry& parent) {
    m_parent = &parent;
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

void MenuItem::SetFromFile(const BlockParser& parser) {
    const std::string& key = parser.Key();
    const std::string& value = parser.Value();
    if (key == "CAPTION")
        SetCaption(value);
    else if (key == "GRAPHIC")
        SetGraphic(value);
    else if (key == "PREVIEW")
        m_preview = value;
    else if (key == "HELPFILE")
        m_helpFile = value;
    else if (key == "HELPTOPIC")
        m_helpTopic = modConvert::CLng(value);
    else if (key == "MENUTYPE")
        m_menuType = value;
    else if (key == "PROGRAMID")
        m_programId = value;
    else if (key == "HISTORY_DIR")
        m_historyDir = value;
    else if (key == "HISTORY_TITLE")
        m_historyTitle = value;
}

void MenuItem::RegisterHistory() const {
    if (!m_historyDir.empty()) HistoryList::Append(m_historyDir, m_historyTitle);
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
            auto item = std::make_unique<MenuItem>();
            item->Initialize(current());
            open.push_back(std::move(item));
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
