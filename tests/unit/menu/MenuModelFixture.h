#pragma once

#include "checking/Replacement.h"
#include "editing/MenuEditor.h"
#include "unit/CoreFixture.h"
#include "unit/menu/EventShadow.h"
#include "unit/menu/MenuModel.h"
#include "unit/menu/MenuModelTexts.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace nesk::testing {

/// Makes random edits of the open menu and compares each result with MenuModel. A failure names the edit and
/// the seed of its sequence; the same seed gives the same sequence again.
class MenuModelFixture : public CoreTest, public MenuEditorListener {
protected:
    MenuModelFixture();

    void OnMenuReplaced() override {}
    void OnMenuEvent(const MenuEvent& event) override;
    void OnStateChanged() override {}

    /// Runs sequences with the seeds from `first` on and stops at the first that fails.
    void RunSequences(const TextRules& rules, unsigned first, unsigned count);

    /// Whether sequences load during the edits, after which no change can be undone. All sequences save, and
    /// load at the end.
    bool m_withLoads = true;

    /// The menu file at the start of a sequence, and its model. If the text is empty, there is no file.
    std::string m_startFile;
    MenuModel m_startModel;

private:
    // A tree that grows without limit makes the sequences slow and finds nothing more.
    static constexpr std::size_t ManyEntries = 25;

    // --- sequences ---

    void RunSequence(unsigned seed);
    std::string Where() const;
    void Compare();
    void Undo();
    void Redo();
    void ToTheBeginningAndBack();
    void GoTo(std::size_t made, bool done);
    void Save();
    void Load();
    void CheckHistories();
    void SaveForAnother();
    void ThroughAFile();

    using Step = std::function<bool()>;
    void Make(const std::string& action, const std::string& id, int refusal, const Step& call,
              const Step& modelCall);
    void ConfirmUnchanged(const std::string& action, const std::string& id, const Step& call);
    void CheckEvent(const ModelEntry& before);

    // --- edits of one entry ---

    // A text, with the number of the message that refuses it; 0 for a text that the model stores.
    struct Text {
        std::string text;
        int refusal;
    };
    Text MakeText();
    std::string SomeId();
    void Edit();
    void Add(const std::string& id, std::string_view type);
    void Remove(const std::string& id);
    void Move(const std::string& id, bool up);
    void MoveTo(const std::string& id, const std::string& parentId);
    void SetCaption(const std::string& id);
    void SetGraphic(const std::string& id);
    void SetPart(const std::string& id);

    // --- edits of several entries at once ---

    EntryIds SomeIds();
    void EditSeveral();
    void RemoveSeveral(const EntryIds& ids);
    void MoveSeveral(const EntryIds& ids, const std::string& parentId);
    void CopySeveral(const EntryIds& ids, const std::string& parentId);
    void Sort(const std::string& id);
    void MoveBlocks(const EntryIds& ids, bool up);
    static std::string Joined(const EntryIds& ids);

    // --- fields of several entries at once ---

    void SetParts(const EntryIds& ids);
    ReplaceOptions SomeReplacement();
    void Replace();

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
    bool m_rollsBack = false; // an edit that is refused only after it has changed some entries
    std::vector<std::string> m_histories;
    int m_step = 0;
    std::string m_action;
};

} // namespace nesk::testing
