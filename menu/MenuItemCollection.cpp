#include "menu/MenuItemCollection.h"

#include "base/Messages.h"
#include "base/NeskError.h"
#include "menu/MenuItem.h"

#include <algorithm>
#include <string>
#include <unordered_map>
#include <utility>

namespace nesk {

namespace {

constexpr std::size_t FirstCapacity = 4;

} // namespace

std::unique_ptr<MenuItemCollection> MenuItemCollection::Create(Arena& arena) {
    return std::unique_ptr<MenuItemCollection>(new (arena) MenuItemCollection(arena));
}

MenuItemCollection::MenuItemCollection(Arena& arena) : m_items(&arena), m_counters(&arena) {}

// Deletes the children at all depths in a loop. Recursion could overflow the machine stack in a deep tree.
// The loop allocates no memory, because there may be none left.
MenuItemCollection::~MenuItemCollection() {
    MenuItemCollection* at = this;
    for (;;) {
        if (at->m_items.empty()) {
            if (at == this) return;
            at = at->m_above;
            at->ReleaseLast();
        } else if (MenuItemCollection* below = at->m_items.back()->Children(); below != nullptr) {
            below->m_above = at;
            at = below;
        } else {
            at->ReleaseLast();
        }
    }
}

void MenuItemCollection::ReleaseLast() {
    delete m_items.back();
    m_items.pop_back();
}

void MenuItemCollection::Initialize(MenuEntry& owner) {
    m_owner = &owner;
}

std::size_t MenuItemCollection::CheckedIndex(int position, std::size_t count) {
    if (position < 1 || static_cast<std::size_t>(position) > count)
        throw NeskError(RuntimeError::SubscriptOutOfRange, "MenuItemCollection.Item",
                        Message::SubscriptOutOfRange, {std::to_string(position)});
    return static_cast<std::size_t>(position) - 1;
}

void MenuItemCollection::CheckCapacity() const {
    if (m_items.size() >= static_cast<std::size_t>(MaxCount))
        throw NeskError(RuntimeError::Overflow, "MenuItemCollection.Add", Message::TooManyChildren);
}

// Reserves memory for one more child. When the allocation fails, items and counters are unchanged and stay
// consistent.
void MenuItemCollection::Grow() {
    if (m_items.size() < std::min(m_items.capacity(), m_counters.capacity())) return;
    // Most menus have only a few entries.
    const std::size_t capacity = std::max(FirstCapacity, m_items.size() * 2);
    m_items.reserve(capacity);
    m_counters.reserve(capacity);
}

MenuItem& MenuItemCollection::Item(int position) {
    return *m_items[CheckedIndex(position, m_items.size())];
}

const MenuItem& MenuItemCollection::Item(int position) const {
    return *m_items[CheckedIndex(position, m_items.size())];
}

std::unique_ptr<MenuItem> MenuItemCollection::NewItem() {
    CheckCapacity();
    return MenuItem::Create(*m_owner);
}

MenuItem& MenuItemCollection::Add(std::string_view name, std::string_view type) {
    std::unique_ptr<MenuItem> item = NewItem();
    item->SetCaption(name);
    item->SetMenuType(type);
    return Append(std::move(item));
}

void MenuItemCollection::AddItemFromFile(BlockParser& parser) {
    std::unique_ptr<MenuItem> item = NewItem();
    item->LoadFromFile(parser);
    Append(std::move(item));
}

MenuItem& MenuItemCollection::Append(std::unique_ptr<MenuItem>&& item) {
    ReserveOne();
    m_counters.push_back(item->Counter());
    m_items.push_back(item.release());
    return *m_items.back();
}

void MenuItemCollection::ReserveOne() {
    CheckCapacity();
    Grow();
}

MenuItem& MenuItemCollection::Insert(int position, std::unique_ptr<MenuItem>&& item) {
    CheckCapacity();
    const auto index = static_cast<std::ptrdiff_t>(CheckedIndex(position, m_items.size() + 1));
    Grow();
    m_counters.insert(m_counters.begin() + index, item->Counter());
    return **m_items.insert(m_items.begin() + index, item.release());
}

std::unique_ptr<MenuItem> MenuItemCollection::Take(int position) {
    const std::size_t index = CheckedIndex(position, m_items.size());
    std::unique_ptr<MenuItem> item(m_items[index]);
    m_items.erase(m_items.begin() + static_cast<std::ptrdiff_t>(index));
    m_counters.erase(m_counters.begin() + static_cast<std::ptrdiff_t>(index));
    return item;
}

// Counters are assigned in order, and most menus are never rearranged. So the child is usually at the index
// that its counter suggests, or a little before it when siblings were removed.
std::size_t MenuItemCollection::IndexOfCounter(std::int32_t counter) const {
    const std::size_t guess = counter > 0 ? static_cast<std::size_t>(counter) - 1 : 0;
    if (guess < m_counters.size() && m_counters[guess] == counter) return guess;
    const auto found = std::find(m_counters.begin(), m_counters.end(), counter);
    return static_cast<std::size_t>(found - m_counters.begin());
}

int MenuItemCollection::PositionOf(const MenuItem& item) const {
    const std::size_t index = IndexOfCounter(item.Counter());
    return index < m_items.size() && m_items[index] == &item ? static_cast<int>(index) + 1 : 0;
}

const MenuItem* MenuItemCollection::FindCounter(std::int32_t counter) const {
    const std::size_t index = IndexOfCounter(counter);
    return index < m_items.size() ? m_items[index] : nullptr;
}

MenuItem* MenuItemCollection::FindCounter(std::int32_t counter) {
    const std::size_t index = IndexOfCounter(counter);
    return index < m_items.size() ? m_items[index] : nullptr;
}

void MenuItemCollection::RemoveItem(const MenuItem& item) {
    const int position = PositionOf(item);
    if (position != 0) Take(position)->Terminate();
}

void MenuItemCollection::Swap(std::size_t a, std::size_t b) {
    std::swap(m_items[a], m_items[b]);
    std::swap(m_counters[a], m_counters[b]);
}

bool MenuItemCollection::MoveUp(const MenuItem& item) {
    const int position = PositionOf(item);
    if (position <= 1) return false;
    Swap(static_cast<std::size_t>(position) - 1, static_cast<std::size_t>(position) - 2);
    return true;
}

bool MenuItemCollection::MoveDown(const MenuItem& item) {
    const int position = PositionOf(item);
    if (position == 0 || position >= Count()) return false;
    Swap(static_cast<std::size_t>(position) - 1, static_cast<std::size_t>(position));
    return true;
}

bool MenuItemCollection::Reorder(const std::vector<std::int32_t>& counters) {
    if (counters.size() != m_counters.size()) return false;
    std::unordered_map<std::int32_t, MenuItem*> rest;
    for (MenuItem* item : m_items)
        rest.emplace(item->Counter(), item);
    std::vector<MenuItem*> items;
    for (const std::int32_t counter : counters) {
        const auto found = rest.find(counter);
        if (found == rest.end()) return false;
        items.push_back(found->second);
        rest.erase(found);
    }
    std::copy(items.begin(), items.end(), m_items.begin());
    std::copy(counters.begin(), counters.end(), m_counters.begin());
    return true;
}

void MenuItemCollection::Renumber(const std::vector<std::int32_t>& counters) {
    for (std::size_t i = 0; i < m_items.size() && i < counters.size(); ++i) {
        m_items[i]->SetPlace(*m_owner, counters[i]);
        m_owner->KeepCounter(counters[i]);
        m_counters[i] = counters[i];
    }
}

void MenuItemCollection::Terminate() {
    if (m_items.size() > 1) {
        std::for_each(m_items.begin(), m_items.end() - 1, std::default_delete<MenuItem>());
        m_items.erase(m_items.begin(), m_items.end() - 1);
        m_counters.erase(m_counters.begin(), m_counters.end() - 1);
    }
    m_owner = nullptr;
}

} // namespace nesk
