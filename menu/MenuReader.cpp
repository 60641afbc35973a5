#include "menu/MenuReader.h"

#include "base/Messages.h"
#include "base/NeskError.h"
#include "base/modConvert.h"
#include "menu/BlockParser.h"
#include "menu/Menu.h"
#include "menu/MenuItem.h"
#include "menu/MenuItemCollection.h"
#include "menu/MenuKeys.h"

#include <string>
#include <utility>

namespace nesk {

namespace {

// Runs a read and adds to its error the line at which the parser stopped.
template <typename Read>
auto WithLine(const BlockParser& parser, Read read) {
    try {
        return read();
    } catch (NeskError& error) {
        error.line = parser.CurrentLine();
        throw;
    }
}

} // namespace

bool MenuReader::ReadMenu(Menu& menu) {
    return WithLine(m_parser, [&] { return ReadRoot(menu); });
}

bool MenuReader::ReadRoot(Menu& menu) {
    if (m_parser.GetToken() != BlockParser::TokenStartBlock || m_parser.BlockType() != "MENU")
        throw NeskError(5000, "MenuLoad", Message::MenuNotAMenuFile, {m_parser.SourceName()});
    bool ended = true;
    bool reading = true;
    while (reading) {
        switch (m_parser.GetToken()) {
        case BlockParser::TokenKeyValue:
            if (m_parser.KeyIndex() == static_cast<std::size_t>(MenuKey::Caption))
                menu.SetCaption(m_parser.Value());
            else if (m_parser.KeyIndex() == static_cast<std::size_t>(MenuKey::Graphic))
                menu.SetGraphic(m_parser.Value());
            break;
        case BlockParser::TokenStartBlock: {
            CheckSubmenuBlock();
            std::unique_ptr<MenuItem> item = menu.SubMenus().NewItem();
            ReadItem(*item);
            menu.SubMenus().Append(std::move(item));
            break;
        }
        case BlockParser::TokenEndFile: ended = false; [[fallthrough]];
        default: reading = false;
        }
    }
    if (m_parser.GetToken() != BlockParser::TokenEndFile)
        throw NeskError(5000, "Menu", Message::MenuTextAfterEnd, {std::to_string(m_parser.CurrentLine())});
    return ended;
}

std::vector<std::unique_ptr<MenuItem>> MenuReader::ReadItems(MenuEntry& parent) {
    return WithLine(m_parser, [&] {
        std::vector<std::unique_ptr<MenuItem>> items;
        for (;;) {
            switch (m_parser.GetToken()) {
            case BlockParser::TokenStartBlock:
                CheckSubmenuBlock();
                if (!ReadItem(*items.emplace_back(MenuItem::Create(parent))))
                    throw NeskError(5000, "MenuLoad", Message::MenuBlockNotEnded,
                                    {std::to_string(m_parser.CurrentLine())});
                break;
            case BlockParser::TokenEndFile: return items;
            default:
                throw NeskError(5000, "MenuLoad", Message::MenuNotABlock,
                                {std::to_string(m_parser.CurrentLine())});
            }
        }
    });
}

bool MenuReader::ReadItem(MenuItem& item) {
    // The items below this one whose blocks are open, outermost first. Recursion could overflow the machine
    // stack, because the input may be nested to any depth.
    std::vector<std::unique_ptr<MenuItem>> open;
    MenuItem* current = &item;
    const auto close = [&] {
        std::unique_ptr<MenuItem> done = std::move(open.back());
        open.pop_back();
        current = open.empty() ? &item : open.back().get();
        current->SubMenus().Append(std::move(done));
    };
    for (;;) {
        switch (m_parser.GetToken()) {
        case BlockParser::TokenKeyValue: SetField(*current); break;
        case BlockParser::TokenStartBlock:
            CheckSubmenuBlock();
            current = open.emplace_back(MenuItem::Create(*current)).get();
            break;
        case BlockParser::TokenEndBlock:
            if (m_onItemEnd) m_onItemEnd(*current);
            if (open.empty()) return true;
            close();
            break;
        default:
            while (!open.empty())
                close();
            return false;
        }
    }
}

void MenuReader::SetField(MenuItem& item) const {
    const std::string_view value = m_parser.Value();
    // Unknown keys, which other programs may write, match none of these cases.
    switch (static_cast<MenuKey>(m_parser.KeyIndex())) {
    case MenuKey::Caption: item.SetCaption(value); break;
    case MenuKey::Graphic: item.SetGraphic(value); break;
    case MenuKey::Preview: item.SetPreview(value); break;
    case MenuKey::HelpFile: item.SetHelpFile(value); break;
    case MenuKey::HelpTopic: item.SetHelpTopic(modConvert::CLng(value)); break;
    case MenuKey::MenuType: item.SetMenuType(value); break;
    case MenuKey::ProgramId: item.SetProgramID(value); break;
    case MenuKey::HistoryDir: item.SetHistoryDir(value); break;
    case MenuKey::HistoryTitle: item.SetHistoryTitle(value); break;
    }
}

void MenuReader::CheckSubmenuBlock() const {
    if (m_parser.BlockType() != "SUBMENU")
        throw NeskError(5000, "MenuLoad", Message::MenuUnknownBlock,
                        {std::to_string(m_parser.CurrentLine()), m_parser.BlockType()});
}

} // namespace nesk
