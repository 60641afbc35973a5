#pragma once

#include "base/FileHash.h"
#include "base/NeskError.h"
#include "base/SafeFile.h"
#include "editing/EntryIds.h"
#include "editing/MenuChange.h"
#include "editing/UndoStack.h"
#include "menu/Menu.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace nesk {

/// The interface for observers of the open menu. A listener may add and remove listeners, but must not change
/// the menu.
class MenuEditorListener {
public:
    virtual ~MenuEditorListener() = default;

    /// Called after a menu was opened or closed. Everything must be displayed again.
    virtual void OnMenuReplaced() = 0;

    /// Called before a change of several events.
    /// @param events  the approximate number of events; the change may also fail
    virtual void OnChangeBegins(std::size_t events) { static_cast<void>(events); }

    /// Called after one entry was added, removed, moved or edited. A change of several events reports each
    /// event directly after it happened.
    virtual void OnMenuEvent(const MenuEvent& event) = 0;

    /// Called after the file of the menu was written, by a save or by a copy to the menu's own place. The
    /// file then contains the menu as it is. OnStateChanged follows a save.
    virtual void OnFileWritten() {}

    /// Called when the menu belongs to another version of its file from now on. OnStateChanged follows.
    virtual void OnFileAdopted() {}

    /// Called after all events of a change, and after the menu was saved. The dirty flag, the path, the
    /// incomplete flag or the history may have changed.
    virtual void OnStateChanged() = 0;
};

/// The commands that are possible for one or more entries.
struct MenuCommands {
    bool addPart = false;
    bool addSubmenu = false;
    bool moveUp = false;
    bool moveDown = false;
    bool moveOut = false;
    bool moveIn = false;
    bool edit = false;
    bool remove = false;
    bool rename = false;
    bool copy = false; ///< also cut, duplicate and move to another place
    bool pasteAfter = false;
    bool pasteInside = false;
    bool sort = false;
    bool addParts = false; ///< many parts from folders

    bool operator==(const MenuCommands&) const = default;
};

/// Fields that several part buttons get at once. A field without a value keeps the different values of the
/// parts.
struct CommonPartFields {
    std::optional<std::string> graphic;
    std::optional<std::string> historyDir;
};

/// What the user must confirm before a save.
enum class SaveHazard {
    None,
    Incomplete,         ///< the file on disk contains entries that could not be read
    ChangedByOther,     ///< the file on disk has changed since it was last read or written
    OtherPlace,         ///< the menu was opened from another path; there is no file at the new path
    OtherPlaceReplaces, ///< the menu was opened from another path; a file at the new path will be replaced
};

/// How a save will be made.
struct SavePlan {
    SaveHazard hazard = SaveHazard::None;
    Backup backup;   ///< where to keep the version that the save replaces
    FileHash onDisk; ///< the hash of that version
};

/// The open menu and all operations on it. No other code changes the menu. Each edit is a MenuChange, which
/// is made, reported to the listeners and kept for Undo. Undo and Redo register no histories.
class MenuEditor {
public:
    /// @param files  where to read and save menus
    /// @param undoLimit  limit in bytes for the changes kept for Undo, and for the growth of the memory of
    ///                   replaced texts and removed entries, which a save then frees. The save also drops the
    ///                   history, because the history may refer to such entries
    explicit MenuEditor(platform::FileSystem& files = platform::StationFiles(),
                        std::size_t undoLimit = UndoStack::DefaultLimit);
    ~MenuEditor();
    MenuEditor(const MenuEditor&) = delete;
    MenuEditor& operator=(const MenuEditor&) = delete;

    /// Adds a listener. It must be removed before it is destroyed. Listeners are called in the order in which
    /// they were added.
    void AddListener(MenuEditorListener& listener);
    void RemoveListener(MenuEditorListener& listener);

    /// Opens the menu file `path` and closes the menu that is open. A missing file results in an empty menu.
    /// @param rootDirectory  folder that contains the menu file
    /// @return the error that stopped reading. The menu is then open with the items read so far, and is
    ///         marked incomplete
    std::optional<NeskError> Open(const std::string& rootDirectory, const std::string& path);

    /// Closes the menu without saving.
    void Close();

