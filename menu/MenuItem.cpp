#include "menu/MenuItem.h"

#include "menu/HistoryList.h"
#include "menu/MenuItemCollection.h"
#include "menu/MenuReader.h"
#include "menu/MenuWriter.h"

namespace nesk {

namespace {

// Nearly all items have one of these two types, so their names are not stored in the arena.
constexpr ArenaText Part = ArenaText::Counted("\14Part Program");
constexpr ArenaText Submenu = ArenaText::Counted("\4Menu");
static_assert(Part == MenuItem::PartType && Submenu == MenuItem::SubmenuType);

} // namespace

std::unique_ptr<MenuItem> MenuItem::Create(MenuEntry& parent) {
    std::unique_ptr<MenuItem> item(new (*parent.m_arena) MenuItem);
    item->Initialize(parent);
    return item;
}

std::unique_ptr<MenuItem> MenuItem::CreateWith(MenuEntry& parent, std::int32_t counter) {
    std::unique_ptr<MenuItem> item(new (*parent.m_arena) MenuItem);
    item->m_parent = &parent;
    item->m_arena = parent.m_arena;
    item->m_counter = counter;
    parent.KeepCounter(counter);
    return item;
}

std::unique_ptr<MenuItem> MenuItem::CopyOf(const MenuItem& item, MenuEntry& parent) {
    std::unique_ptr<MenuItem> copy(new (*parent.m_arena) MenuItem);
    copy->m_parent = &parent;
    copy->m_arena = parent.m_arena;
    copy->m_counter = item.m_counter;
    copy->m_nextCounter = item.m_nextCounter;
    copy->SetCaption(item.Caption());
    copy->SetGraphic(item.Graphic());
    copy->SetPreview(item.Preview());
    copy->SetHelpFile(item.HelpFile());
    copy->SetHelpTopic(item.HelpTopic());
    copy->SetMenuType(item.MenuType());
    copy->SetProgramID(item.ProgramID());
    copy->SetHistoryDir(item.HistoryDir());
    copy->SetHistoryTitle(item.HistoryTitle());
    return copy;
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

void MenuItem::LoadFromFile(BlockParser& parser) {
    MenuReader(parser, HistoryList::Register).ReadItem(*this);
}

void MenuItem::SaveToFile(ByteSink& file, std::size_t level) const {
    const MenuItem* const items[] = {this};
    MenuWriter(file).WriteItems(items, level);
}

} // namespace nesk
