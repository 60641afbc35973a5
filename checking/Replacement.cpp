#include "checking/Replacement.h"

#include "base/Messages.h"
#include "checking/EntryWalk.h"
#include "editing/MenuEditor.h"
#include "menu/MenuItem.h"
#include "menu/MenuText.h"
#include "platform/TextEncoding.h"
#include "platform/Utf8.h"

#include <algorithm>
#include <utility>

namespace nesk::Replacement {

namespace {

constexpr const char* Source = "Replacement.Apply";

std::size_t CharacterLength(std::string_view text) {
    return std::max<std::size_t>(1, platform::Utf8Length(text));
}

// Length in bytes of the first `count` characters.
std::size_t LengthOf(std::string_view text, std::size_t count) {
    std::size_t length = 0;
    for (; count > 0 && length < text.size(); --count)
        length += CharacterLength(text.substr(length));
    return length;
}

std::size_t CharacterCount(std::string_view text) {
    std::size_t count = 0;
    for (std::size_t at = 0; at < text.size(); ++count)
        at += CharacterLength(text.substr(at));
    return count;
}

std::string ReplacedExactly(std::string_view text, const ReplaceOptions& options) {
    std::string result;
    std::size_t at = 0;
    for (std::size_t found = 0; (found = text.find(options.find, at)) != std::string_view::npos;
         at = found + options.find.size())
        result.append(text.substr(at, found - at)).append(options.replacement);
    return result.append(text.substr(at));
}

// Searches the upper-case text. It has as many characters, but not always as many bytes.
std::string ReplacedInAnyCase(std::string_view text, const ReplaceOptions& options) {
    const std::string upper = platform::ToUpper(text);
    const std::string find = platform::ToUpper(options.find);
    const std::size_t findCharacters = CharacterCount(options.find);
    std::string result;
    std::size_t at = 0;      // in the text
    std::size_t upperAt = 0; // the same place in the upper-case text
    for (std::size_t found = 0; (found = upper.find(find, upperAt)) != std::string::npos;) {
        const std::size_t before = CharacterCount(std::string_view(upper).substr(upperAt, found - upperAt));
        const std::size_t length = LengthOf(text.substr(at), before);
        result.append(text.substr(at, length)).append(options.replacement);
        at += length;
        at += LengthOf(text.substr(at), findCharacters);
        upperAt = found + find.size();
    }
    return result.append(text.substr(at));
}

// Puts the new text of a field into the fields of an item.
void Put(PartFields& fields, const TextChange& change) {
    switch (change.field) {
    case TextField::Program:
        if (fields.programId.starts_with('@')) {
            const std::size_t end = fields.programId.find('@', 1);
            // A second "@" would end the path there.
            if (change.after.find('@') != std::string::npos)
                throw NeskError(5000, Source, Message::ReplaceAtSign, {change.after});
            fields.programId.replace(1, std::min(end, fields.programId.size()) - 1, change.after);
        } else if (change.after.starts_with('@')) {
            throw NeskError(5000, Source, Message::ReplaceAtSign, {change.after});
        } else {
            fields.programId = change.after;
        }
        break;
    case TextField::Picture: fields.graphic = change.after; break;
    case TextField::Preview: fields.preview = change.after; break;
    case TextField::HelpFile: fields.helpFile = change.after; break;
    case TextField::HistoryDir: fields.historyDir = change.after; break;
    case TextField::HistoryTitle: fields.historyTitle = change.after; break;
    case TextField::Caption:
    case TextField::Count: break;
    }
}

// Ends the group of an editor. Undoes it unless it was committed.
class Group {
public:
    Group(MenuEditor& editor, ChangeName name) : m_editor(editor) { editor.BeginGroup(std::move(name)); }
    ~Group() {
        if (!m_isDone) m_editor.RollBackGroup();
    }
    Group(const Group&) = delete;
    Group& operator=(const Group&) = delete;

    void Commit() {
        m_isDone = true;
        m_editor.CommitGroup();
    }

private:
    MenuEditor& m_editor;
    bool m_isDone = false;
};

// Makes the changes of one entry, which begin at `at`, and moves `at` behind them.
void ChangeEntry(MenuEditor& editor, const std::vector<TextChange>& changes, std::size_t& at) {
    const MenuEntry& entry = *changes[at].entry;
    const std::string id = entry.ID();
    const auto* item = dynamic_cast<const MenuItem*>(&entry);
    PartFields fields = item != nullptr ? PartFieldsOf(*item) : PartFields();
    const PartFields before = fields;
    const std::size_t first = at;
    for (; at < changes.size() && changes[at].entry == &entry; ++at) {
        const TextChange& change = changes[at];
        if (!change.isChosen || change.after == change.before) continue;
        // Checked one by one, so that the text that is refused is known.
        MenuText::Check(change.after, Source);
        if (change.field == TextField::Caption)
            editor.SetCaption(id, change.after);
        else if (item == nullptr)
            editor.SetGraphic(id, change.after);
        else
            Put(fields, change);
    }
    if (fields == before) return;
    const std::size_t end = std::exchange(at, first);
    editor.SetPart(id, fields);
    at = end;
}

} // namespace

std::string Replaced(std::string_view text, const ReplaceOptions& options) {
    if (options.find.empty()) return std::string(text);
    return options.matchCase ? ReplacedExactly(text, options) : ReplacedInAnyCase(text, options);
}

std::vector<TextChange> Plan(const Menu& menu, const ReplaceOptions& options) {
    std::vector<TextChange> changes;
    if (options.find.empty()) return changes;
    ForEachEntry(menu, [&](const MenuEntry& entry) {
        for (const TextFieldInfo& info : TextFields()) {
            if (!options.fields.test(static_cast<std::size_t>(info.field))) continue;
            const std::string_view before = FieldText(entry, info.field);
            if (before.empty()) continue;
            std::string after = Replaced(before, options);
            if (after == before) continue;
            changes.push_back({&entry, info.field, std::string(before), std::move(after)});
        }
    });
    return changes;
}

std::optional<Refusal> Apply(MenuEditor& editor, const std::vector<TextChange>& changes, ChangeName name) {
    std::size_t at = 0;
    try {
        Group group(editor, std::move(name));
        while (at < changes.size())
            ChangeEntry(editor, changes, at);
        group.Commit();
    } catch (const NeskError& error) {
        return Refusal{at, error};
    }
    return std::nullopt;
}

} // namespace nesk::Replacement
