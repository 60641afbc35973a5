#include "checking/MenuSearch.h"

#include "base/Messages.h"
#include "checking/TextFields.h"
#include "menu/MenuItem.h"
#include "menu/MenuItemCollection.h"
#include "partedit/PartReference.h"
#include "platform/TextFolding.h"
#include "shell/modStringRes.h"
#include "shell/modUtilities.h"

#include <algorithm>
#include <functional>

namespace nesk {

namespace {

// Stands between the fields of an entry. No text that a user types contains it.
constexpr char Separator = '\n';

constexpr std::size_t MostReserved = std::size_t{64} << 20; // bytes

// The clock is read once for so many entries.
constexpr int EntriesPerLook = 64;

} // namespace

MenuSearch::MenuSearch(MenuEditor& editor) : m_editor(editor) {
    editor.AddListener(*this);
}

MenuSearch::~MenuSearch() {
    m_editor.RemoveListener(*this);
}

// --- events of the editor ---

void MenuSearch::OnMenuReplaced() {
    m_names.clear();
    m_nameOfPath.clear();
    Restart();
}

void MenuSearch::OnMenuEvent(const MenuEvent& event) {
    if (event.kind == MenuEvent::Kind::None || m_isStale) return;
    // Without a text to find, nothing needs the slots, so they can wait.
    if (event.kind == MenuEvent::Kind::Edited && IsActive())
        m_edited.push_back(m_editor.Find(event.id));
    else
        m_isStale = true;
}

void MenuSearch::OnStateChanged() {
    // Saving may have replaced the tree by a copy. A later copy may be where the first one was.
    if (m_menu != m_editor.OpenMenu()) m_isStale = true;
    if (IsActive()) Synchronize();
}

// --- slots ---

void MenuSearch::Restart() {
    m_menu = m_editor.OpenMenu();
    m_isStale = false;
    m_edited.clear();
    m_buffer.clear();
    m_slots.clear();
    m_levels.clear();
    m_matches.clear();
    m_searched = m_namesSearched = 0;
    m_isWalked = m_menu == nullptr;
    ++m_version;
    if (m_menu == nullptr) return;
    // About what is needed, so that the buffer is not copied while it grows.
    m_buffer.reserve(std::min(m_menu->Memory()->Bytes() / 2, MostReserved));
    AddSlot(*m_menu);
    m_levels.push_back({0, 1});
}

// Brings the slots up to date with the menu. Saving may replace the whole tree by a copy.
void MenuSearch::Synchronize() {
    if (m_isStale)
        Restart();
    else if (!m_edited.empty())
        UpdateEdited();
}

void MenuSearch::UpdateEdited() {
    std::sort(m_edited.begin(), m_edited.end(), std::less<>());
    for (Index i = 0; i < m_slots.size(); ++i) {
        Slot& slot = m_slots[i];
        if (!std::binary_search(m_edited.begin(), m_edited.end(), slot.entry, std::less<>())) continue;
        SetSlotText(slot);
        if (i < m_searched) SetMatch(i, SlotMatches(slot));
        m_namesSearched = std::min(m_namesSearched, i);
    }
    m_edited.clear();
    ++m_version;
}

// Adds the next entry of the tree. Returns false at the end of the tree.
bool MenuSearch::WalkOne() {
    while (!m_levels.empty()) {
        Level& level = m_levels.back();
        const MenuEntry& parent = *m_slots[level.slot].entry;
        if (level.nextChild <= parent.ChildCount()) {
            const MenuItem& child = parent.Children()->Item(level.nextChild++);
            m_levels.push_back({static_cast<Index>(m_slots.size()), 1});
            AddSlot(child);
            return true;
        }
        m_slots[level.slot].end = static_cast<Index>(m_slots.size());
        m_levels.pop_back();
    }
    m_isWalked = true;
    return false;
}

void MenuSearch::AddSlot(const MenuEntry& entry) {
    Slot& slot = m_slots.emplace_back(Slot{&entry, 0, 0, static_cast<Index>(m_slots.size() + 1)});
    SetSlotText(slot);
}

// The text goes to the end of the buffer. A replaced text stays in it until the next walk.
void MenuSearch::SetSlotText(Slot& slot) {
    slot.begin = m_buffer.size();
    AppendFields(m_buffer, *slot.entry);
    slot.length = static_cast<Index>(m_buffer.size() - slot.begin);
    slot.name = NoName;
    const auto* item = slot.entry != m_menu ? static_cast<const MenuItem*>(slot.entry) : nullptr;
    if (item == nullptr || !item->ProgramID().starts_with('@')) return;
    slot.name = UnknownName;
    // The first walk, of which the user waits for the end, knows no names.
    if (m_nameOfPath.empty()) return;
    if (const auto known = m_nameOfPath.find(ProgramPath(*item)); known != m_nameOfPath.end())
        slot.name = known->second;
}

void MenuSearch::AppendFields(std::string& text, const MenuEntry& entry) {
    const auto append = [&](std::string_view field) {
        if (field.empty()) return;
        platform::AppendFolded(text, field);
        text += Separator;
    };
    append(entry.Caption());
    append(entry.Graphic());
    if (entry.ParentMenu() == nullptr) return;
    const auto& item = static_cast<const MenuItem&>(entry);
    for (const std::string_view field : {FieldText(entry, TextField::Program), item.Preview(),
                                         item.HelpFile(), item.HistoryDir(), item.HistoryTitle()})
        append(field);
}

// Path of the partinfo.ini of an entry; "" for none.
std::string MenuSearch::ProgramPath(const MenuEntry& entry) {
    if (entry.ParentMenu() == nullptr) return "";
    return PartReference::IniPath(std::string(static_cast<const MenuItem&>(entry).ProgramID()));
}

MenuSearch::Index MenuSearch::NameIndex(const std::string& path) {
    const auto [place, isNew] = m_nameOfPath.try_emplace(path, static_cast<Index>(m_names.size()));
    if (isNew) m_names.push_back({path, "", "", false});
    return place->second;
}

std::optional<MenuSearch::Index> MenuSearch::SlotOf(const MenuEntry& entry) const {
    if (m_isStale) return std::nullopt;
    const auto found =
        std::find_if(m_slots.begin(), m_slots.end(), [&](const Slot& slot) { return slot.entry == &entry; });
    if (found == m_slots.end()) return std::nullopt;
    return static_cast<Index>(found - m_slots.begin());
}

// --- searching ---

void MenuSearch::SetText(const std::string& text) {
    std::string folded = platform::Folded(text);
    if (folded == m_text) return;
    Synchronize();
    const bool extends = !m_text.empty() && folded.find(m_text) != std::string::npos;
    m_text = std::move(folded);
    ++m_version;
    if (extends) {
        // What did not match the shorter text does not match the longer one.
        std::erase_if(m_matches, [this](Index index) {
            Slot& slot = m_slots[index];
            slot.isMatch = SlotMatches(slot);
            return !slot.isMatch;
        });
        return;
    }
    for (const Index index : m_matches)
        m_slots[index].isMatch = false;
    m_matches.clear();
    m_searched = 0;
}

void MenuSearch::ForgetNames() {
    m_names.clear();
    m_nameOfPath.clear();
    m_isStale = true;
}

bool MenuSearch::SlotMatches(const Slot& slot) const {
    if (m_text.empty()) return false;
    if (TextOf(slot).find(m_text) != std::string_view::npos) return true;
    return slot.name < m_names.size() && m_names[slot.name].folded.find(m_text) != std::string::npos;
}

void MenuSearch::SetMatch(Index slot, bool isMatch) {
    if (m_slots[slot].isMatch == isMatch) return;
    m_slots[slot].isMatch = isMatch;
    ++m_version;
    const auto place = std::lower_bound(m_matches.begin(), m_matches.end(), slot);
    if (isMatch)
        m_matches.insert(place, slot);
    else
        m_matches.erase(place);
}

// Returns true when a file was read.
bool MenuSearch::ReadNextName() {
    const Index index = m_namesSearched++;
    Slot& slot = m_slots[index];
    if (slot.name == NoName) return false;
    if (slot.name == UnknownName) slot.name = NameIndex(ProgramPath(*slot.entry));
    Name& name = m_names[slot.name];
    const bool isFile = !name.isRead;
    if (isFile) {
        name.text = modUtilities::ReadIniValue(name.path, "Part", "Name");
        name.folded = platform::Folded(name.text);
        name.isRead = true;
    }
    const bool before = slot.isMatch;
    SetMatch(index, SlotMatches(slot));
    if (slot.isMatch && !before) ++m_foundByName;
    return isFile;
}

bool MenuSearch::Step(std::chrono::milliseconds budget) {
    Synchronize();
    const Clock::time_point end = Clock::now() + budget;
    for (int i = 1; !IsDone(); ++i) {
        if (IsActive() && m_searched < m_slots.size()) {
            SetMatch(m_searched, SlotMatches(m_slots[m_searched]));
            ++m_searched;
        } else if (!m_isWalked) {
            WalkOne();
        } else {
            const bool isFile = ReadNextName();
            i = isFile ? EntriesPerLook : i; // a file takes longer than an entry
        }
        if (i % EntriesPerLook == 0 && Clock::now() >= end) break;
    }
    return !IsDone();
}

void MenuSearch::FinishTexts() {
    Synchronize();
    while (WalkOne()) {
    }
    for (; m_searched < m_slots.size(); ++m_searched)
        SetMatch(m_searched, SlotMatches(m_slots[m_searched]));
}

bool MenuSearch::IsDone() const {
    if (m_isStale || !m_isWalked) return false;
    return !IsActive() || (m_searched == m_slots.size() && m_namesSearched == m_slots.size());
}

// --- results ---

bool MenuSearch::Matches(const MenuEntry& entry) const {
    if (m_text.empty()) return false;
    std::string text;
    AppendFields(text, entry);
    if (text.find(m_text) != std::string::npos) return true;
    const auto name = m_nameOfPath.find(ProgramPath(entry));
    return name != m_nameOfPath.end() && m_names[name->second].folded.find(m_text) != std::string::npos;
}

std::optional<MenuSearch::Found> MenuSearch::FoundBesideCaption(const MenuEntry& entry) const {
    if (m_text.empty()) return std::nullopt;
    for (const TextFieldInfo& info : TextFields()) {
        const std::string text(FieldText(entry, info.field));
        if (platform::Folded(text).find(m_text) == std::string::npos) continue;
        if (info.field == TextField::Caption) return std::nullopt;
        return Found{TextFieldName(info.field), text};
    }
    const auto name = m_nameOfPath.find(ProgramPath(entry));
    if (name == m_nameOfPath.end() || m_names[name->second].folded.find(m_text) == std::string::npos)
        return std::nullopt;
    return Found{modStringRes::LoadResString(Message::FindPartName), m_names[name->second].text};
}

std::size_t MenuSearch::NumberOf(const MenuEntry& entry) const {
    const std::optional<Index> slot = SlotOf(entry);
    if (!slot || !m_slots[*slot].isMatch) return 0;
    const auto place = std::lower_bound(m_matches.begin(), m_matches.end(), *slot);
    return static_cast<std::size_t>(place - m_matches.begin()) + 1;
}

const MenuEntry* MenuSearch::Next(const MenuEntry* from) const {
    if (m_isStale || m_matches.empty()) return nullptr;
    const Index slot = from != nullptr ? SlotOf(*from).value_or(0) : 0;
    const auto place = std::upper_bound(m_matches.begin(), m_matches.end(), slot);
    return m_slots[place != m_matches.end() ? *place : m_matches.front()].entry;
}

const MenuEntry* MenuSearch::NextFrom(const MenuEntry* from) const {
    if (m_isStale || m_matches.empty()) return nullptr;
    const Index slot = from != nullptr ? SlotOf(*from).value_or(0) : 0;
    const auto place = std::lower_bound(m_matches.begin(), m_matches.end(), slot);
    return m_slots[place != m_matches.end() ? *place : m_matches.front()].entry;
}

const MenuEntry* MenuSearch::Previous(const MenuEntry* from) const {
    if (m_isStale || m_matches.empty()) return nullptr;
    const Index slot = from != nullptr ? SlotOf(*from).value_or(0) : 0;
    const auto place = std::lower_bound(m_matches.begin(), m_matches.end(), slot);
    return m_slots[place != m_matches.begin() ? *(place - 1) : m_matches.back()].entry;
}

std::vector<bool> MenuSearch::LeadsToMatch(const MenuEntry& parent) {
    FinishTexts();
    std::vector<bool> result(static_cast<std::size_t>(parent.ChildCount()), false);
    const std::optional<Index> above = SlotOf(parent);
    if (!above) return result;
    Index slot = *above + 1;
    for (std::vector<bool>::reference leads : result) {
        const auto match = std::lower_bound(m_matches.begin(), m_matches.end(), slot);
        leads = match != m_matches.end() && *match < m_slots[slot].end;
        slot = m_slots[slot].end;
    }
    return result;
}

} // namespace nesk
