// Random edits of the open menu, each compared with MenuModel. A failure names the edit and the seed of its
// sequence; the same seed gives the same sequence again.

#include "unit/menu/MenuModel.h"
#include "base/Messages.h"
#include "editing/MenuEditor.h"
#include "menu/MenuItem.h"
#include "platform/Collation.h"
#include "settings/RegEntry.h"
#include "unit/CoreFixture.h"
#include "unit/FileBytes.h"
#include "unit/menu/EventShadow.h"
#include "unit/menu/MenuModelTexts.h"
#include "unit/menu/QuickFiles.h"

#include <algorithm>
#include <filesystem>
#include <limits>
#include <map>

namespace nesk {
namespace {

using nesk::testing::EventShadow;
using nesk::testing::FileBytes;
using nesk::testing::FirstDifference;
using nesk::testing::MenuModel;
using nesk::testing::ModelEntry;
using nesk::testing::QuickFiles;
using nesk::testing::Random;
using nesk::testing::TextRules;

const std::string Folder = "C:\\Neskroot";
const std::string Path = Folder + "\\menu.cfg";
const std::string HistoryKey = "Neskworks\\Historys";
constexpr int EditsOfASequence = 200;
// A tree that grows without limit makes the sequences slow and finds nothing more.
constexpr std::size_t ManyEntries = 25;

class MenuModelTest : public nesk::testing::CoreTest, public MenuEditorListener {
protected:
    MenuModelTest() { std::filesystem::create_directories(TempStation::Host(Folder)); }

    void OnMenuReplaced() override {}
    void OnMenuEvent(const MenuEvent& event) override {
        m_events.push_back(event);
        m_shadow.Follow(event, *m_editor->OpenMenu());
    }
    void OnStateChanged() override {}

    // Whether sequences load during the edits, after which no change can be undone. All sequences save, and
    // load at the end.
    bool m_withLoads = true;

    // Runs sequences with the seeds from `first` on and stops at the first that fails.
    void RunSequences(const TextRules& rules, unsigned first, unsigned count) {
        platform::SelectCodePage(rules.languageId);
        m_rules = &rules;
        for (unsigned seed = first; seed < first + count; ++seed) {
            SCOPED_TRACE("seed " + std::to_string(seed));
            RunSequence(seed);
            if (HasFailure()) return;
        }
    }

    // The menu file at the start of a sequence, and its model. If the text is empty, there is no file.
    std::string m_startFile;
    MenuModel m_startModel;

private:
    // A text, with the number of the message that refuses it; 0 for a text that the model stores.
    struct Text {
        std::string text;
        int refusal;
    };

    Text MakeText() {
        std::string text = m_rules->Make(*m_random);
        const int refusal = m_rules->Refusal(text);
        return {std::move(text), refusal};
    }

    void RunSequence(unsigned seed) {
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
    }

    std::string Where() const { return "edit " + std::to_string(m_step) + ": " + m_action; }

    void Compare() {
        ASSERT_EQ(FirstDifference(*m_editor->OpenMenu(), m_model.Root()), "") << Where();
        ASSERT_EQ(m_shadow.DifferenceFrom(*m_editor->OpenMenu()), "") << Where();
        ASSERT_EQ(m_editor->IsDirty(), m_saved != m_made) << Where();
        ASSERT_FALSE(m_editor->IsIncomplete()) << Where();
        ASSERT_EQ(m_editor->Path(), m_exists && m_pathKnown ? Path : "") << Where();
    }

    // The id of an entry; most of the time the entry exists.
    std::string SomeId() {
        static const std::vector<std::string> none = {"",     "X",      "R.",       "R.0",
                                                      "R.01", "R.9999", "R.1.9999", "r"};
        return m_random->OneIn(15) ? m_random->Of(none) : m_random->Of(m_model.Ids());
    }