    /// Determines what saving to `path` would do to the file there. When the plan has a hazard, ask the user
    /// before saving. A version that another program wrote, or that is not at the menu's own path, is backed
    /// up under a dated name (DatedBackupOf).
    SavePlan PlanSave(const std::string& path) const;

    /// The hazard of PlanSave.
    SaveHazard CheckSave(const std::string& path) const { return PlanSave(path).hazard; }

    /// The backup file for the last version of this menu when it is saved to `path`: "menu.cfg.bak", or for
    /// an incomplete menu a "menu.cfg.damaged" that does not exist yet.
    Backup BackupFor(const std::string& path) const;

    /// Saves the menu as planned. When the file was changed after the plan was made, a new plan decides how
    /// to back it up. When the bytes on disk are the same, the older backup is kept. Raises the run-time
    /// error of the failed step; the menu then stays open and dirty, and the file is unchanged.
    void Save(const std::string& path, const SavePlan& plan);

    /// Saves the menu without checking what is on disk. The previous version is backed up according to
    /// BackupFor.
    void Save(const std::string& path);

    /// Makes another version of the menu file the one to which the menu belongs, after the menu was changed
    /// into it or merged with it. A save then replaces this version without a question.
    /// @param hash    the hash of that version, as it was read
    /// @param isSame  true when the menu is as in that version, so that there is nothing to save
    void Adopt(const FileHash& hash, bool isSame);

    /// Writes a copy of the menu to `path`. The menu's own path and its dirty flag do not change. Raises the
    /// run-time error of the failed step; the file at `path` is then unchanged.
    void SaveCopy(const std::string& path);

    bool IsOpen() const { return m_menu != nullptr; }
    /// True when changes make the menu differ from the file. Undo and Redo can return to the saved state.
    bool IsDirty() const { return IsOpen() && (!m_history.IsAtSaved() || !m_grouped.empty()); }
    bool IsIncomplete() const { return m_incomplete; }

    /// True when the open menu has no file yet: there was no file to open, and the menu has not been saved
    /// since.
    bool IsNew() const { return IsOpen() && m_path.empty(); }

    /// Path of the menu file that was last read or written; "" when there is no such file yet.
    const std::string& Path() const { return m_path; }

    /// Path from which the menu was opened, even when there was no file, or to which it was last saved; ""
    /// when no menu is open.
    const std::string& Place() const { return m_place; }

    /// Hash of the menu file as it was last read or written; that of a missing file when there was none.
    const FileHash& HashOnDisk() const { return m_hash; }

    /// The open menu; null when no menu is open.
    const Menu* OpenMenu() const { return m_menu.get(); }

    /// The entry with this id; null when there is no such entry.
    const MenuEntry* Find(const std::string& id) const;

    /// The commands that are possible for the entry `id`. None when there is no such entry.
    MenuCommands CommandsFor(const std::string& id) const;

    /// The commands that are possible for several entries at once.
    /// @param ids  as Uppermost returns them
    MenuCommands CommandsFor(const EntryIds& ids) const;

    /// Appends a part button or a submenu to the children of an entry. Raises Overflow when the parent has
    /// the maximum number of children, and 5000 for a caption that cannot be stored.
    /// @return id of the new entry; "" when the parent does not exist or is a part button, which never has
    ///         children
    std::string AddPart(const std::string& parentId, const std::string& caption);
    std::string AddSubmenu(const std::string& parentId, const std::string& caption);

    /// Does the same as AddPart, and gives the part its fields, as one event. Raises 5000 also for a field
    /// that cannot be stored.
    std::string AddPart(const std::string& parentId, const std::string& caption, const PartFields& fields);

    /// Moves an entry one position. Returns false when that is not possible; nothing has then changed.
    bool MoveUp(const std::string& id);
    bool MoveDown(const std::string& id);

    /// Removes an entry and everything below it. Returns false for the root and for an unknown id.
    bool Remove(const std::string& id);

    /// Changes the caption or picture of an entry, or the fields of a part button. Setting the same caption
    /// again is not a change. Setting the same picture or fields again makes the menu dirty, because the user
    /// confirmed a dialog, but there is nothing to undo. Returns false for an unknown id. Raises 5000 for a
    /// text that cannot be stored.
    bool SetCaption(const std::string& id, const std::string& caption);
    bool SetGraphic(const std::string& id, const std::string& graphic);
    bool SetPart(const std::string& id, const PartFields& fields);

