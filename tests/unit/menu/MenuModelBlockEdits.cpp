// Random edits of several entries at once.

#include "unit/menu/MenuModelFixture.h"

#include "base/Messages.h"
#include "platform/Collation.h"

#include <algorithm>
#include <map>

namespace nesk::testing {

namespace {

// Id of the first child at or after a position that does not move itself; "" for none.
std::string FirstAfter(const ModelEntry& parent, int position, const EntryIds& ids) {
    for (std::size_t i = static_cast<std::size_t>(position) - 1; i < parent.children.size(); ++i)
        if (std::find(ids.begin(), ids.end(), parent.children[i].id) == ids.end())
            return parent.children[i].id;
    return "";
}

// Whether two states of a tree have different ids, or the same in another order.
bool IsOtherTree(const ModelEntry& before, const MenuModel& now) {
    MenuModel old;
    old.Restore(before);
    return old.Ids() != now.Ids();
}

} // namespace

std::string MenuModelFixture::Joined(const EntryIds& ids) {
    std::string text;
    for (const std::string& id : ids)
        text += id + " ";
    return text;
}

EntryIds MenuModelFixture::SomeIds() {
    EntryIds ids;
    for (std::size_t i = m_random->Below(5); i > 0; --i)
        ids.push_back(SomeId());
    return Uppermost(*m_editor->OpenMenu(), ids);
}

void MenuModelFixture::EditSeveral() {
    m_isSeveral = true;
    const EntryIds ids = SomeIds();
    switch (m_random->Below(8)) {
    case 0: RemoveSeveral(ids); break;
    case 1: MoveSeveral(ids, SomeId()); break;
    case 2: CopySeveral(ids, SomeId()); break;
    case 3: Sort(SomeId()); break;
    case 4: SetParts(ids); break;
    case 5:
    case 6: Replace(); break;
    default: MoveBlocks(ids, m_random->OneIn(2)); break;
    }
    m_isSeveral = false;
}

void MenuModelFixture::RemoveSeveral(const EntryIds& ids) {
    Make(
        "remove", Joined(ids), 0, [&] { return m_editor->Remove(ids); },
        [&] {
            bool isAny = false;
            for (const std::string& id : ids)
                isAny |= m_model.Remove(id);
            return isAny;
        });
}

void MenuModelFixture::MoveSeveral(const EntryIds& ids, const std::string& parentId) {
    ModelEntry* parent = m_model.Find(parentId).entry;
    if (parent == nullptr || ids.empty()) return;
    const int count = static_cast<int>(parent->children.size());
    const int position = 1 + static_cast<int>(m_random->Below(static_cast<std::size_t>(count) + 1));
    int refusal = 0;
    for (const std::string& id : ids)
        if (refusal == 0 || refusal == Message::MoveIntoPart) refusal = m_model.MoveRefusal(id, parentId);
    const ModelEntry before = m_model.Root();
    const auto moveInModel = [&] {
        // The entries go before the first child that stays.
        const std::string next = FirstAfter(*parent, position, ids);
        for (const std::string& id : ids) {
            const MenuModel::Place at = m_model.Find(next);
            const MenuModel::Place own = m_model.Find(id);
            int place = 0;
            if (at.entry != nullptr) {
                place = static_cast<int>(at.index) + 1;
                if (own.parent == at.parent && own.index < at.index) --place;
            }
            m_model.MoveTo(id, parentId, place);
        }
        return refusal != 0 || IsOtherTree(before, m_model);
    };
    Make(
        "move several to " + parentId + " " + std::to_string(position), Joined(ids), refusal,
        [&] {
            m_editor->MoveTo(ids, parentId, position);
            return !m_events.empty();
        },
        moveInModel);
}

void MenuModelFixture::CopySeveral(const EntryIds& ids, const std::string& parentId) {
    const ModelEntry* parent = m_model.Find(parentId).entry;
    std::vector<ModelEntry> entries;
    for (const std::string& id : ids)
        if (id != "R") entries.push_back(*m_model.Find(id).entry);
    if (parent == nullptr || entries.empty() || m_model.Ids().size() > ManyEntries) return;
    const int position = 1 + static_cast<int>(m_random->Below(parent->children.size() + 1));
    EntryIds copies;
    Make(
        "copy to " + parentId, Joined(ids), parent->IsPart() ? Message::MoveIntoPart : 0,
        [&] {
            copies = m_editor->CopyTo(ids, parentId, position);
            return !copies.empty();
        },
        [&] {
            int at = position;
            for (const ModelEntry& entry : entries)
                m_model.Insert(entry, parentId, at++, *m_rules);
            return true;
        });
}

void MenuModelFixture::Sort(const std::string& id) {
    const ModelEntry* parent = m_model.Find(id).entry;
    const bool submenusFirst = m_random->OneIn(2);
    std::vector<std::size_t> order;
    if (parent != nullptr) {
        std::vector<std::string> captions;
        for (const ModelEntry& child : parent->children)
            captions.push_back(child.caption);
        order = platform::SortedOrder(captions);
        if (submenusFirst)
            std::stable_sort(order.begin(), order.end(), [&](std::size_t a, std::size_t b) {
                return !parent->children[a].IsPart() && parent->children[b].IsPart();
            });
    }
    Make(
        "sort", id, 0, [&] { return m_editor->Sort(id, submenusFirst); },
        [&] {
            if (std::is_sorted(order.begin(), order.end())) return false;
            m_model.Reorder(id, order);
            return true;
        });
}

void MenuModelFixture::MoveBlocks(const EntryIds& ids, bool up) {
    Make(
        up ? "move up several" : "move down several", Joined(ids), 0,
        [&] { return up ? m_editor->MoveUp(ids) : m_editor->MoveDown(ids); },
        [&] {
            std::map<std::string, std::vector<std::string>> blocks;
            for (const std::string& id : ids)
                if (const MenuModel::Place place = m_model.Find(id); place.parent != nullptr)
                    blocks[place.parent->id].push_back(id);
            bool isMoved = false;
            for (auto& [parentId, block] : blocks) {
                if (!up) std::reverse(block.begin(), block.end());
                // The first entry that cannot move stops its block.
                for (const std::string& id : block) {
                    if (!m_model.Move(id, up)) break;
                    isMoved = true;
                }
            }
            return isMoved;
        });
}

} // namespace nesk::testing
