#pragma once

#include "base/FileHash.h"
#include "base/NeskError.h"
#include "base/SafeFile.h"
#include "editing/MenuChange.h"
#include "editing/UndoStack.h"
#include "menu/Menu.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace nesk {

/// Hears of everything that happens to the open menu. It may add and remove listeners, but must not change
/// the menu.
class MenuEditorListener {
public:
    virtual ~MenuEditorListener() = default;

    /// A menu was opened or closed: everything is to be shown anew.
    virtual void OnMenuReplaced() = 0;

    /// One entry was added, removed, moved or edited. A change of several events reports each of them when it
    /// has just happened.
    virtual void OnMenuEvent(const MenuEvent& event) = 0;

    /// A change is complete, with all its events, or the menu was saved: the dirty flag, the path, the
    /// incomplete flag or the history may have another value.
    virtual void OnStateChanged() = 0;
};

/// Which commands make sense for an entry.
struct MenuCommands {
    bool addPart = false;
    bool addSubmenu = false;
    bool moveUp = false;
    bool moveDown = false;
    bool edit = false;
    bool remove = false;
    bool rename = false;

    bool operator==(const MenuCommands&) const = default;
};

/// What the user has to know before a save.
enum class SaveHazard {
    None,
    Incomplete,         ///< the file on disk holds entries that could not be read
    ChangedByOther,     ///< the file on disk is not the one that was read or written last
    OtherPlace,         ///< the menu was opened from another path; there is no file at the new one
    OtherPlaceReplaces, ///< the menu was opened from another path; a file at the new one is replaced
};

/// How a save will be done.
struct SavePlan {
    SaveHazard hazard = SaveHazard::None;
    Backup backup;   ///< where the version that is replaced is kept
    FileHash onDisk; ///< of that version
};

/// The open menu and every operation on it: nothing else changes it. Each edit is a MenuChange, which is
/// made, reported to the listeners and kept to be taken back. Taking back and making again registers nothing.
class MenuEditor {
public:
    /// @param files  where menus are read and saved
    /// @param undoLimit  bytes that the changes kept for Undo may take, and bytes that the memory of replaced
    ///                   texts and removed entries may grow to before a save frees it. The history goes with
    ///                   it, since it may hold such entries
    explicit MenuEditor(platform::FileSystem& files = platform::StationFiles(),
                        std::size_t undoLimit = UndoStack::UsualLimit);
    ~MenuEditor();
    MenuEditor(const MenuEditor&) = delete;
    MenuEditor& operator=(const MenuEditor&) = delete;

    /// Adds a listener, which must be removed before it is destroyed. Listeners are told in the order in
    /// which they were added.
    void AddListener(MenuEditorListener& listener);
    void RemoveListener(MenuEditorListener& listener);

    /// Opens the menu file `path`, in place of the one that is open; a missing file gives an empty menu.
    /// @param rootDirectory  folder that holds the menu file
    /// @return the error that ended reading; the menu is open all the same, with the items read so far, and
    /// incomplete
    std::optional<NeskError> Open(const std::string& rootDirectory, const std::string& path);

    /// Closes the menu without saving.
    void Close();

    /// What saving to `path` would do to the file there. Ask the user about a hazard before saving all the
    /// same. A version that somebody else wrote, or that is in another place than the menu, is kept under a
    /// name of its own (DatedBackupOf).
    SavePlan PlanSave(const std::string& path) const;

    /// The hazard of PlanSave.
    SaveHazard CheckSave(const std::string& path) const { return PlanSave(path).hazard; }

    /// Where the last version of this menu is kept when it is saved to `path`: "menu.cfg.bak", or for an
    /// incomplete menu a "menu.cfg.damaged" that does not exist yet.
    Backup BackupFor(const std::string& path) const;

    /// Saves the menu as planned. Where the file was changed after the plan was made, that version is kept as
    /// a new plan says. Equal bytes on disk leave the older backup. Raises the run-time error of what failed;
    /// the menu stays open and dirty then and the file is as it was.
    void Save(const std::string& path, const SavePlan& plan);

    /// Saves the menu without asking what is on the disk: the version before is kept as BackupFor says.
    void Save(const std::string& path);

    /// Writes a copy of the menu to `path`. The menu's own path and its dirty flag stay. Raises the run-time
    /// error of what failed; the file at `path` is as it was then.
    void SaveCopy(const std::string& path);

