#pragma once

#include "editing/MenuEditor.h"

#include <string>

namespace nesk {

/// Decides which submenu the preview shows: the one that is selected or holds the selected entry, or the one
/// to which the preview is pinned. While the user works in the preview, selecting one of the submenus that it
/// shows does not go into it.
class PreviewPlace {
public:
    explicit PreviewPlace(const MenuEditor& editor) : m_editor(editor) {}

    /// Id of the entry whose children are shown; "" when no menu is open.
    const std::string& Id() const { return m_id; }

    /// That entry; null when no menu is open.
    const MenuEntry* Entry() const { return m_id.empty() ? nullptr : m_editor.Find(m_id); }

    bool IsPinned() const { return m_isPinned; }

    /// Pins the preview to what it shows, or follows the selection again.
    /// @return true when another submenu is shown now
    bool SetPinned(bool pinned);

    /// Follows the selection. Selecting the same entry again changes nothing.
    /// @param selected  id of the selected entry; "" for none
    /// @param isHere    the user works in the preview
    /// @return true when another submenu is shown now
    bool Follow(const std::string& selected, bool isHere);

    /// Takes note of a selection that the preview itself has made, without following it.
    void Note(const std::string& selected) { m_selected = selected; }

    /// Shows the children of a submenu. Returns false for a part and for an unknown id.
    bool Open(const std::string& id);

    /// Shows the submenu above. Returns the id of the submenu that was shown before. "" at the top.
    std::string Up();

    /// Shows the main menu of the menu that was opened; nothing when it was closed.
    void OnMenuReplaced();

    /// Follows an entry that was moved, and leaves one that was removed.
    void OnMenuEvent(const MenuEvent& event);

private:
    bool Show(const std::string& id);
    std::string PlaceFor(const std::string& selected) const;

    const MenuEditor& m_editor;
    std::string m_id;
    std::string m_selected;
    bool m_isPinned = false;
};

} // namespace nesk
