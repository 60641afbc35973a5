// Random edits of the fields of several entries: the same values for several parts, and replaced texts.

#include "unit/menu/MenuModelFixture.h"

#include "base/Messages.h"
#include "checking/Replacement.h"
#include "platform/TextEncoding.h"
#include "platform/Utf8.h"

#include <algorithm>
#include <utility>

namespace nesk::testing {

namespace {

// Longer texts make the sequences slow and find nothing more.
constexpr std::size_t LongText = 8000;

std::vector<std::string> CharactersOf(std::string_view text) {
    std::vector<std::string> characters;
    while (!text.empty()) {
        const std::size_t length = std::max<std::size_t>(1, platform::Utf8Length(text));
        characters.emplace_back(text.substr(0, length));
        text.remove_prefix(length);
    }
    return characters;
}

// Replaces a text character by character.
std::string Replaced(const std::string& text, const ReplaceOptions& options) {
    const std::vector<std::string> characters = CharactersOf(text);
    const std::vector<std::string> find = CharactersOf(options.find);
    const auto isSame = [&](const std::string& a, const std::string& b) {
        return a == b || (!options.matchCase && platform::ToUpper(a) == platform::ToUpper(b));
    };
    std::string result;
    for (auto at = characters.begin(); at != characters.end();) {
        const bool isFound =
            characters.end() - at >= std::ssize(find) && std::equal(find.begin(), find.end(), at, isSame);
        result += isFound ? options.replacement : *at;
        at += isFound ? std::ssize(find) : 1;
    }
    return result;
}

// The part of a program between its first "@" and the next one; the whole program if it does not begin so.
struct ProgramParts {
    explicit ProgramParts(const std::string& program) {
        if (program.empty() || program[0] != '@') {
            path = program;
            return;
        }
        const std::size_t end = std::min(program.find('@', 1), program.size());
        before = "@";
        path = program.substr(1, end - 1);
        after = program.substr(end);
    }
    std::string before, path, after;
};

// One replaced text of the model.
struct ModelChange {
    std::string id;
    TextField field;
    std::string before;
    std::string after;
    bool isChosen;
};

std::string TextOf(const ModelEntry& entry, TextField field) {
    switch (field) {
    case TextField::Caption: return entry.caption;
    case TextField::Program: return ProgramParts(entry.fields.programId).path;
    case TextField::Picture: return entry.fields.graphic;
    case TextField::Preview: return entry.fields.preview;
    case TextField::HelpFile: return entry.fields.helpFile;
    case TextField::HistoryDir: return entry.fields.historyDir;
    default: return entry.fields.historyTitle;
    }
}

void SetText(ModelEntry& entry, TextField field, const std::string& text) {
    switch (field) {
    case TextField::Caption: entry.caption = text; break;
    case TextField::Program: {
        const ProgramParts parts(entry.fields.programId);
        entry.fields.programId = parts.before + text + parts.after;
        break;
    }
    case TextField::Picture: entry.fields.graphic = text; break;
    case TextField::Preview: entry.fields.preview = text; break;
    case TextField::HelpFile: entry.fields.helpFile = text; break;
    case TextField::HistoryDir: entry.fields.historyDir = text; break;
    default: entry.fields.historyTitle = text; break;
    }
}

std::vector<ModelChange> PlanOf(MenuModel& model, const ReplaceOptions& options) {
    constexpr TextField all[] = {TextField::Caption,     TextField::Program,  TextField::Picture,
                                 TextField::Preview,     TextField::HelpFile, TextField::HistoryDir,
                                 TextField::HistoryTitle};
    std::vector<ModelChange> changes;
    for (const std::string& id : model.Ids())
        for (const TextField field : all) {
            if (options.find.empty() || !options.fields.test(static_cast<std::size_t>(field))) continue;
            const std::string before = TextOf(*model.Find(id).entry, field);
            const std::string after = Replaced(before, options);
            if (after != before) changes.push_back({id, field, before, after, true});
        }
    return changes;
}

// Number of the message that refuses a replaced text; 0 for a text that can be stored.
int RefusalOf(const ModelChange& change, const ModelEntry& entry, const TextRules& rules) {
    if (!change.isChosen) return 0;
    if (const int refusal = rules.Refusal(change.after)) return refusal;
    if (change.field != TextField::Program) return 0;
    // Another "@" would end the path of a part, or make a program one.
    const bool isPart = !ProgramParts(entry.fields.programId).before.empty();
    const std::size_t at = change.after.find('@');
    const bool isWrong = isPart ? at != std::string::npos : at == 0;
    return isWrong ? Message::ReplaceAtSign : 0;
}

} // namespace

void MenuModelFixture::SetParts(const EntryIds& ids) {
    CommonPartFields fields;
    int refusal = 0;
    if (!m_random->OneIn(4)) {
        Text text = MakeText();
        refusal = text.refusal;
        fields.graphic = std::move(text.text);
    }
    // Each history directory makes the reader access several registry values.
    if (m_random->OneIn(8)) {
        Text text = MakeText();
        if (refusal == 0) refusal = text.refusal;
        fields.historyDir = std::move(text.text);
    }
    Make(
        "the same fields", Joined(ids), refusal, [&] { return m_editor->SetParts(ids, fields); },
        [&] {
            bool isAny = false;
            for (const std::string& id : ids) {
                ModelEntry* entry = m_model.Find(id).entry;
                if (entry == nullptr || !entry->IsPart()) continue;
                const PartFields before = entry->fields;
                if (fields.graphic) entry->fields.graphic = *fields.graphic;
                if (fields.historyDir) entry->fields.historyDir = *fields.historyDir;
                isAny |= entry->fields != before;
            }
            return isAny;
        });
}

ReplaceOptions MenuModelFixture::SomeReplacement() {
    static const std::vector<std::string> fragments = {"A", "PART", "e", "\\", "@", "prÜF", ".b", ""};
    ReplaceOptions options;
    options.find = m_random->Of(m_random->OneIn(2) ? fragments : m_rules->pieces);
    // A space may complete the undecodable byte before it.
    if (options.find.find(' ') != std::string::npos) options.find = "a";
    options.replacement = m_random->OneIn(4) ? "@" : MakeText().text;
    for (std::size_t i = 0; i < TextFieldCount; ++i)
        options.fields.set(i, m_random->OneIn(2));
    options.matchCase = m_random->OneIn(2);
    return options;
}

void MenuModelFixture::Replace() {
    const ReplaceOptions options = SomeReplacement();
    std::vector<TextChange> changes = Replacement::Plan(*m_editor->OpenMenu(), options);
    std::vector<ModelChange> expected = PlanOf(m_model, options);
    m_action = "replace '" + options.find + "' by '" + options.replacement + "'";
    ASSERT_EQ(changes.size(), expected.size()) << Where();
    int refusal = 0;
    std::size_t refusedAt = 0;
    EntryIds edited;
    for (std::size_t i = 0; i < changes.size(); ++i) {
        TextChange& change = changes[i];
        ModelChange& own = expected[i];
        ASSERT_EQ(change.entry->ID(), own.id) << Where();
        ASSERT_EQ(change.field, own.field) << Where();
        ASSERT_EQ(change.before, own.before) << Where();
        ASSERT_EQ(change.after, own.after) << Where();
        if (own.after.size() > LongText) return;
        change.isChosen = own.isChosen = !m_random->OneIn(4);
        if (refusal == 0 && (refusal = RefusalOf(own, *m_model.Find(own.id).entry, *m_rules)) != 0)
            refusedAt = i;
        if (own.isChosen && (edited.empty() || edited.back() != own.id)) edited.push_back(own.id);
    }
    bool isDone = false;
    m_rollsBack = true;
    Make(
        m_action, "", refusal,
        [&] {
            const auto refused = Replacement::Apply(*m_editor, changes, {Message::ChangeReplace, {}});
            if (refused) {
                EXPECT_EQ(refused->index, refusedAt) << Where();
                throw refused->error;
            }
            return isDone = !m_events.empty();
        },
        [&] {
            for (const ModelChange& change : expected)
                if (change.isChosen) SetText(*m_model.Find(change.id).entry, change.field, change.after);
            return !edited.empty();
        });
    m_rollsBack = false;
    if (!isDone) return;
    // An entry whose caption and fields change is reported for both.
    EntryIds reported;
    for (const MenuEvent& event : m_events) {
        ASSERT_EQ(event.kind, MenuEvent::Kind::Edited) << Where();
        if (reported.empty() || reported.back() != event.id) reported.push_back(event.id);
    }
    ASSERT_EQ(reported, edited) << Where();
}

} // namespace nesk::testing
