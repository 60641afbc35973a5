// Random edits of one entry.

#include "unit/menu/MenuModelFixture.h"

#include "menu/MenuItem.h"

#include <cstdint>
#include <limits>
#include <utility>

namespace nesk::testing {

MenuModelFixture::Text MenuModelFixture::MakeText() {
    std::string text = m_rules->Make(*m_random);
    const int refusal = m_rules->Refusal(text);
    return {std::move(text), refusal};
}

// The id of an entry; most of the time the entry exists.
std::string MenuModelFixture::SomeId() {
    static const std::vector<std::string> none = {"", "X", "R.", "R.0", "R.01", "R.9999", "R.1.9999", "r"};
    return m_random->OneIn(15) ? m_random->Of(none) : m_random->Of(m_model.Ids());
}

void MenuModelFixture::Edit() {
    m_events.clear();
    const std::string id = SomeId();
    const bool full = m_model.Ids().size() > ManyEntries;
    const std::size_t kind = m_random->Below(1000);
    if (kind < 150)
        full ? Remove(id) : Add(id, MenuItem::SubmenuType);
    else if (kind < 350)
        full ? Remove(id) : Add(id, MenuItem::PartType);
    else if (kind < 430)
        Remove(id);
    else if (kind < 500)
        Move(id, m_random->OneIn(2));
    else if (kind < 560)
        MoveTo(id, SomeId());
    else if (kind < 660)
        EditSeveral();
    else if (kind < 690)
        SetCaption(id);
    else if (kind < 750)
        SetGraphic(id);
    else if (kind < 850)
        SetPart(id);
    else if (kind < 920)
        Undo();
    else if (kind < (m_withLoads ? 970 : 990))
        Redo();
    else if (kind < 985 || !m_withLoads)
        Save();
    else
        Load();
}

void MenuModelFixture::Add(const std::string& id, std::string_view type) {
    const Text caption = MakeText();
    std::string added;
    const auto add = [&] {
        added = type == MenuItem::PartType ? m_editor->AddPart(id, caption.text)
                                           : m_editor->AddSubmenu(id, caption.text);
        return !added.empty();
    };
    Make("add below", id, caption.refusal, add, [&] { return m_model.Add(id, caption.text, type); });
    if (!added.empty()) {
        EXPECT_EQ(added, m_model.LastId()) << Where();
    }
}

void MenuModelFixture::Remove(const std::string& id) {
    Make(
        "remove", id, 0, [&] { return m_editor->Remove(id); }, [&] { return m_model.Remove(id); });
}

void MenuModelFixture::Move(const std::string& id, bool up) {
    const bool enabled = up ? m_editor->CommandsFor(id).moveUp : m_editor->CommandsFor(id).moveDown;
    Make(
        up ? "move up" : "move down", id, 0,
        [&] { return up ? m_editor->MoveUp(id) : m_editor->MoveDown(id); },
        [&] {
            const bool possible = m_model.Move(id, up);
            EXPECT_EQ(enabled, possible) << Where();
            return possible;
        });
}

void MenuModelFixture::MoveTo(const std::string& id, const std::string& parentId) {
    const int position = static_cast<int>(m_random->Below(6));
    const int refusal = m_model.MoveRefusal(id, parentId);
    const auto why = m_editor->WhyNotMoveTo(id, parentId);
    ASSERT_EQ(why ? why->messageId : 0, refusal) << Where();
    std::string moved;
    const auto move = [&] {
        moved = m_editor->MoveTo(id, parentId, position);
        return !m_events.empty();
    };
    const bool isMissing = m_model.Find(id).entry == nullptr || m_model.Find(parentId).entry == nullptr;
    Make("move to " + parentId + ": ", id, refusal, move,
         [&] { return m_model.MoveTo(id, parentId, position) || refusal != 0; });
    if (refusal == 0) {
        EXPECT_EQ(moved, isMissing ? "" : m_model.LastId()) << Where();
    }
}

void MenuModelFixture::SetCaption(const std::string& id) {
    const Text caption = MakeText();
    const ModelEntry* entry = m_model.Find(id).entry;
    if (entry != nullptr && entry->caption == caption.text) {
        m_action = "same caption " + id;
        ASSERT_TRUE(m_editor->SetCaption(id, caption.text)) << Where();
        ASSERT_TRUE(m_events.empty()) << Where();
        return;
    }
    Make(
        "caption", id, caption.refusal, [&] { return m_editor->SetCaption(id, caption.text); },
        [&] { return m_model.SetCaption(id, caption.text); });
}

void MenuModelFixture::SetGraphic(const std::string& id) {
    const Text graphic = MakeText();
    const ModelEntry* entry = m_model.Find(id).entry;
    if (entry != nullptr && entry->fields.graphic == graphic.text)
        return ConfirmUnchanged("graphic", id, [&] { return m_editor->SetGraphic(id, graphic.text); });
    Make(
        "graphic", id, graphic.refusal, [&] { return m_editor->SetGraphic(id, graphic.text); },
        [&] { return m_model.SetGraphic(id, graphic.text); });
}

void MenuModelFixture::SetPart(const std::string& id) {
    PartFields fields;
    int refusal = 0;
    for (std::string* field : {&fields.graphic, &fields.preview, &fields.programId, &fields.helpFile,
                               &fields.historyDir, &fields.historyTitle}) {
        // Each history directory makes the reader access several registry values.
        if (field == &fields.historyDir && !m_random->OneIn(8)) continue;
        Text text = MakeText();
        if (refusal == 0) refusal = text.refusal;
        *field = std::move(text.text);
    }
    static const std::vector<std::int32_t> topics = {
        0, 1, -1, 1000, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()};
    fields.helpTopic = m_random->Of(topics);
    const ModelEntry* entry = m_model.Find(id).entry;
    if (entry != nullptr && id != "R" && m_random->OneIn(10)) fields = entry->fields;
    if (entry != nullptr && id != "R" && entry->fields == fields)
        return ConfirmUnchanged("fields", id, [&] { return m_editor->SetPart(id, fields); });
    Make(
        "fields", id, refusal, [&] { return m_editor->SetPart(id, fields); },
        [&] { return m_model.SetPart(id, fields); });
}

} // namespace nesk::testing
