#include "unit/journal/RandomEdits.h"

#include "base/Messages.h"
#include "menu/MenuItem.h"
#include "menu/MenuItemCollection.h"

namespace nesk::testing {

namespace {

constexpr std::size_t ManyEntries = 40;

} // namespace

std::vector<std::string> RandomEdits::Ids() const {
    std::vector<std::string> ids;
    std::vector<const MenuEntry*> open{m_editor.OpenMenu()};
    while (!open.empty()) {
        const MenuEntry* entry = open.back();
        open.pop_back();
        ids.push_back(entry->ID());
        for (int i = entry->ChildCount(); i > 0; --i)
            open.push_back(&entry->Children()->Item(i));
    }
    return ids;
}

std::string RandomEdits::SomeId() {
    const std::vector<std::string> ids = Ids();
    return ids[Below(ids.size())];
}

// A text that is the same after it was saved and read.
std::string RandomEdits::Text() {
    static const std::vector<std::string> pieces = {"bore", "Geh\xC3\xA4use", "x y", "=", "C:\\a.bmp", "END"};
    std::string text = std::to_string(Below(1000));
    for (std::size_t left = Below(3); left > 0; --left)
        text += pieces[Below(pieces.size())];
    return text;
}

PartFields RandomEdits::Fields() {
    PartFields fields;
    fields.graphic = Text();
    fields.preview = Below(2) == 0 ? "" : Text();
    fields.programId = Text();
    fields.helpFile = Below(2) == 0 ? "" : Text();
    fields.helpTopic = static_cast<std::int32_t>(Below(100)) - 50;
    fields.historyTitle = Below(3) == 0 ? Text() : "";
    return fields;
}

EntryIds RandomEdits::SomeIds() {
    EntryIds ids;
    for (std::size_t left = 1 + Below(5); left > 0; --left)
        ids.push_back(SomeId());
    return Uppermost(*m_editor.OpenMenu(), ids);
}

void RandomEdits::Make() {
    try {
        MakeOne();
    } catch (const NeskError&) {
        // An edit that is refused, for example a submenu that is moved into itself.
    }
}

void RandomEdits::MakeOne() {
    const std::string id = SomeId();
    const std::size_t kind = Below(100);
    if (kind < 55)
        EditOne(id, kind);
    else if (kind < 75)
        EditSeveral(id, kind);
    else if (kind < 88)
        m_editor.Undo();
    else if (kind < 96)
        m_editor.Redo();
    else
        RollBack();
}

void RandomEdits::EditOne(const std::string& id, std::size_t kind) {
    if (kind < 22 && Ids().size() > ManyEntries)
        m_editor.Remove(id);
    else if (kind < 7)
        m_editor.AddPart(id, Text());
    else if (kind < 12)
        m_editor.AddPart(id, Text(), Fields());
    else if (kind < 18)
        m_editor.AddSubmenu(id, Text());
    else if (kind < 20)
        m_editor.NameAdded(m_editor.AddSubmenu(id, Text()), Text());
    else if (kind < 25)
        m_editor.Remove(id);
    else if (kind < 30)
        m_editor.MoveUp(id);
    else if (kind < 33)
        m_editor.MoveDown(id);
    else if (kind < 40)
        m_editor.MoveTo(id, SomeId(), static_cast<int>(Below(5)));
    else if (kind < 45)
        m_editor.SetCaption(id, Text());
    else if (kind < 49)
        m_editor.SetGraphic(id, Text());
    else
        m_editor.SetPart(id, Fields());
}

void RandomEdits::EditSeveral(const std::string& id, std::size_t kind) {
    const EntryIds ids = SomeIds();
    if (kind < 58)
        m_editor.Remove(ids);
    else if (kind < 62)
        m_editor.MoveTo(ids, id, static_cast<int>(Below(4)));
    else if (kind < 65 && Ids().size() <= ManyEntries)
        m_editor.CopyTo(ids, id, static_cast<int>(Below(4)));
    else if (kind < 67)
        m_editor.MoveDown(ids);
    else if (kind < 69)
        m_editor.MoveOut(ids);
    else if (kind < 72)
        m_editor.Sort(m_editor.SortTarget({id}), Below(2) == 0);
    else
        m_editor.SetParts(ids, {Text(), std::nullopt});
}

// Several changes that are undone in the end.
void RandomEdits::RollBack() {
    const MenuEditor::Group group(m_editor, {Message::ChangeAdd, {"group"}}, 2);
    m_editor.AddSubmenu("R", Text());
    m_editor.Remove(SomeId());
}

} // namespace nesk::testing
