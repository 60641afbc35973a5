#pragma once

#include "base/FileHash.h"
#include "editing/MenuEditor.h"
#include "platform/FileStamp.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include <wx/recguard.h>

class wxWindow;

namespace nesk {

class Menu;
struct QuietMenu;

/// Takes care of what other programs do to the file of the open menu: a new version is loaded when nothing
/// was changed here, and merged otherwise.
class FormFileNews {
public:
    /// @param window  in front of which dialogs are shown
    FormFileNews(wxWindow& window, MenuEditor& editor) : m_window(window), m_editor(editor) {}

    /// A file that may have the content of the menu before the unsaved changes; "" for none.
    std::function<std::string()> basePath;

    /// Called with a text about the file for the user; "" when there is nothing to say any more.
    std::function<void(const std::string&)> onText;

    /// Looks at the file after the user has come back to the window. A merge that the user has put off is not
    /// proposed again for the same version of the file.
    void Look();

    /// Looks at the file before the menu is saved to its place.
    /// @return false when the user does not want to merge, and the menu must not be saved
    bool MayBeSaved();

    /// True when the menu had a file, which somebody has removed.
    bool IsGone() const;

private:
    enum class Moment { Focus, Save };

    void LookOnce();
    bool IsUnchanged(FileHash& hash);
    bool Take(const FileHash& hash, Moment moment);
    void Load(const QuietMenu& theirs);
    bool Merge(const QuietMenu& theirs);
    std::unique_ptr<Menu> Base() const;
    void Say(const std::string& text) const {
        if (onText) onText(text);
    }

    wxWindow& m_window;
    MenuEditor& m_editor;
    // The file as it was seen last, and its hash then.
    std::string m_path;
    std::optional<platform::FileStamp> m_stamp;
    FileHash m_seen;
    wxRecursionGuardFlag m_looking = 0;
    std::optional<FileHash> m_refused; // a version that the user does not want to merge yet
};

} // namespace nesk