    /// Gives an entry that has just been added its caption. Adding and naming become one change.
    bool NameAdded(const std::string& id, const std::string& caption);

    /// Moves an entry and everything below it to another place. Raises 5000 with the reason when the entry
    /// cannot be moved there (WhyNotMoveTo).
    /// @param position  1-based, among the children of the new parent without the entry itself; 0 for the end
    /// @return the new id of the entry; "" for ids that do not exist
    std::string MoveTo(const std::string& id, const std::string& parentId, int position);

    /// Moves an entry out of its submenu, to the place after it, or to the end of the submenu before the
    /// entry. Raises 5000 or Overflow as MoveTo does.
    /// @return the new id of the entry; "" when there is no such place
    std::string MoveOut(const std::string& id);
    std::string MoveIn(const std::string& id);

    /// The error that MoveTo would raise; nothing when it would succeed.
    std::optional<NeskError> WhyNotMoveTo(const std::string& id, const std::string& parentId) const;

    // --- several entries at once; the ids are as Uppermost returns them ---
    //
    // Each function makes one change. When it raises an error, nothing has changed.

    /// Removes entries and everything below them. Returns false when there are none.
    bool Remove(const EntryIds& ids);

    /// Removes entries whose text was put on the clipboard.
    bool Cut(const EntryIds& ids);

    /// Moves the entries of each parent one position, as a block. Entries of which one is already first or
    /// last stay. Returns false when all stay.
    bool MoveUp(const EntryIds& ids);
    bool MoveDown(const EntryIds& ids);

    /// Moves entries of one parent out of their submenu, to the place after it, or to the end of the submenu
    /// before the first of them.
    /// @return the new ids of the entries; none when there is no such place
    EntryIds MoveOut(const EntryIds& ids);
    EntryIds MoveIn(const EntryIds& ids);

    /// Moves entries to one place, in their order. Raises the error of WhyNotMoveTo.
    /// @param position  1-based position among the present children of the new parent before which the
    ///                  entries go; 0 for the end
    /// @return the new ids of the entries
    EntryIds MoveTo(const EntryIds& ids, const std::string& parentId, int position);

    /// Copies entries to one place. The parameters and results are those of MoveTo. Raises 5000 when the
    /// parent is a part button, and Overflow when it would have too many children.
    EntryIds CopyTo(const EntryIds& ids, const std::string& parentId, int position);

    /// Copies entries to the place after the last of them.
    EntryIds Duplicate(const EntryIds& ids);

    /// The error that MoveTo or CopyTo would raise; nothing when it would succeed.
    std::optional<NeskError> WhyNotMoveTo(const EntryIds& ids, const std::string& parentId) const;
    std::optional<NeskError> WhyNotCopyTo(std::size_t count, const std::string& parentId) const;

    /// The entries as text for the clipboard.
    std::string CopyText(const EntryIds& ids) const;

    /// Inserts entries from a text. The parameters and results are those of CopyTo. Raises also the errors of
    /// EntryText::Read.
    EntryIds Paste(std::string_view text, const std::string& parentId, int position);

    /// Id of the entry whose children the sort commands order: the selected submenu, or the parent of the
    /// selected part or siblings. "" when the selected entries have different parents, or when there are
    /// fewer than 2 children to order.
    std::string SortTarget(const EntryIds& ids) const;

    /// Id of the entry to which many parts are added: the selected submenu, or the submenu in which the first
    /// of the selected entries is. "" when nothing is selected.
    std::string AddPartsTarget(const EntryIds& ids) const;

    /// Sorts the children of an entry by caption, in the order of the user's language. Returns false when
    /// they are in this order already.
    /// @param submenusFirst  false mixes submenus and part buttons
    bool Sort(const std::string& parentId, bool submenusFirst);

    /// Changes fields of the part buttons among the entries. Returns false when nothing changes. Raises 5000
    /// for a text that cannot be stored.
    bool SetParts(const EntryIds& ids, const CommonPartFields& fields);

