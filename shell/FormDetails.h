#pragma once

#include "checking/EntryDetails.h"
#include "editing/MenuEditor.h"
#include "platform/UiFileTarget.h"
#include "widgets/UiShownText.h"
#include "widgets/UiThumbnails.h"

#include <array>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <wx/panel.h>
#include <wx/scrolwin.h>
#include <wx/timer.h>

class wxButton;
class wxFlexGridSizer;
class wxIdleEvent;
class wxStaticText;
class wxTextCtrl;

namespace nesk {

class FileDrop;

/// The pane in which the fields of the selected entries are edited in place. Enter, or leaving a field, makes
/// one step; Escape takes the typing back.
class FormDetails : public wxPanel, private MenuEditorListener {
public:
    /// Registers with the editor.
    /// @param files  where the pictures are
    FormDetails(wxWindow* parent, MenuEditor& editor, std::shared_ptr<PictureFiles> files);
    ~FormDetails() override;

    struct Events {
        /// The name of the part in a partinfo.ini, as far as it is known.
        std::function<std::string(const std::string& path)> partName;

        /// A field has got or lost the focus, or it has begun or ended to hold typing that is not set.
        std::function<void()> focusChanged;

        /// A text was refused after the user had selected something else: these entries have to be selected
        /// again.
        std::function<void(const EntryIds&)> select;

        /// The typing, else the last change of the menu, has to be undone.
        std::function<void()> undo;

        /// The change that was undone last has to be made again.
        std::function<void()> redo;

        /// Escape was pressed in a field without typing.
        std::function<void()> leave;

        /// What a drop of the files that are dragged over a small picture does, or why they are refused; ""
        /// when they have left.
        std::function<void(const std::string& text)> dropText;
    };
    Events on;

    /// Shows other entries.
    void ShowSelection(const EntryIds& ids);

    /// Ends typing and sets the text. Returns false when the text is refused; the user has then been told,
    /// and the field has the focus.
    bool Commit();

    /// True while a text box of the pane has the focus.
    bool IsTyping() const { return FocusedField().has_value(); }

    /// True while the field with the focus holds typing that is not set.
    bool HasTyping() const;

    /// Discards what is typed into the field with the focus. Returns false when nothing is typed there.
    bool UndoTyping();

    /// Gives a field the focus. Returns false when it cannot be edited now.
    bool FocusField(DetailField field);

    /// Handles a key while the pane has the focus. Returns false for a key that is a command of the window.
    bool OnCharHook(wxKeyEvent& event);

    /// Looks whether the files of the small pictures have changed.
    void CheckFiles();

    /// Shows the name of the part again, because it may be known now.
    void ShowPartName();

    /// Sets the texts of the controls in the language in use.
    void ShowTexts();

    // Controls.
    wxStaticText* lblAbout = nullptr; ///< where the selected entry is, or how many are selected
    wxStaticText* lblPart = nullptr;  ///< the name of the part
    wxStaticText* lblReason = nullptr;
    wxWindow* View(DetailField field) const { return m_rows[IndexOf(field)].view; }
    wxTextCtrl* TextBox(DetailField field) const { return m_rows[IndexOf(field)].box; }
    wxButton* Button(DetailField field) const { return m_rows[IndexOf(field)].button; }

private:
    struct Row {
        wxStaticText* label = nullptr;
        wxTextCtrl* box = nullptr;
        wxButton* button = nullptr;                  ///< null for a field that is only typed
        wxWindow* view = nullptr;                    ///< a small picture; null for other fields
        std::unique_ptr<platform::FileTarget> files; ///< takes a picture for the view
        ShownText shown;
        bool isTyped = false; ///< the user has typed, and the text is not set yet
    };

    static constexpr std::size_t IndexOf(DetailField field) { return static_cast<std::size_t>(field); }

    void OnMenuReplaced() override;
    void OnMenuEvent(const MenuEvent& event) override;
    void OnStateChanged() override;

    void BuildRow(wxFlexGridSizer& grid, DetailField field);
    void BuildView(Row& row, DetailField field);
    void PaintView(const Row& row, DetailField field);
    void BindRow(DetailField field);
    void SetTyped(Row& row, bool isTyped);
    void ShowValues();
    void ShowAbout();
    void ShowReason(const std::string& reason);
    void OnIdle(wxIdleEvent& event);
    std::optional<DetailField> FocusedField() const;
    std::optional<EntryDetails::Refusal> Set(DetailField field);
    void Refuse(DetailField field, const EntryDetails::Refusal& refusal);
    void OnKillFocus(DetailField field);
    void Leave(DetailField field);
    void Choose(DetailField field);
    void Revert(DetailField field);
    platform::FileDragEvents FileEvents(DetailField field);
    bool DragFiles(DetailField field, const std::vector<std::string>& paths);
    void DropFiles(DetailField field, const std::vector<std::string>& paths);
    void MarkView(std::optional<DetailField> field);

    MenuEditor& m_editor;
    EntryDetails m_details;
    UiThumbnails m_pictures;
    wxScrolledWindow* m_fields = nullptr; // holds the rows
    std::array<Row, DetailFieldCount> m_rows;
    wxTimer m_pictureTimer;
    bool m_isRefusing = false;
    std::unique_ptr<FileDrop> m_dragged;    // the files over a small picture
    std::optional<DetailField> m_dropField; // where they may be dropped
};

} // namespace nesk