    bool IsOpen() const { return m_menu != nullptr; }
    /// Whether the menu differs from the file by changes: undo and redo can lead back to the saved state.
    bool IsDirty() const { return IsOpen() && (!m_history.IsAtSaved() || !m_grouped.empty()); }
    bool IsIncomplete() const { return m_incomplete; }

    /// Whether the open menu has no file yet: there was none to open, and it was not saved since.
    bool IsNew() const { return IsOpen() && m_path.empty(); }

    /// Path of the menu file that was read or written last; "" when there is none yet.
    const std::string& Path() const { return m_path; }

    /// Path from which the menu was opened, also where there was no file, or to which it was saved last; ""
    /// when nothing is open.
    const std::string& Place() const { return m_place; }

    /// The open menu; null when there is none.
    const Menu* OpenMenu() const { return m_menu.get(); }

    /// The entry with an id; null when there is none.
    const MenuEntry* Find(const std::string& id) const;

    /// Which commands make sense for the entry `id`: none at all when there is no such entry.
    MenuCommands CommandsFor(const std::string& id) const;

    /// Appends a part button or a submenu to the children of an entry.
    /// @return id of the new entry; "" when the parent is missing or is a part button, which never has
    /// children Raises Overflow when the parent has no room, 5000 for a caption that cannot be stored.
    std::string AddPart(const std::string& parentId, const std::string& caption);
    std::string AddSubmenu(const std::string& parentId, const std::string& caption);

    /// Moves an entry one position. False when that is not possible; nothing has changed then.
    bool MoveUp(const std::string& id);
    bool MoveDown(const std::string& id);

    /// Removes an entry with everything below it. False for the root and for an unknown id.
    bool Remove(const std::string& id);

    /// Gives an entry another caption or picture, or a part button other fields. The caption that it has
    /// already is no change; a picture or fields always are one, since the user confirmed a dialog. False for
    /// an unknown id. Raises 5000 for a text that cannot be stored.
    bool SetCaption(const std::string& id, const std::string& caption);
    bool SetGraphic(const std::string& id, const std::string& graphic);
    bool SetPart(const std::string& id, const PartFields& fields);

    /// Moves an entry with everything below it to another place.
    /// @param position  1-based, among the children of the new parent without the entry itself; 0 for the end
    /// @return the id that the entry has now; "" for ids that do not exist
    /// Raises 5000 with the reason when the entry cannot be moved there (WhyNotMoveTo).
    std::string MoveTo(const std::string& id, const std::string& parentId, int position);

    /// Why MoveTo would raise; nothing when it would not.
    std::optional<NeskError> WhyNotMoveTo(const std::string& id, const std::string& parentId) const;

    /// Makes all changes up to CommitGroup one change of the given name. Groups do not nest.
    void BeginGroup(ChangeName name);

    /// Ends a group. A group without changes is no change.
    void CommitGroup();

    /// Ends a group and takes its changes back.
    void RollBackGroup();

    /// The changes that can be taken back and made again.
    const UndoStack& History() const { return m_history; }

    /// Takes the last change back, or makes the last one again that was taken back. False when there is none.
    bool Undo();
    bool Redo();

private:
    std::string Add(const std::string& parentId, const std::string& caption, std::string_view type);
    ChangeName NameFor(int textId, const std::string& id) const;
    bool Make(std::unique_ptr<MenuChange> change, ChangeName name);
    void ForgetChanges();
    void CompactWhenWasteful();
    void Report(const MenuEvent& event);
    void MenuReplaced();
    void StateChanged();
    template <typename Call>
    void Tell(Call call);
    FileHash Write(const std::string& path, const Backup& backup, const FileHash& known);
    void SaveWith(const std::string& path, const Backup& backup, const FileHash& known);

    platform::FileSystem& m_files;
    std::vector<MenuEditorListener*> m_listeners;
    std::unique_ptr<Menu> m_menu;
    std::size_t m_deadRoomLimit;
    std::size_t m_bytesBefore = 0; // of the menu's arena when it had no dead room
    UndoStack m_history;           // whose changes may hold items of the menu
    std::optional<ChangeName> m_group;
    std::vector<std::unique_ptr<MenuChange>> m_grouped;
    std::string m_lastId; // of the last event
    std::string m_path;
    std::string m_place;
    FileHash m_hash;
    bool m_incomplete = false;
};

} // namespace nesk
