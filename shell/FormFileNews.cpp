#include "shell/FormFileNews.h"

#include "base/UnsavedMessages.h"
#include "menu/Menu.h"
#include "menu/ReadMenuQuietly.h"
#include "platform/ErrorCode.h"
#include "shell/FormMerge.h"
#include "shell/modMessageBox.h"
#include "shell/modStringRes.h"
#include "shell/modUtilities.h"
#include "versions/MenuMerge.h"
#include "versions/OthersChanges.h"

#include <utility>

#include <wx/utils.h>

namespace nesk {

using modStringRes::FormatResString;
using modStringRes::LoadResString;

void FormFileNews::Look() {
    // Its dialog takes the focus and gives it back, and each time the window looks.
    const wxRecursionGuard guard(m_looking);
    if (!guard.IsInside()) LookOnce();
}

void FormFileNews::LookOnce() {
    FileHash hash;
    // The file of a menu that could not be read completely is no version to go on from. A save asks.
    if (!m_editor.IsOpen() || m_editor.IsIncomplete() || IsUnchanged(hash)) return;
    if (!hash.Exists()) return Say(LoadResString(Message::OtherGone));
    if (m_refused == hash) return;
    static_cast<void>(Take(hash, Moment::Focus));
}

bool FormFileNews::MayBeSaved() {
    FileHash hash;
    m_stamp.reset(); // a save looks at the content in any case
    if (!m_editor.IsOpen() || m_editor.IsIncomplete() || IsUnchanged(hash) || !hash.Exists()) return true;
    return Take(hash, Moment::Save);
}

bool FormFileNews::IsGone() const {
    return m_editor.HashOnDisk().Exists() && !FileHash::Of(m_editor.Place()).Exists();
}

// Reads the content only when size or time have changed.
bool FormFileNews::IsUnchanged(FileHash& hash) {
    const std::string& path = m_editor.Place();
    platform::FileStamp stamp;
    const bool isThere = platform::StampOf(path, stamp) == platform::ErrorCode::Success;
    if (isThere && path == m_path && m_stamp == stamp) {
        hash = m_seen;
    } else {
        hash = FileHash::Of(path);
        m_path = path;
        m_stamp = isThere ? std::optional(stamp) : std::nullopt;
        m_seen = hash;
    }
    return hash == m_editor.HashOnDisk();
}

// Returns false when the user does not want to merge.
bool FormFileNews::Take(const FileHash& hash, Moment moment) {
    QuietMenu theirs;
    {
        const wxBusyCursor busy;
        theirs = ReadMenuQuietly(m_editor.Place(), m_editor.OpenMenu()->RootDirectory());
    }
    // Written again while it was read, or not readable: a save asks.
    if (!theirs.IsWhole()) {
        Say(LoadResString(Message::OtherUnreadable));
        return true;
    }
    if (!m_editor.IsDirty()) {
        Load(theirs);
        return true;
    }
    const bool isMerged = Merge(theirs);
    if (isMerged) return true;
    if (moment == Moment::Focus) m_refused = hash;
    Say(LoadResString(Message::OtherWaiting));
    return false;
}

void FormFileNews::Load(const QuietMenu& theirs) {
    const wxBusyCursor busy;
    Say(FormatResString(Message::OtherLoaded, OthersChanges::Load(m_editor, theirs)));
}

bool FormFileNews::Merge(const QuietMenu& theirs) {
    const std::unique_ptr<Menu> base = Base();
    if (!base) return true; // a save asks which version holds
    const Menu& ours = *m_editor.OpenMenu();
    MenuMerge merge(*base, ours, *theirs.menu);
    if (!FormMerge(&m_window, merge, *base, ours, *theirs.menu).Invoke()) return false;
    const wxBusyCursor busy;
    OthersChanges::TakeMerged(m_editor, theirs, merge);
    Say("");
    return true;
}

std::unique_ptr<Menu> FormFileNews::Base() const {
    const wxBusyCursor busy;
    return OthersChanges::Base(m_editor, basePath ? basePath() : "");
}

} // namespace nesk
