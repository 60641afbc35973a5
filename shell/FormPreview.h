#pragma once

#include "editing/MenuEditor.h"
#include "shell/FormButtonGrid.h"
#include "shell/PreviewPlace.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include <wx/panel.h>
#include <wx/timer.h>

class wxButton;
class wxChoice;
class wxStaticText;
class wxToggleButton;

namespace nesk {

/// The preview: a pane that shows the buttons of a submenu as the operator will see them. It follows the
/// editor and the selection, and reports what the user wants to be done.
class FormPreview : public wxPanel, private MenuEditorListener {
public:
    /// Registers with the editor.
    /// @param files  where the pictures are
    FormPreview(wxWindow* parent, MenuEditor& editor,
                std::shared_ptr<PictureFiles> files = StationPictureFiles());
    ~FormPreview() override;

    /// What the user does. The last four functions need not be set.
    struct Events {
        /// The user has selected entries; the keys apply to the first of them.
        std::function<void(const EntryIds&)> select;

        /// The user wants to edit a part.
        std::function<void(const std::string& id)> edit;

        /// The context menu is wanted, at a point in client coordinates of a window.
        std::function<void(wxWindow&, wxPoint)> contextMenu;

        /// Entries of this menu that are dragged, but not from this pane.
        std::function<EntryIds()> dragged;

        /// Returns whether entries may be dropped at a place. There are none when they come from another
        /// window.
        std::function<bool(const EntryIds&, const EntryDrop&)> mayDrop;

        /// Entries of this menu were dropped at an allowed place.
        std::function<void(const EntryIds&, const EntryDrop&)> dropped;

        // As in ButtonGridEvents.
        std::function<bool(const EntryDrop&, const std::string& text)> droppedText;
        std::function<bool(const std::vector<std::string>& paths, const std::string& id)> mayDropFiles;
        std::function<void(const std::vector<std::string>& paths, const std::string& id)> droppedFiles;
        std::function<void()> dragLeft;
        std::function<std::string(const EntryIds&)> dragText;
        std::function<void(const EntryIds&)> dragTaken;
        std::function<bool(const std::string& id)> isMarked;

        /// The user has chosen another screen.
        std::function<void()> screenChanged;

        /// The pane has begun to look whether the files of its pictures have changed; other panes should,
        /// too.
        std::function<void()> filesDue;

        /// The file of a picture that was shown before has changed.
        std::function<void()> fileChanged;
    };
    Events on;

    /// Follows the selection of the tree. While a mouse button is held down, the pane keeps showing the same
    /// submenu: what was selected may be about to be dragged here.
    /// @param current  id of the entry to which keys apply; "" for none
    void ShowSelection(const EntryIds& selected, const std::string& current);

    /// Tells the pane that the user works elsewhere now, so that it follows what is selected there.
    void WorkElsewhere() { m_isHere = false; }

    /// Follows the selection again, because the user has clicked the selected entry elsewhere.
    void FollowAgain();

    /// The entries that are dragged from here; none while nothing is dragged.
    const EntryIds& Dragged() const;

    /// Ends a drag from here whose entries were moved already.
    void ForgetDragged();

    /// Draws the buttons again, because other ones may be marked.
    void RefreshMarks();

    /// Shows the texts again in the present language.
    void ShowTexts();

    /// The chosen screen: a number that stays the same in later runs.
    int ScreenChoice() const;
    /// A number that is not one of a screen chooses the screen of this computer.
    void SetScreenChoice(int choice);

    const PreviewPlace& Place() const { return m_place; }

    // Controls.
    wxButton* cmdUp = nullptr;
    wxToggleButton* tglPin = nullptr;
    wxStaticText* lblScreen = nullptr;
    wxChoice* cboScreen = nullptr;
    FormButtonGrid* grdButtons = nullptr;

private:
    void OnMenuReplaced() override;
    void OnMenuEvent(const MenuEvent& event) override;
    void OnStateChanged() override;

    void BuildControls(std::shared_ptr<PictureFiles> files);
    void BindGrid();
    void BindDrag();
    EntryIds DraggedEntries() const;
    void Select(const EntryIds& ids);
    void ActHere(const std::function<void()>& action);
    void Open(const std::string& id);
    void Up();
    void FollowSelection();
    void ShowPlace();
    void ApplyScreen();

    MenuEditor& m_editor;
    PreviewPlace m_place{m_editor};
    std::string m_shownId;   // by grdButtons
    bool m_isHere = false;   // the user works in this pane
    bool m_isActing = false; // what is selected now was selected here
    EntryIds m_selected;
    std::string m_current;
    wxTimer m_checkTimer;
    wxTimer m_followTimer;
};

} // namespace nesk
