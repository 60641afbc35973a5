#include "unit/menu/MenuModelFixture.h"

#include "settings/RegEntry.h"
#include "unit/FileBytes.h"
#include "unit/menu/QuickFiles.h"

#include <filesystem>
#include <utility>

namespace nesk::testing {

namespace {

const std::string Folder = "C:\\Neskroot";
const std::string Path = Folder + "\\menu.cfg";
const std::string HistoryKey = "Neskworks\\Historys";
constexpr int EditsOfASequence = 200;

} // namespace

MenuModelFixture::MenuModelFixture() {
    std::filesystem::create_directories(TempStation::Host(Folder));
}

void MenuModelFixture::OnMenuEvent(const MenuEvent& event) {
    m_events.push_back(event);
    m_shadow.Follow(event, *m_editor->OpenMenu());
}

void MenuModelFixture::RunSequences(const TextRules& rules, unsigned first, unsigned count) {
    platform::SelectCodePage(rules.languageId);
    m_rules = &rules;
    for (unsigned seed = first; seed < first + count; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        RunSequence(seed);
        if (HasFailure()) return;
    }
}

void MenuModelFixture::RunSequence(unsigned seed) {
    Random random(seed);
    m_random = &random;
    std::filesystem::remove(TempStation::Host(Path));
    m_onDisk = MenuModel();
    m_exists = !m_startFile.empty();
    if (m_exists) {
        station.Write(Path, m_startFile);
        m_onDisk = m_startModel;
    }
    // A real save waits for the disk, so most of the many sequences use QuickFiles.
    QuickFiles quick;
    platform::FileSystem* files = &quick;
    if (seed % 32 == 0) files = &platform::StationFiles();
    MenuEditor editor(*files);
    m_editor = &editor;
    editor.AddListener(*this);
    m_action = "open";
    Load();
    for (m_step = 1; m_step <= EditsOfASequence && !HasFailure(); ++m_step) {
        Edit();
        Compare();
    }
    if (!HasFailure()) ToTheBeginningAndBack();
    m_action = "the way through a file";
    if (!HasFailure()) SaveForAnother();
    if (!HasFailure() && seed % 4 == 0) ThroughAFile();
    m_editor = nullptr;
    m_random = nullptr;
}

std::string MenuModelFixture::Where() const {
    return "edit " + std::to_string(m_step) + ": " + m_action;
}

void MenuModelFixture::Compare() {
    ASSERT_EQ(FirstDifference(*m_editor->OpenMenu(), m_model.Root()), "") << Where();
    ASSERT_EQ(m_shadow.DifferenceFrom(*m_editor->OpenMenu()), "") << Where();
    ASSERT_EQ(m_editor->IsDirty(), m_saved != m_made) << Where();
    ASSERT_FALSE(m_editor->IsIncomplete()) << Where();
    ASSERT_EQ(m_editor->Path(), m_exists && m_pathKnown ? Path : "") << Where();
}

// Makes an edit and compares the result with the model. A text that is refused is tried first.
void MenuModelFixture::Make(const std::string& action, const std::string& id, int refusal, const Step& call,
                            const Step& modelCall) {
    m_action = action + " " + id;
    const MenuModel before = m_model;
    const std::size_t made = m_made;
    const bool possible = modelCall();
    if (possible && refusal != 0) {
        m_model = before;
        try {
            call();
            FAIL() << Where() << " was not refused";
        } catch (const NeskError& error) {
            ASSERT_EQ(error.number, 5000) << Where();
            ASSERT_EQ(error.messageId, refusal) << Where();
        }
        ASSERT_TRUE(m_rollsBack || m_events.empty()) << Where();
        return;
    }
    ASSERT_EQ(call(), possible) << Where();
    if (!possible) {
        ASSERT_TRUE(m_events.empty()) << Where();
        return;
    }
    ASSERT_EQ(m_editor->History().UndoNames().size(), made + 1) << Where();
    if (m_saved && *m_saved > made) m_saved.reset();
    m_states.resize(made + 1);
    m_states.push_back(m_model.Root());
    m_made = made + 1;
    if (!m_isSeveral) CheckEvent(before.Root());
}

// A dialog was confirmed in which nothing was changed: the menu is dirty, and there is nothing to undo.
void MenuModelFixture::ConfirmUnchanged(const std::string& action, const std::string& id, const Step& call) {
    m_action = "unchanged " + action + " " + id;
    ASSERT_TRUE(call()) << Where();
    ASSERT_TRUE(m_events.empty()) << Where();
    ASSERT_EQ(m_editor->History().UndoNames().size(), m_made) << Where();
    ASSERT_EQ(m_editor->History().RedoNames().size(), m_states.size() - 1 - m_made) << Where();
    m_saved.reset();
}

// Checks that there was one event and that it describes the change of the tree.
void MenuModelFixture::CheckEvent(const ModelEntry& before) {
    ASSERT_EQ(m_events.size(), 1u) << Where();
    const MenuEvent& event = m_events.back();
    MenuModel old;
    old.Restore(before);
    const bool hasNewId = !event.formerId.empty();
    ASSERT_TRUE(!hasNewId || old.Find(event.id).entry == nullptr) << Where();
    ASSERT_TRUE(!hasNewId || m_model.Find(event.formerId).entry == nullptr) << Where();
    const bool was = old.Find(hasNewId ? event.formerId : event.id).entry != nullptr;
    const MenuModel::Place place = m_model.Find(event.id);
    ASSERT_EQ(was, event.kind != MenuEvent::Kind::Added) << Where();
    ASSERT_EQ(place.entry != nullptr, event.kind != MenuEvent::Kind::Removed) << Where();
    if (event.kind != MenuEvent::Kind::Added && event.kind != MenuEvent::Kind::Moved) return;
    ASSERT_EQ(event.parentId, place.parent->id) << Where();
    ASSERT_EQ(event.position, static_cast<int>(place.index) + 1) << Where();
}

void MenuModelFixture::Undo() {
    m_action = "undo";
    if (m_made == 0) {
        ASSERT_FALSE(m_editor->Undo()) << Where();
        return;
    }
    GoTo(m_made - 1, m_editor->Undo());
}

void MenuModelFixture::Redo() {
    m_action = "redo";
    if (m_made + 1 == m_states.size()) {
        ASSERT_FALSE(m_editor->Redo()) << Where();
        return;
    }
    GoTo(m_made + 1, m_editor->Redo());
}

void MenuModelFixture::ToTheBeginningAndBack() {
    while (m_made > 0 && !HasFailure()) {
        m_events.clear();
        Undo();
        Compare();
    }
    while (m_made + 1 < m_states.size() && !HasFailure()) {
        m_events.clear();
        Redo();
        Compare();
    }
}

void MenuModelFixture::GoTo(std::size_t made, bool done) {
    ASSERT_TRUE(done) << Where();
    const ModelEntry before = m_model.Root();
    m_model.Restore(m_states[made]);
    m_made = made;
    if (m_events.size() == 1 && m_events.front().kind != MenuEvent::Kind::Reordered) CheckEvent(before);
}

void MenuModelFixture::Save() {
    m_action = "save";
    const bool existed = m_exists;
    const std::string before = FileBytes(Path);
    const std::string backup = FileBytes(Path + ".bak");
    ASSERT_EQ(m_editor->CheckSave(Path), SaveHazard::None) << Where();
    m_editor->Save(Path);
    m_exists = m_pathKnown = true;
    m_saved = m_made;
    m_onDisk = m_model;
    if (existed) {
        const bool isOlderKept = FileBytes(Path) == before && !backup.empty();
        ASSERT_TRUE(FileBytes(Path + ".bak") == (isOlderKept ? backup : before)) << Where();
    }
}

void MenuModelFixture::Load() {
    m_action = "load";
    const std::string bytes = FileBytes(Path);
    const std::optional<NeskError> error = m_editor->Open(Folder, Path);
    ASSERT_FALSE(error.has_value()) << Where() << ": " << error->source << " " << error->number;
    ASSERT_EQ(FileBytes(Path), bytes) << Where();
    m_model = m_onDisk;
    m_model.PassThroughFile(*m_rules, m_histories);
    m_pathKnown = m_exists;
    m_made = 0;
    m_saved = 0;
    m_states = {m_model.Root()};
    m_shadow.Reset(*m_editor->OpenMenu());
    Compare();
    CheckHistories();
}

// Every history directory that was read is in the list of the operator interface, in reading order.
void MenuModelFixture::CheckHistories() {
    if (m_histories.empty()) return;
    RegEntry list;
    list.OpenKey(HistoryKey);
    const std::string number = std::to_string(m_histories.size());
    ASSERT_EQ(list.GetString("NumberOfHistorys"), number) << Where();
    // A longer text is not returned.
    if (m_histories.back().size() <= 200) {
        ASSERT_EQ(list.GetString(number + "Directory"), m_histories.back()) << Where();
    }
}

// Saves, and loads the edited menu in another editor.
void MenuModelFixture::SaveForAnother() {
    Save();
    MenuEditor another;
    const std::optional<NeskError> error = another.Open(Folder, Path);
    ASSERT_FALSE(error.has_value()) << Where() << ": " << error->source << " " << error->number;
    ASSERT_FALSE(another.IsIncomplete()) << Where();
    MenuModel read = m_model;
    read.PassThroughFile(*m_rules, m_histories);
    ASSERT_EQ(FirstDifference(*another.OpenMenu(), read.Root()), "") << Where();
    CheckHistories();
    // Loading it there does not change it here.
    Compare();
}

// Saves, loads and saves again, twice. From the second file on no byte changes. If a file preserves all
// texts, the first file is the same too.
void MenuModelFixture::ThroughAFile() {
    Save();
    const std::string first = FileBytes(Path);
    const bool unchanged = m_model.IsUnchangedByFile(*m_rules);
    Load();
    Save();
    const std::string second = FileBytes(Path);
    if (unchanged) {
        ASSERT_EQ(second, first) << Where();
    }
    Load();
    Save();
    ASSERT_EQ(FileBytes(Path), second) << Where();
}

} // namespace nesk::testing
