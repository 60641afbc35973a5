#pragma once

#include "checking/MenuSearch.h"
#include "editing/MenuEditor.h"

#include <memory>
#include <string>
#include <unordered_set>
#include <vector>

class wxFrame;
class wxIdleEvent;
class wxKeyEvent;

namespace nesk {

class FormFindBar;
class FormMenuTree;
class FormToolBar;

/// Finds entries in the tree of the main window: connects the find bar, the search and the tree. The bar is
/// created when it is first needed and is shown only while the user finds something.
class FormFinder : private MenuEditorListener {
public:
    /// Registers with the editor before the window does, so that it hears of an event before the tree.
    FormFinder(wxFrame& frame, MenuEditor& editor, FormMenuTree& tree);
    ~FormFinder() override;

    /// Lets the user type into the box of a tool bar as long as the bar shows it.
    void UseToolBar(FormToolBar& bar);

    /// Shows the bar, and gives the box the focus.
    void Begin();

    /// Goes to the next or the previous entry found. Shows the bar when there is no text to find.
    void Next();
    void Previous();

    /// Shows only the entries found and the submenus that lead to them, or all entries again. Entries that
    /// are added or moved meanwhile are shown, too.
    void ToggleFilter();

    /// Hides the bar and shows all entries without highlights.
    void End();

    /// Handles a key of the window. Returns false for a key that is not about finding.
    bool OnCharHook(wxKeyEvent& event);

    /// The text to find; "" while the bar is hidden.
    std::string Text() const;

    /// The bar; null when it was never shown.
    FormFindBar* Bar() const { return m_bar; }

private:
    void OnMenuReplaced() override;
    void OnMenuEvent(const MenuEvent& event) override;
    void OnStateChanged() override;

    bool IsShown() const;
    void ShowBar();
    void StartHere();
    void BuildBar();
    void OnText();
    void OnIdle(wxIdleEvent& event);
    const MenuEntry* Selected() const;
    void GoTo(const MenuEntry* entry);
    void ApplyFilter();
    void ExpandShown();
    std::vector<bool> ShownChildren(const MenuEntry& parent);
    void ShowState();
    std::string NumberText(const MenuEntry& selected, std::size_t number, std::size_t count) const;

    wxFrame& m_frame;
    MenuEditor& m_editor;
    FormMenuTree& m_tree;
    MenuSearch m_search;
    FormFindBar* m_bar = nullptr;
    FormToolBar* m_toolBar = nullptr;
    std::string m_origin;                   // id of the entry from which the first match is looked for
    std::unique_ptr<EditContext> m_start;   // what the tree showed then
    bool m_isFiltering = false;             // the tree shows only entries found
    bool m_goesToFirst = false;             // the first match, which is not found yet, is to be selected
    std::unordered_set<std::string> m_kept; // ids of entries that stay shown although they were not found
    std::unique_ptr<EditContext> m_before;  // what was expanded before the tree was filtered
    std::size_t m_shownVersion = 0;
    std::size_t m_shownByName = 0; // FoundByName when the filter was applied
};

} // namespace nesk