    /// Begins a group: all changes up to CommitGroup become one change with this name. Groups cannot be
    /// nested.
    /// @param events  how many events are expected; views show many more quickly when they know it
    void BeginGroup(ChangeName name, std::size_t events = 1);

    /// Ends a group. An empty group adds no change.
    void CommitGroup();

    /// Ends a group and undoes its changes.
    void RollBackGroup();

    /// A group that is undone unless it is committed.
    class Group {
    public:
        Group(MenuEditor& editor, ChangeName name, std::size_t events) : m_editor(editor) {
            editor.BeginGroup(std::move(name), events);
        }
        ~Group() {
            if (!m_isCommitted) m_editor.RollBackGroup();
        }
        Group(const Group&) = delete;
        Group& operator=(const Group&) = delete;

        void Commit() {
            m_isCommitted = true;
            m_editor.CommitGroup();
        }

    private:
        MenuEditor& m_editor;
        bool m_isCommitted = false;
    };

    /// Makes a change that other code prepares, as a part of the group that was begun. Its texts are not
    /// checked: those of a file are kept unchanged. Raises the errors of the change.
    /// @param prepare  makes the change; it may create entries in the memory of the menu, but must not change
    /// it
    /// @return false when no menu is open, no group was begun or the change is not possible
    bool MakePrepared(const std::function<std::unique_ptr<MenuChange>(Menu&)>& prepare);

    /// Sets the source of what the view shows. It is asked before each change, and what it returned comes
    /// back when the change is undone.
    void SetContextSource(EditContextSource source) { m_contextSource = std::move(source); }

    /// The changes that can be undone and redone.
    const UndoStack& History() const { return m_history; }

    /// Undoes the last change, or redoes the change that was last undone. Returns false when there is no such
    /// change.
    bool Undo();
    bool Redo();

    /// Ids of the entries that the last change, undo or redo added, moved or edited, in the order of the
    /// events.
    const EntryIds& LastIds() const { return m_lastIds; }

private:
    bool Confirm();
    std::string Add(const std::string& parentId, const std::string& caption, std::string_view type);
    static const MenuItem* SubmenuBefore(const MenuItem& item);
    ChangeName NameFor(int textId, const std::string& id) const;
    ChangeName NameFor(int textId, int textIdForSeveral, const EntryIds& ids) const;
    std::vector<const MenuItem*> ItemsOf(const EntryIds& ids) const;
    std::vector<EntryIds> ByParent(const EntryIds& ids) const;
    bool RemoveAs(ChangeName name, const EntryIds& ids);
    bool MoveBlocks(const EntryIds& ids, bool up);
    bool IsBlockAt(const EntryIds& ids, const MenuEntry& parent, int before) const;
    EntryIds InsertFrom(std::string_view text, const std::string& parentId, int position, ChangeName name);
    bool Make(std::unique_ptr<MenuChange> change, ChangeName name);
    std::unique_ptr<EditContext> Context() const { return m_contextSource ? m_contextSource() : nullptr; }
    void ForgetChanges();
    void CompactWhenWasteful();
    void Report(const MenuEvent& event);
    void MenuReplaced();
    void ChangeBegins(std::size_t events);
    void FileWritten();
    void StateChanged();
    template <typename Call>
    void Tell(Call call);
    FileHash Write(const std::string& path, const Backup& backup, const FileHash& known);
    void SaveWith(const std::string& path, const Backup& backup, const FileHash& known);

    platform::FileSystem& m_files;
    std::vector<MenuEditorListener*> m_listeners;
    std::unique_ptr<Menu> m_menu;
    std::size_t m_deadMemoryLimit;
    std::size_t m_bytesBefore = 0; // size of the menu's arena when it had no unused memory
    UndoStack m_history;           // its changes may refer to items of the menu
    std::optional<ChangeName> m_group;
    std::vector<std::unique_ptr<MenuChange>> m_grouped;
    std::unique_ptr<EditContext> m_groupContext; // before the group
    EditContextSource m_contextSource;
    EntryIds m_lastIds;
    std::string m_path;
    std::string m_place;
    FileHash m_hash;
    bool m_incomplete = false;
};

} // namespace nesk
