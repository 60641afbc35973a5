#pragma once

#include "base/NeskError.h"
#include "editing/MenuEditor.h"
#include "journal/BaseCopy.h"
#include "journal/JournalFile.h"
#include "journal/JournalRecord.h"
#include "platform/BackgroundThread.h"
#include "platform/FileSystem.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace nesk {

struct JournalOptions {
    /// Folder of the user for the journals of menus whose own folder cannot be written; created when needed.
    /// "" for none.
    std::string folder;

    std::string owner;     ///< who makes the changes, for messages to other users
    bool keepsBase = true; ///< keep a copy of the file to which the changes apply

    /// Runs what waits for the disk.
    BackgroundRunner inBackground = platform::RunInBackground;
};

/// Keeps the unsaved changes of the open menu on disk. After each change, undo or redo, a record of it is in
/// the journal, so that a killed program loses at most the change under way. The journal exists while the
/// menu differs from its file: a save, an undo back to the saved state and closing the menu remove it. A
/// destroyed MenuJournal leaves it.
///
/// A failure never affects editing. It stops the journal, whose records up to then stay on disk, until the
/// next save or TryAgain.
class MenuJournal final : public MenuEditorListener {
public:
    /// Registers itself as a listener of the editor.
    /// @param files  must live as long as something runs in the background
    MenuJournal(MenuEditor& editor, JournalOptions options,
                platform::FileSystem& files = platform::StationFiles());
    ~MenuJournal() override;
    MenuJournal(const MenuJournal&) = delete;
    MenuJournal& operator=(const MenuJournal&) = delete;

    /// Called when the journal stops, once until it works again. It must not change the menu.
    std::function<void(const NeskError&)> onFailure;

    /// Path of the journal, or "" while there is no journal.
    std::string Path() const { return m_file ? m_file->Path() : ""; }

    /// True when changes are not recorded because of a failure.
    bool IsStopped() const { return m_isStopped; }

    /// Starts to flush to the disk what was written, so that it survives a power cut. Call this every few
    /// seconds; it does not wait for the disk.
    void Flush();

    /// Removes the journal, because the user gives up the changes. A later change is recorded again, with all
    /// before it.
    void Discard();

    /// Tries to record again after a failure, with all changes until now.
    /// @return false when the journal is still stopped
    bool TryAgain();

    void OnMenuReplaced() override { Restart(); }
    void OnMenuEvent(const MenuEvent& event) override;
    void OnFileWritten() override;
    void OnFileAdopted() override;
    void OnStateChanged() override;

private:
    void Restart();
    void Forget();
    void RemoveFiles();
    bool IsUnsaved() const { return m_editor.IsDirty() || m_isFileNewer; }
    std::uint64_t StepsFromFile() const;
    bool IsNumberNew() const;
    JournalStep NextStep() const;
    void Record();
    void FillEvents();
    platform::ErrorCode RecordInFile();
    void RecordInNewFile(platform::ErrorCode former);
    void Recorded(const JournalStep& step);
    void ReadBase();
    platform::ErrorCode CreateIn(const std::vector<std::string>& paths, const std::string& bytes);
    void MakeFolder();
    void GiveUpFile();
    void Stop(platform::ErrorCode result, const std::string& path);

    MenuEditor& m_editor;
    JournalOptions m_options;
    platform::FileSystem& m_files;
    std::unique_ptr<JournalFile> m_file;   // null while the menu does not differ from its file
    std::unique_ptr<JournalFile> m_broken; // a former file, with the changes before a failure
    std::string m_events;                  // of the change under way
    std::string m_counters;                // of the menu as it is in its file
    std::uint64_t m_steps = 0;             // number of changes recorded since then
    std::uint64_t m_lastChanges = 0;       // as recorded last
    BaseCopy m_base;                       // the file to which the changes apply
    bool m_hasEvents = false;
    bool m_needsWhole = false;  // some changes are in no record
    bool m_isFileNewer = false; // the file was written by a copy: the state that the editor calls saved is
                                // not in it
    bool m_isStopped = false;
    bool m_isFailureTold = false;
};

} // namespace nesk
