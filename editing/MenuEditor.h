#pragma once

#include "base/FileHash.h"
#include "base/NeskError.h"
#include "base/SafeFile.h"
#include "editing/MenuChange.h"
#include "menu/Menu.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace nesk {

/// Hears of everything that happens to the open menu.
class MenuEditorListener {
public:
    virtual ~MenuEditorListener() = default;

    /// A menu was opened or closed: everything is to be shown anew.
    virtual void OnMenuReplaced() = 0;

    /// One entry was added, removed, moved or edited.
    virtual void OnMenuEvent(const MenuEvent& event) = 0;

    /// The dirty flag, the path or the incomplete flag has another value.
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
/// made, shown to the listener and handed to the keeper of changes.
class MenuEditor {
public:
    /// @param files  where menus are read and saved
    explicit MenuEditor(platform::FileSystem& files = platform::StationFiles());
    ~MenuEditor();
    MenuEditor(const MenuEditor&) = delete;
    MenuEditor& operator=(const MenuEditor&) = delete;

    /// The listener must outlive the editor or be taken away with null.
    void SetListener(MenuEditorListener* listener) { m_listener = listener; }

    /// Who keeps the changes that were made, to take them back later; without one they are dropped.
    using ChangeKeeper = std::function<void(std::unique_ptr<MenuChange>)>;
    void SetChangeKeeper(ChangeKeeper keeper) { m_keeper = std::move(keeper); }

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
    bool IsDirty() const { return m_dirty; }
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

    /// Makes a change that was taken back, or takes one back that was made. False when that is not possible.
    bool Redo(MenuChange& change);
    bool Undo(MenuChange& change);

private:
    std::string Add(const std::string& parentId, const std::string& caption, std::string_view type);
    MenuEvent Make(std::unique_ptr<MenuChange> change);
    bool Report(const MenuEvent& event);
    void StateChanged();
    FileHash Write(const std::string& path, const Backup& backup, const FileHash& known);
    void SaveWith(const std::string& path, const Backup& backup, const FileHash& known);

    platform::FileSystem& m_files;
    MenuEditorListener* m_listener = nullptr;
    ChangeKeeper m_keeper;
    std::unique_ptr<Menu> m_menu;
    std::string m_path;
    std::string m_place;
    FileHash m_hash;
    bool m_dirty = false;
    bool m_incomplete = false;
};

} // namespace nesk