    void Edit() {
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
        else if (kind < 640)
            EditSeveral();
        else if (kind < 680)
            SetCaption(id);
        else if (kind < 740)
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

    // Makes an edit and compares the result with the model. A text that is refused is tried first.
    template <typename Call, typename ModelCall>
    void Make(const std::string& action, const std::string& id, int refusal, Call call, ModelCall modelCall) {
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
            ASSERT_TRUE(m_events.empty()) << Where();
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

    // --- several entries at once ---

    EntryIds SomeIds() {
        EntryIds ids;
        for (std::size_t i = m_random->Below(5); i > 0; --i)
            ids.push_back(SomeId());
        return Uppermost(*m_editor->OpenMenu(), ids);
    }

    void EditSeveral() {
        m_isSeveral = true;
        const EntryIds ids = SomeIds();
        switch (m_random->Below(5)) {
        case 0: RemoveSeveral(ids); break;
        case 1: MoveSeveral(ids, SomeId()); break;
        case 2: CopySeveral(ids, SomeId()); break;
        case 3: Sort(SomeId()); break;
        default: MoveBlocks(ids, m_random->OneIn(2)); break;
        }
        m_isSeveral = false;
    }

    static std::string Joined(const EntryIds& ids) {
        std::string text;
        for (const std::string& id : ids)
            text += id + " ";
        return text;
    }

    void RemoveSeveral(const EntryIds& ids) {
        Make(
            "remove", Joined(ids), 0, [&] { return m_editor->Remove(ids); },
            [&] {
                bool isAny = false;
                for (const std::string& id : ids)
                    isAny |= m_model.Remove(id);
                return isAny;
            });
    }

    // The children that are before a position of an entry, without those that move.
    std::string FirstAfter(const ModelEntry& parent, int position, const EntryIds& ids) {
        for (std::size_t i = static_cast<std::size_t>(position) - 1; i < parent.children.size(); ++i)
            if (std::find(ids.begin(), ids.end(), parent.children[i].id) == ids.end())
                return parent.children[i].id;
        return "";
    }

    void MoveSeveral(const EntryIds& ids, const std::string& parentId) {
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
            return refusal != 0 || FirstDifferenceOf(before) != "";
        };
        Make(
            "move several to " + parentId + " " + std::to_string(position), Joined(ids), refusal,
            [&] {
                m_editor->MoveTo(ids, parentId, position);
                return !m_events.empty();
            },
            moveInModel);
    }

    // A difference between an earlier state of the model and now.
    std::string FirstDifferenceOf(const ModelEntry& before) {
        MenuModel old;
        old.Restore(before);
        return old.Ids() == m_model.Ids() ? "" : "other ids";
    }

    void CopySeveral(const EntryIds& ids, const std::string& parentId) {
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

    void Sort(const std::string& id) {
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

    void MoveBlocks(const EntryIds& ids, bool up) {
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

    void Add(const std::string& id, std::string_view type) {
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

    void Remove(const std::string& id) {
        Make(
            "remove", id, 0, [&] { return m_editor->Remove(id); }, [&] { return m_model.Remove(id); });
    }

    void Move(const std::string& id, bool up) {
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

    void MoveTo(const std::string& id, const std::string& parentId) {
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

    void SetCaption(const std::string& id) {
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

    // A dialog was confirmed in which nothing was changed: the menu is dirty, and there is nothing to undo.
    template <typename Call>
    void ConfirmUnchanged(const std::string& action, const std::string& id, Call call) {
        m_action = "unchanged " + action + " " + id;
        ASSERT_TRUE(call()) << Where();
        ASSERT_TRUE(m_events.empty()) << Where();
        ASSERT_EQ(m_editor->History().UndoNames().size(), m_made) << Where();
        ASSERT_EQ(m_editor->History().RedoNames().size(), m_states.size() - 1 - m_made) << Where();
        m_saved.reset();
    }

    void SetGraphic(const std::string& id) {
        const Text graphic = MakeText();
        const ModelEntry* entry = m_model.Find(id).entry;
        if (entry != nullptr && entry->fields.graphic == graphic.text)
            return ConfirmUnchanged("graphic", id, [&] { return m_editor->SetGraphic(id, graphic.text); });
        Make(
            "graphic", id, graphic.refusal, [&] { return m_editor->SetGraphic(id, graphic.text); },
            [&] { return m_model.SetGraphic(id, graphic.text); });
    }

    void SetPart(const std::string& id) {
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

    void Undo() {
        m_action = "undo";
        if (m_made == 0) {
            ASSERT_FALSE(m_editor->Undo()) << Where();
            return;
        }
        GoTo(m_made - 1, m_editor->Undo());
    }

    void Redo() {
        m_action = "redo";
        if (m_made + 1 == m_states.size()) {
            ASSERT_FALSE(m_editor->Redo()) << Where();
            return;
        }
        GoTo(m_made + 1, m_editor->Redo());
    }

    void ToTheBeginningAndBack() {
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

    void GoTo(std::size_t made, bool done) {
        ASSERT_TRUE(done) << Where();
        const ModelEntry before = m_model.Root();
        m_model.Restore(m_states[made]);
        m_made = made;
        if (m_events.size() == 1 && m_events.front().kind != MenuEvent::Kind::Reordered) CheckEvent(before);
    }

    // Checks that there was one event and that it describes the change of the tree.
    void CheckEvent(const ModelEntry& before) {
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

    void Save() {
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

    void Load() {
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
    void CheckHistories() {
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
    void SaveForAnother() {
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
    void ThroughAFile() {
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

    const TextRules* m_rules = nullptr;
    Random* m_random = nullptr;
    MenuEditor* m_editor = nullptr;
    MenuModel m_model;
    MenuModel m_onDisk; // as saved
    bool m_exists = false;
    bool m_pathKnown = false;
    std::size_t m_made = 0;             // changes that are not undone
    std::optional<std::size_t> m_saved; // how many of them the file contains; nothing if the saved state
                                        // cannot be reached
    std::vector<ModelEntry> m_states;   // the tree after each number of changes
    std::vector<MenuEvent> m_events;
    EventShadow m_shadow;
    bool m_isSeveral = false; // an edit of several entries, which may report several events
    std::vector<std::string> m_histories;
    int m_step = 0;
    std::string m_action;
};

TEST_F(MenuModelTest, EditsWithoutLoads) {
    m_withLoads = false;
    RunSequences(nesk::testing::WesternTexts(), 1, 800);
}

TEST_F(MenuModelTest, MoreEditsWithoutLoads) {
    m_withLoads = false;
    RunSequences(nesk::testing::WesternTexts(), 2001, 800);
}

TEST_F(MenuModelTest, EditsWithLoads) {
    RunSequences(nesk::testing::WesternTexts(), 10000, 300);
}

TEST_F(MenuModelTest, MoreEditsWithLoads) {
    RunSequences(nesk::testing::WesternTexts(), 11000, 300);
}

// Menus as other editors write them: part buttons with children, and other types.
TEST_F(MenuModelTest, EditsOfAMenuFromElsewhere) {
    m_startFile = "; made by hand\n"
                  "block menu\n"
                  "  caption = Station\n"
                  "  block submenu one\n"
                  "    menutype=Part Program\n"
                  "    block submenu\n"
                  "      menutype=pocket\n"
                  "      helptopic = &H10\n"
                  "    end\n"
                  "  end\n"
                  "  block submenu\n"
                  "    unknown=x\n"
                  "    menutype=Other\n"
                  "    graphic=a.bmp\n"
                  "  end\n"
                  "end\n";
    m_startModel.SetCaption("R", "Station");
    m_startModel.Add("R", "", "");
    m_startModel.Add("R.1", "", "pocket");
    m_startModel.Find("R.1.1").entry->fields.helpTopic = 16;
    m_startModel.Find("R.1").entry->menuType = "Part Program";
    m_startModel.Add("R", "", "Other");
    m_startModel.SetGraphic("R.2", "a.bmp");
    RunSequences(nesk::testing::WesternTexts(), 12000, 300);
}

#ifdef NESK_PORTABLE_STATION
TEST_F(MenuModelTest, EditsWithBytesThatStandForNothing) {
    RunSequences(nesk::testing::GreekTexts(), 13000, 300);
}

TEST_F(MenuModelTest, EditsWithCharactersOfTwoBytes) {
    RunSequences(nesk::testing::JapaneseTexts(), 14000, 300);
}
#endif

} // namespace
} // namespace nesk
