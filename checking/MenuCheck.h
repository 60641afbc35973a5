#pragma once

#include "checking/EntryRules.h"
#include "checking/FileLookup.h"
#include "checking/Finding.h"
#include "editing/MenuEditor.h"

#include <array>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <numeric>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

namespace nesk {

/// Finds what will not work in the open menu: missing files, empty submenus, captions that do not fit and
/// more. The work is done in slices by Step; files are looked up by workers. After an edit, only what the
/// edit can have changed is checked again.
class MenuCheck : private MenuEditorListener {
public:
    using Clock = std::chrono::steady_clock;

    /// @param editor     must outlive the check
    /// @param inspector  looks at files
    /// @param wake       called, in any thread, when files have been looked up and Step should be called
    explicit MenuCheck(MenuEditor& editor, std::shared_ptr<FileInspector> inspector = StationInspector(),
                       std::function<void()> wake = {});
    ~MenuCheck() override;
    MenuCheck(const MenuCheck&) = delete;
    MenuCheck& operator=(const MenuCheck&) = delete;

    /// Sets the options and checks everything that depends on them again.
    void SetOptions(CheckOptions options);

    /// Checks for at most about `budget`. Returns true while there is more to do at once. Files that are
    /// still being looked up are not waited for.
    bool Step(std::chrono::milliseconds budget);

    /// True when everything was checked, with all files.
    bool IsDone() const { return !HasWork() && !m_hasAnswers && m_files.Waiting() == 0; }

    /// Looks all files up again. What was found stays until the answers come.
    void RefreshFiles() { m_files.Refresh(); }

    /// Number of problems found so far. While entries that were added, moved or removed have not been walked
    /// yet, there are none.
    std::size_t Count() const { return m_findings.size(); }

    /// Number of problems that Count had when it was last known.
    std::size_t LastCount() const {
        return std::accumulate(m_counts.begin(), m_counts.end(), std::size_t{0});
    }

    /// Number of problems of one severity, when it was last known.
    std::size_t CountOf(Severity severity) const { return m_counts[static_cast<std::size_t>(severity)]; }

    /// A problem, in the order of the tree. Raises nothing; `index` must be below Count.
    Finding At(std::size_t index) const;

    /// The entry of a problem; quicker than At.
    const MenuEntry* EntryAt(std::size_t index) const { return m_slots[m_findings[index].slot].entry; }

    /// Number of files that are being looked up.
    std::size_t FilesWaiting() const { return m_files.Waiting(); }

    /// The names of part programs, as far as their files have been looked up, by the entries that start them.
    std::unordered_map<const MenuEntry*, std::string> PartNames() const;

    /// What is known of a file that the menu uses; null when it has not been looked up.
    const FileFacts* FactsOf(const std::string& path, FileUse use) const { return m_files.Known(path, use); }

    /// The greatest severity of the problems of an entry.
    Severity WorstOf(const MenuEntry& entry) const { return MarkOf(entry).own; }

    /// The greatest severity of the problems of an entry and all entries below it.
    Severity WorstBelow(const MenuEntry& entry) const { return MarkOf(entry).below; }

    /// Increases whenever the problems may be others.
    std::size_t Version() const { return m_version; }

private:
    using Index = std::uint32_t;
    static constexpr Index NoIndex = UINT32_MAX;

    // An entry, in the order of the tree.
    struct Slot {
        const MenuEntry* entry = nullptr; // null in m_old when the slot was taken over
        Index parent = NoIndex;
        Index sameTitle = NoIndex;    // another part with the same history title
        std::uint64_t captionKey = 0; // equal for captions that the operator cannot tell apart; 0 for none
        std::uint64_t titleKey = 0;   // the same for history titles
        std::array<Index, EntryRules::FileFields.size()> files{}; // numbers in m_files
        std::vector<Problem> problems;
        int children = 0;
        bool isFresh = true; // its texts have not been looked at
        bool isDoubled = false;
        bool isPending = false; // the facts of a file are not known yet
    };

    // An entry whose children are being visited.
    struct Level {
        Index slot;
        int nextChild;
    };

    struct Reference {
        Index slot;
        Problem problem;
    };

    struct Mark {
        Severity own = Severity::None;
        Severity below = Severity::None;
    };

    void OnMenuReplaced() override;
    void OnMenuEvent(const MenuEvent& event) override;
    void OnStateChanged() override;

    bool HasWork() const;
    void Restart();
    void BeginWalk();
    void StartWalk();
    bool WalkOne();
    void Take(const MenuEntry& entry, Index parent);
    void EndWalk();
    void TakeAnswers();
    bool AreAnswersDue() const;
    void JudgePending();
    void CheckEdited();
    void Look(Slot& slot);
    void JudgeNext();
    void Judge(Index index);
    void Group();
    void GroupSiblings(Index parent);
    void GroupAllSiblings();
    void GroupTitles();
    void Publish();
    std::vector<std::string> ArgumentsOf(const Slot& slot, const Problem& problem) const;
    Mark MarkOf(const MenuEntry& entry) const;

    MenuEditor& m_editor;
    FileLookup m_files;
    CheckOptions m_options;
    const Menu* m_menu = nullptr; // the tree that the slots refer to

    // The walk over the tree.
    bool m_isStale = true; // entries were added, removed or moved
    std::vector<Slot> m_slots;
    std::vector<Slot> m_old; // slots of the walk before, to be taken over
    std::size_t m_oldNext = 0;
    std::unordered_map<const MenuEntry*, std::size_t> m_oldIndex;
    std::vector<Level> m_levels;
    bool m_isWalked = false;

    // What is to be done after the walk.
    std::vector<const MenuEntry*> m_edited;
    Index m_judged = 0;            // slots before it were judged
    bool m_judgesAll = false;      // and not only those with new texts
    std::vector<Index> m_pending;  // slots with a file that is not known yet
    std::vector<Index> m_families; // parents whose children need to be compared
    bool m_groupsAll = true;
    bool m_groupsTitles = true;
    bool m_mustPublish = true;
    Clock::time_point m_lastAnswers{};
    bool m_hasAnswers = false;

    // What was found.
    std::vector<Reference> m_findings;
    std::unordered_map<const MenuEntry*, Mark> m_marks; // of entries with a problem at or below them
    std::array<std::size_t, 4> m_counts{};              // by severity
    std::size_t m_version = 0;
};

} // namespace nesk
