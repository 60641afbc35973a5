#pragma once

#include "editing/MenuEditor.h"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace nesk {

/// Finds a text in the open menu: in captions, part programs, the names of the parts in their partinfo.ini,
/// pictures, help files, history directories and titles. Case and accents do not matter.
///
/// The folded texts of all entries are kept in one buffer, so that a typed letter searches 100,000 entries at
/// once. The work is done in slices by Step; part names, which are read from files, come last. Entries are in
/// the order of the tree.
class MenuSearch : private MenuEditorListener {
public:
    using Clock = std::chrono::steady_clock;

    /// The editor must outlive the search.
    explicit MenuSearch(MenuEditor& editor);
    ~MenuSearch() override;
    MenuSearch(const MenuSearch&) = delete;
    MenuSearch& operator=(const MenuSearch&) = delete;

    /// Sets the text to find; "" finds nothing. Does no search yet, except for entries that the last text
    /// matched when the new text extends it.
    void SetText(const std::string& text);

    /// True while there is a text to find.
    bool IsActive() const { return !m_text.empty(); }

    /// Forgets the names of parts, so that they are read from their files again.
    void ForgetNames();

    /// Searches for at most about `budget`; without a text, prepares for one. Returns true while there is
    /// more to do.
    bool Step(std::chrono::milliseconds budget);

    /// Searches all texts that are in the menu. Only part names may be left to read.
    void FinishTexts();

    /// True when everything was searched.
    bool IsDone() const;

    /// Number of entries found so far.
    std::size_t Count() const { return m_matches.size(); }

    /// 1-based number of an entry among those found; 0 when the entry was not found.
    std::size_t NumberOf(const MenuEntry& entry) const;

    /// True when the entry contains the text. Looks at the entry itself, so that it is right at any time.
    bool Matches(const MenuEntry& entry) const;

    /// A field that contains the text.
    struct Found {
        std::string field; ///< its name, for example "Picture"
        std::string text;
    };

    /// The first field of an entry that contains the text. Nothing when that field is the caption, which the
    /// tree shows, or when no field contains the text.
    std::optional<Found> FoundBesideCaption(const MenuEntry& entry) const;

    /// The entry found next after an entry, or before it, in the order of the tree. After the last one comes
    /// the first one.
    /// @param from  null for the root
    /// @return null when nothing was found
    const MenuEntry* Next(const MenuEntry* from) const;
    const MenuEntry* Previous(const MenuEntry* from) const;

    /// Like Next, but returns `from` itself when it was found.
    const MenuEntry* NextFrom(const MenuEntry* from) const;

    /// For each child of an entry: whether it, or an entry below it, was found. Finishes the texts first.
    std::vector<bool> LeadsToMatch(const MenuEntry& parent);

    /// Increases whenever entries were found or no longer are.
    std::size_t Version() const { return m_version; }

    /// Increases whenever an entry was found by the name of its part, which may be long after the text was
    /// set.
    std::size_t FoundByName() const { return m_foundByName; }

private:
    using Index = std::uint32_t;
    static constexpr Index NoName = UINT32_MAX;
    static constexpr Index UnknownName = UINT32_MAX - 1; ///< the entry has a name that was never read

    // An entry, in the order of the tree.
    struct Slot {
        const MenuEntry* entry;
        std::size_t begin;   // of its folded text
        Index length;        // of its folded text
        Index end;           // the slot after the last entry below it
        Index name = NoName; // index into m_names
        bool isMatch = false;
    };

    // The name in a partinfo.ini.
    struct Name {
        std::string path;
        std::string text;
        std::string folded;
        bool isRead = false;
    };

    // An entry whose children are being visited.
    struct Level {
        Index slot;
        int nextChild;
    };

    void OnMenuReplaced() override;
    void OnMenuEvent(const MenuEvent& event) override;
    void OnStateChanged() override;

    void Restart();
    void Synchronize();
    void UpdateEdited();
    bool WalkOne();
    void AddSlot(const MenuEntry& entry);
    void SetSlotText(Slot& slot);
    static void AppendFields(std::string& text, const MenuEntry& entry);
    static std::string ProgramPath(const MenuEntry& entry);
    bool SlotMatches(const Slot& slot) const;
    void SetMatch(Index slot, bool isMatch);
    bool ReadNextName();
    std::optional<Index> SlotOf(const MenuEntry& entry) const;
    Index NameIndex(const std::string& path);
    std::string_view TextOf(const Slot& slot) const {
        return std::string_view(m_buffer).substr(slot.begin, slot.length);
    }

    MenuEditor& m_editor;
    const Menu* m_menu = nullptr; // the tree that the slots refer to
    bool m_isStale = true;        // entries were added, removed or moved
    std::vector<const MenuEntry*> m_edited;
    std::string m_text; // folded
    std::string m_buffer;
    std::vector<Slot> m_slots;
    std::vector<Level> m_levels; // from the root to the entry that is visited
    bool m_isWalked = false;     // all entries have a slot
    Index m_searched = 0;        // slots before it were searched for the text
    Index m_namesSearched = 0;   // slots before it have a name that is read
    std::vector<Index> m_matches;
    std::vector<Name> m_names;
    std::unordered_map<std::string, Index> m_nameOfPath;
    std::size_t m_version = 0;
    std::size_t m_foundByName = 0;
};

} // namespace nesk
