#include "checking/MenuCheck.h"

#include "checking/EntryPlace.h"
#include "menu/Menu.h"
#include "menu/MenuItem.h"
#include "menu/MenuItemCollection.h"
#include "platform/TextEncoding.h"

#include <algorithm>
#include <functional>
#include <iterator>
#include <string>
#include <tuple>

namespace nesk {

namespace {

using EntryRules::FileFields;

// The clock is read once for so many entries.
constexpr int EntriesPerLook = 16;

// While files are being looked up, what is known is shown so often.
constexpr std::chrono::milliseconds AnswerPause{250};

} // namespace

MenuCheck::MenuCheck(MenuEditor& editor, std::shared_ptr<FileInspector> inspector, std::function<void()> wake)
    : m_editor(editor), m_files(std::move(inspector), std::move(wake)), m_menu(editor.OpenMenu()) {
    editor.AddListener(*this);
}

MenuCheck::~MenuCheck() {
    m_editor.RemoveListener(*this);
}

void MenuCheck::SetOptions(CheckOptions options) {
    m_options = std::move(options);
    m_judged = 0;
    m_judgesAll = true;
}

// --- events of the editor ---

void MenuCheck::OnMenuReplaced() {
    m_files.Clear();
    Restart();
}

void MenuCheck::OnMenuEvent(const MenuEvent& event) {
    if (event.kind == MenuEvent::Kind::None) return;
    if (event.kind == MenuEvent::Kind::Edited)
        m_edited.push_back(m_editor.Find(event.id));
    else
        BeginWalk();
}

void MenuCheck::OnStateChanged() {
    // Saving may have replaced the tree by a copy.
    if (m_menu != m_editor.OpenMenu()) Restart();
}

// --- the walk over the tree ---

// Forgets all entries, but not what is known of files.
void MenuCheck::Restart() {
    m_menu = m_editor.OpenMenu();
    m_slots.clear();
    m_old.clear();
    m_edited.clear();
    BeginWalk();
}

// Nothing may be told about the entries until they were walked: some may be gone.
void MenuCheck::BeginWalk() {
    if (m_isStale) return;
    m_isStale = true;
    m_findings.clear();
    m_marks.clear();
    ++m_version;
}

void MenuCheck::StartWalk() {
    m_isStale = false;
    m_isWalked = false;
    // What was walked, if the walk before was not finished, and what it had not taken over.
    std::move(m_slots.begin(), m_slots.end(), std::back_inserter(m_old));
    m_slots.clear();
    m_oldNext = 0;
    m_oldIndex.clear();
    m_levels.clear();
    m_families.clear();
    m_pending.clear();
    m_groupsAll = m_groupsTitles = m_mustPublish = true;
    if (m_menu == nullptr) return;
    m_slots.reserve(m_old.size() + 1);
    Take(*m_menu, NoIndex);
    m_levels.push_back({0, 1});
}

// Adds the next entry of the tree. Returns false at the end of the tree.
bool MenuCheck::WalkOne() {
    while (!m_levels.empty()) {
        Level& level = m_levels.back();
        const MenuEntry& parent = *m_slots[level.slot].entry;
        if (level.nextChild <= parent.ChildCount()) {
            const Index above = level.slot;
            const MenuItem& child = parent.Children()->Item(level.nextChild++);
            m_levels.push_back({static_cast<Index>(m_slots.size()), 1});
            Take(child, above);
            return true;
        }
        m_levels.pop_back();
    }
    EndWalk();
    return false;
}

// Adds the slot of an entry: that of the last walk, if it has one. Most entries are where they were.
void MenuCheck::Take(const MenuEntry& entry, Index parent) {
    Slot* old = nullptr;
    if (m_oldNext < m_old.size() && m_old[m_oldNext].entry == &entry) {
        old = &m_old[m_oldNext];
    } else if (!m_old.empty()) {
        if (m_oldIndex.empty())
            for (std::size_t i = 0; i < m_old.size(); ++i)
                m_oldIndex.emplace(m_old[i].entry, i);
        if (const auto found = m_oldIndex.find(&entry); found != m_oldIndex.end())
            old = &m_old[m_oldNext = found->second];
    }
    if (old == nullptr) {
        m_slots.emplace_back().entry = &entry;
    } else {
        ++m_oldNext;
        m_slots.push_back(std::move(*old));
        old->entry = nullptr;
    }
    Slot& slot = m_slots.back();
    slot.parent = parent;
    slot.sameTitle = NoIndex;
    // A submenu may have got its first entry or lost its last one.
    if (const int children = entry.ChildCount(); children != slot.children) {
        slot.children = children;
        slot.isFresh = true;
    }
    if (slot.isPending) m_pending.push_back(static_cast<Index>(m_slots.size() - 1));
}

void MenuCheck::EndWalk() {
    m_isWalked = true;
    m_old.clear();
    m_oldIndex.clear();
    m_judged = 0;
}

// --- what is checked after the walk ---

bool MenuCheck::HasWork() const {
    return m_isStale || !m_isWalked || !m_edited.empty() || m_judged < m_slots.size() || m_groupsAll ||
           m_groupsTitles || !m_families.empty() || AreAnswersDue() || m_mustPublish;
}

bool MenuCheck::Step(std::chrono::milliseconds budget) {
    const Clock::time_point end = Clock::now() + budget;
    TakeAnswers();
    if (m_isStale) StartWalk();
    for (int i = 1; HasWork(); ++i) {
        if (!m_isWalked)
            WalkOne();
        else if (!m_edited.empty())
            CheckEdited();
        else if (m_judged < m_slots.size())
            JudgeNext();
        else if (m_groupsAll || m_groupsTitles || !m_families.empty())
            Group();
        else if (AreAnswersDue())
            JudgePending();
        else
            Publish();
        if (i % EntriesPerLook == 0 && Clock::now() >= end) break;
    }
    m_files.Begin();
    return HasWork();
}

void MenuCheck::TakeAnswers() {
    const FileLookup::News news = m_files.TakeAnswers();
    m_hasAnswers = m_hasAnswers || news.isFirst;
    if (!news.isChanged) return;
    m_judgesAll = true;
    m_judged = 0;
}

// While answers come in, they are shown now and then.
bool MenuCheck::AreAnswersDue() const {
    return m_hasAnswers && (m_files.Waiting() == 0 || Clock::now() - m_lastAnswers >= AnswerPause);
}

// Judges the entries that wait for a file.
void MenuCheck::JudgePending() {
    m_lastAnswers = Clock::now();
    m_hasAnswers = false;
    for (const Index index : std::exchange(m_pending, {})) {
        m_slots[index].isPending = false;
        Judge(index);
    }
    m_mustPublish = true;
}

void MenuCheck::CheckEdited() {
    std::sort(m_edited.begin(), m_edited.end(), std::less<>());
    for (Index index = 0; index < m_slots.size(); ++index) {
        Slot& slot = m_slots[index];
        if (!std::binary_search(m_edited.begin(), m_edited.end(), slot.entry, std::less<>())) continue;
        const std::uint64_t captionBefore = slot.captionKey;
        const std::uint64_t titleBefore = slot.titleKey;
        slot.isFresh = true;
        Judge(index);
        if (slot.captionKey != captionBefore && slot.parent != NoIndex) m_families.push_back(slot.parent);
        // Two parts with one title are no problem when they are the same part, so any field may matter.
        if (slot.titleKey != 0 || titleBefore != 0) m_groupsTitles = true;
    }
    m_edited.clear();
    m_mustPublish = true;
}

// Judges the next slot that needs it. After a walk, those that were taken over do not.
void MenuCheck::JudgeNext() {
    const Index index = m_judged++;
    if (m_judgesAll || m_slots[index].isFresh) {
        Judge(index);
        m_mustPublish = true;
    }
    if (m_judged == m_slots.size()) m_judgesAll = false;
}

// Looks at the texts of an entry.
void MenuCheck::Look(Slot& slot) {
    slot.isFresh = false;
    slot.captionKey = slot.parent != NoIndex ? EntryRules::KeyOf(slot.entry->Caption()) : 0;
    slot.titleKey = EntryRules::KeyOf(FieldText(*slot.entry, TextField::HistoryTitle));
    if (slot.parent == NoIndex || !static_cast<const MenuItem*>(slot.entry)->IsPart()) slot.titleKey = 0;
    for (std::size_t i = 0; i < FileFields.size(); ++i) {
        const std::string_view path = EntryRules::PathOf(*slot.entry, FileFields[i]);
        slot.files[i] =
            path.empty() ? FileLookup::NoIndex : m_files.IndexOf(path, EntryRules::UseOf(FileFields[i]));
    }
}

// Finds the problems of an entry, except those that come from comparing entries.
void MenuCheck::Judge(Index index) {
    Slot& slot = m_slots[index];
    if (slot.isFresh) Look(slot);
    slot.problems.clear();
    EntryRules::AddOwnProblems(*slot.entry, m_options, slot.problems);
    const bool wasPending = std::exchange(slot.isPending, false);
    for (std::size_t i = 0; i < FileFields.size(); ++i) {
        if (slot.files[i] == FileLookup::NoIndex) continue;
        if (const FileFacts* facts = m_files.Facts(slot.files[i]))
            EntryRules::AddFileProblem(FileFields[i], *facts, slot.problems);
        else
            slot.isPending = true;
    }
    // A slot that was waiting already is in the list.
    if (slot.isPending && !wasPending) m_pending.push_back(index);
}

// --- comparing entries ---

void MenuCheck::Group() {
    if (m_groupsAll)
        GroupAllSiblings();
    else
        for (const Index parent : m_families)
            GroupSiblings(parent);
    m_families.clear();
    m_groupsAll = false;
    if (m_groupsTitles) GroupTitles();
    m_groupsTitles = false;
    m_mustPublish = true;
}

// Marks the children of one parent whose caption another child has too.
void MenuCheck::GroupSiblings(Index parent) {
    std::vector<std::pair<std::uint64_t, Index>> keys;
    for (Index index = parent + 1; index < m_slots.size(); ++index)
        if (m_slots[index].parent == parent) keys.emplace_back(m_slots[index].captionKey, index);
    std::sort(keys.begin(), keys.end());
    for (std::size_t i = 0; i < keys.size(); ++i)
        m_slots[keys[i].second].isDoubled =
            keys[i].first != 0 && ((i > 0 && keys[i - 1].first == keys[i].first) ||
                                   (i + 1 < keys.size() && keys[i + 1].first == keys[i].first));
}

void MenuCheck::GroupAllSiblings() {
    std::vector<std::tuple<Index, std::uint64_t, Index>> keys;
    keys.reserve(m_slots.size());
    for (Index index = 0; index < m_slots.size(); ++index) {
        m_slots[index].isDoubled = false;
        if (m_slots[index].captionKey != 0)
            keys.emplace_back(m_slots[index].parent, m_slots[index].captionKey, index);
    }
    std::sort(keys.begin(), keys.end());
    for (std::size_t i = 1; i < keys.size(); ++i) {
        const auto& [parent, key, index] = keys[i];
        const auto& [parentBefore, keyBefore, indexBefore] = keys[i - 1];
        if (parent == parentBefore && key == keyBefore)
            m_slots[index].isDoubled = m_slots[indexBefore].isDoubled = true;
    }
}

// Marks the parts whose history title another part has too. The same part may have several buttons.
void MenuCheck::GroupTitles() {
    std::vector<std::pair<std::uint64_t, Index>> keys;
    for (Index index = 0; index < m_slots.size(); ++index) {
        m_slots[index].sameTitle = NoIndex;
        if (m_slots[index].titleKey != 0) keys.emplace_back(m_slots[index].titleKey, index);
    }
    std::sort(keys.begin(), keys.end());
    const auto isSamePart = [this](Index a, Index b) {
        const auto& left = static_cast<const MenuItem&>(*m_slots[a].entry);
        const auto& right = static_cast<const MenuItem&>(*m_slots[b].entry);
        return platform::EqualNoCase(left.ProgramID(), right.ProgramID()) &&
               platform::EqualNoCase(left.HistoryDir(), right.HistoryDir());
    };
    for (std::size_t begin = 0, end = 0; begin < keys.size(); begin = end) {
        const Index first = keys[begin].second;
        for (end = begin + 1; end < keys.size() && keys[end].first == keys[begin].first; ++end) {
            const Index other = keys[end].second;
            if (isSamePart(first, other)) continue;
            m_slots[other].sameTitle = first;
            if (m_slots[first].sameTitle == NoIndex) m_slots[first].sameTitle = other;
        }
        // Buttons of the same part as the first one share the title with the others too.
        if (m_slots[first].sameTitle == NoIndex) continue;
        for (std::size_t i = begin + 1; i < end; ++i)
            if (m_slots[keys[i].second].sameTitle == NoIndex)
                m_slots[keys[i].second].sameTitle = m_slots[first].sameTitle;
    }
}

// --- results ---

// Makes the list of all problems, and the marks of entries.
void MenuCheck::Publish() {
    m_mustPublish = false;
    m_findings.clear();
    m_marks.clear();
    m_counts.fill(0);
    std::vector<Severity> below(m_slots.size(), Severity::None);
    std::vector<Severity> own(m_slots.size(), Severity::None);
    for (Index index = 0; index < m_slots.size(); ++index) {
        const Slot& slot = m_slots[index];
        const auto add = [&](const Problem& problem) {
            const Severity severity = FindingKinds::SeverityOf(problem.kind, problem.field);
            m_findings.push_back({index, problem});
            ++m_counts[static_cast<std::size_t>(severity)];
            own[index] = std::max(own[index], severity);
        };
        for (const Problem& problem : slot.problems)
            add(problem);
        if (slot.isDoubled) add({FindingKind::DoubledCaption, TextField::Caption});
        if (slot.sameTitle != NoIndex) add({FindingKind::SharedTitle, TextField::HistoryTitle});
    }
    for (auto index = static_cast<Index>(m_slots.size()); index-- > 0;) {
        below[index] = std::max(below[index], own[index]);
        if (below[index] == Severity::None) continue;
        m_marks.emplace(m_slots[index].entry, Mark{own[index], below[index]});
        if (const Index parent = m_slots[index].parent; parent != NoIndex)
            below[parent] = std::max(below[parent], below[index]);
    }
    ++m_version;
}

Finding MenuCheck::At(std::size_t index) const {
    const auto& [slotIndex, problem] = m_findings[index];
    const Slot& slot = m_slots[slotIndex];
    return {problem.kind,
            FindingKinds::SeverityOf(problem.kind, problem.field),
            slot.entry,
            problem.field,
            FindingKinds::MessageOf(problem.kind),
            ArgumentsOf(slot, problem),
            FindingKinds::FixesOf(problem.kind, problem.field)};
}

std::vector<std::string> MenuCheck::ArgumentsOf(const Slot& slot, const Problem& problem) const {
    const MenuEntry& entry = *slot.entry;
    const std::string text(problem.field ? FieldText(entry, *problem.field) : "");
    switch (problem.kind) {
    case FindingKind::NoCaption:
    case FindingKind::EmptySubmenu:
    case FindingKind::NoProgram: return {};
    case FindingKind::TooManyButtons:
        return {std::to_string(entry.ChildCount()), std::to_string(m_options.buttonsPerScreen)};
    case FindingKind::TopicWithoutFile:
        return {std::to_string(static_cast<const MenuItem&>(entry).HelpTopic())};
    case FindingKind::SharedTitle: {
        const MenuEntry& other = *m_slots[slot.sameTitle].entry;
        return {text, std::string(other.Caption()), EntryPlace(other)};
    }
    case FindingKind::NotEncodable:
        return {platform::FirstNotEncodable(text), std::to_string(platform::CodePage()), text};
    case FindingKind::NotDecodable:
        return {EntryRules::FirstNotDecodable(text), std::to_string(platform::CodePage()), text};
    default: return {text};
    }
}

std::unordered_map<const MenuEntry*, std::string> MenuCheck::PartNames() const {
    const auto program = static_cast<std::size_t>(
        std::find(FileFields.begin(), FileFields.end(), TextField::Program) - FileFields.begin());
    std::unordered_map<const MenuEntry*, std::string> names;
    if (m_isStale) return names;
    for (const Slot& slot : m_slots) {
        if (slot.isFresh || slot.files[program] == FileLookup::NoIndex) continue;
        const FileFacts* facts = m_files.Facts(slot.files[program]);
        if (facts != nullptr && !facts->partName.empty()) names.emplace(slot.entry, facts->partName);
    }
    return names;
}

MenuCheck::Mark MenuCheck::MarkOf(const MenuEntry& entry) const {
    const auto found = m_marks.find(&entry);
    return found != m_marks.end() ? found->second : Mark{};
}

} // namespace nesk
