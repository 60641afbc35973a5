#pragma once

#include "menu/MenuEditor.h"

#include <cstdint>
#include <string>

#include <wx/treectrl.h>

namespace nesk {

/// The tree view that mirrors the open menu. It changes nothing: it shows what the editor reports and tells
/// which entry a node stands for.
class FormMenuTree : public wxTreeCtrl {
public:
    FormMenuTree(wxWindow* parent, const MenuEditor& editor);

    /// Removes all nodes.
    void ClearTree();

    /// Shows the open menu anew, with the root expanded and selected; nothing when none is open.
    void BuildTree();

    /// Follows one change of the menu. An entry that moved stays selected.
    void Follow(const MenuEvent& event);

    /// Id of the entry that a node stands for; "" for no node.
    std::string KeyOf(const wxTreeItemId& node) const;

    /// Id of the selected entry; "" when none is selected.
    std::string SelectedKey() const { return KeyOf(GetSelection()); }

    /// The node of an entry; not ok when there is none.
    wxTreeItemId NodeOf(const std::string& id);

    /// Selects an entry and brings it into view.
    void SelectKey(const std::string& id);

private:
    wxTreeItemId AddNode(const wxTreeItemId& parent, std::size_t position, const MenuEntry& entry);
    void AddChildNodes(MenuEntry& entry, const wxTreeItemId& node);
    void FillNode(const wxTreeItemId& node);
    void Place(const MenuEvent& event);
    void OnExpanding(wxTreeEvent& event);
    void OnKey(wxKeyEvent& event);
    void ExpandBelow(const wxTreeItemId& node);

    const MenuEditor& m_editor;
};

} // namespace nesk
