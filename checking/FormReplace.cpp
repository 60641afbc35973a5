#include "checking/FormReplace.h"

#include "base/Messages.h"
#include "checking/EntryPlace.h"
#include "editing/MenuEditor.h"
#include "shell/modHelp.h"
#include "shell/modStringRes.h"
#include "shell/modUtilities.h"
#include "widgets/UiRowList.h"
#include "widgets/UiUtilities.h"

#include <algorithm>

#include <wx/button.h>
#include <wx/checkbox.h>
#include <wx/sizer.h>
#include <wx/statbox.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>
#include <wx/utils.h>
#include <wx/wrapsizer.h>

namespace nesk {

using modStringRes::FormatResString;
using modUtilities::FromWx;
using modUtilities::ResText;
using modUtilities::ToWx;

namespace {

enum Column { EntryColumn, SubmenuColumn, FieldColumn, BeforeColumn, AfterColumn };

// Enables or disables two buttons. A button that has the focus hands it to the other one before it is
// disabled, so that Tab goes on from there.
void EnableOneOrBoth(wxButton& first, bool isFirst, wxButton& second, bool isSecond) {
    const bool wasFirst = first.HasFocus();
    const bool wasSecond = second.HasFocus();
    if (isFirst) first.Enable();
    if (isSecond) second.Enable();
    if (wasFirst && !isFirst) second.SetFocus();
    if (wasSecond && !isSecond) first.SetFocus();
    first.Enable(isFirst);
    second.Enable(isSecond);
}

} // namespace

FormReplace::FormReplace(wxWindow* parent, MenuEditor& editor)
    : FormDialog(parent, "FormReplace", Message::ReplaceTitle, modHelp::Topic::MainWindow), m_editor(editor) {
    auto* content = new wxBoxSizer(wxVERTICAL);
    BuildTexts(*content);
    BuildList(*content);
    Finish(content);
    cmdOK->SetLabel(ResText(Message::ReplaceOK));
    Plan();
}

FormReplace::~FormReplace() = default;

void FormReplace::BuildTexts(wxSizer& content) {
    lblFind = NewLabel(this, "lblFind", Message::ReplaceFind);
    txtFind = NewTextBox(this, "txtFind");
    lblReplacement = NewLabel(this, "lblReplacement", Message::ReplaceWith);
    txtReplacement = NewTextBox(this, "txtReplacement");
    auto* texts = new wxFlexGridSizer(2, Gap(), Gap());
    texts->AddGrowableCol(1);
    const auto add = [texts](wxStaticText* label, wxTextCtrl* box) {
        texts->Add(label, wxSizerFlags().CenterVertical());
        texts->Add(box, wxSizerFlags().Expand());
    };
    add(lblFind, txtFind);
    add(lblReplacement, txtReplacement);

    wxStaticBoxSizer* frame = NewFrame("fraFields", Message::ReplaceFields);
    auto* fields = new wxFlexGridSizer(4, Gap() / 2, 2 * Gap());
    for (const TextFieldInfo& info : TextFields()) {
        const auto index = static_cast<std::size_t>(info.field);
        chkField[index] =
            new wxCheckBox(frame->GetStaticBox(), wxID_ANY, ResText(info.nameId), wxDefaultPosition,
                           wxDefaultSize, 0, wxDefaultValidator, "chkField" + std::to_string(index));
        chkField[index]->SetValue(true);
        chkField[index]->Bind(wxEVT_CHECKBOX, [this](wxCommandEvent&) { Plan(); });
        fields->Add(chkField[index]);
    }
    frame->Add(fields, wxSizerFlags().Expand().Border(wxALL, Gap()));
    chkMatchCase = new wxCheckBox(this, wxID_ANY, ResText(Message::ReplaceMatchCase), wxDefaultPosition,
                                  wxDefaultSize, 0, wxDefaultValidator, "chkMatchCase");
    chkMatchCase->Bind(wxEVT_CHECKBOX, [this](wxCommandEvent&) { Plan(); });
    for (wxTextCtrl* box : {txtFind, txtReplacement})
        box->Bind(wxEVT_TEXT, [this](wxCommandEvent&) { Plan(); });

    content.Add(texts, wxSizerFlags().Expand());
    content.Add(FrameWindow(*frame), wxSizerFlags().Expand().Border(wxTOP, Gap()));
    content.Add(chkMatchCase, wxSizerFlags().Border(wxTOP, Gap()));
}

void FormReplace::BuildList(wxSizer& content) {
    lblChanges = NewLabel(this, "lblChanges", Message::ReplaceChanges);
    lstChanges = new UiRowList(this, "lstChanges", FromDIP(wxSize(800, 240)), {true, true});
    lstChanges->text = [this](long row, int column) { return TextAt(static_cast<std::size_t>(row), column); };
    lstChanges->isTicked = [this](long row) { return m_changes[static_cast<std::size_t>(row)].isChosen; };
    lstChanges->tick = [this](long row, bool isTicked) {
        m_changes[static_cast<std::size_t>(row)].isChosen = isTicked;
        ShowCount();
    };
    // In the order of Column.
    lstChanges->AddColumn(Message::ReplaceEntry, FromDIP(170));
    lstChanges->AddColumn(Message::EntrySubmenu, FromDIP(120));
    lstChanges->AddColumn(Message::ReplaceField, FromDIP(100));
    lstChanges->AddColumn(Message::ReplaceBefore, FromDIP(190));
    lstChanges->AddColumn(Message::ReplaceAfter, FromDIP(190));
    // Without a mouse: the space bar ticks, Enter confirms.
    lstChanges->Bind(wxEVT_CHAR_HOOK, [this](wxKeyEvent& event) {
        const int key = event.GetKeyCode();
        if (event.HasAnyModifiers())
            event.Skip();
        else if (key == WXK_SPACE)
            TickSelected();
        else if ((key == WXK_RETURN || key == WXK_NUMPAD_ENTER) && cmdOK->IsEnabled())
            OnOK();
        else
            event.Skip();
    });
    cmdAll = NewButton(this, "cmdAll", Message::ReplaceAll);
    cmdNone = NewButton(this, "cmdNone", Message::ReplaceNone);
    lblCount = new wxStaticText(this, wxID_ANY, "", wxDefaultPosition, wxDefaultSize, wxST_NO_AUTORESIZE,
                                "lblCount");
    cmdAll->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { TickAll(true); });
    cmdNone->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { TickAll(false); });
    auto* row = new wxBoxSizer(wxHORIZONTAL);
    row->Add(cmdAll);
    row->Add(cmdNone, wxSizerFlags().Border(wxLEFT, Gap()));
    row->Add(lblCount, wxSizerFlags(1).CenterVertical().Border(wxLEFT, Gap()));
    content.Add(lblChanges, wxSizerFlags().Border(wxTOP, Gap()));
    content.Add(lstChanges, wxSizerFlags(1).Expand().Border(wxTOP, Gap() / 2));
    content.Add(row, wxSizerFlags().Expand().Border(wxTOP, Gap()));
}

std::string FormReplace::TextAt(std::size_t row, int column) const {
    const TextChange& change = m_changes[row];
    switch (column) {
    case EntryColumn: return std::string(change.entry->Caption());
    case SubmenuColumn: return EntryPlace(*change.entry);
    case FieldColumn: return TextFieldName(change.field);
    case BeforeColumn: return change.before;
    default: return change.after;
    }
}

void FormReplace::Plan() {
    ReplaceOptions options{
        FromWx(txtFind->GetValue()), FromWx(txtReplacement->GetValue()), {}, chkMatchCase->GetValue()};
    for (std::size_t i = 0; i < chkField.size(); ++i)
        options.fields.set(i, chkField[i]->GetValue());
    lstChanges->SetRowCount(0); // no row may be drawn while the changes are replaced
    m_changes = Replacement::Plan(*m_editor.OpenMenu(), options);
    lstChanges->SetRowCount(m_changes.size());
    if (!m_changes.empty()) lstChanges->SelectRow(0);
    ShowCount();
}

void FormReplace::TickAll(bool isChosen) {
    for (TextChange& change : m_changes)
        change.isChosen = isChosen;
    lstChanges->Refresh(); // keeps selection and scroll position
    ShowCount();
}

// When some of the selected changes are not ticked, all of them are ticked.
void FormReplace::TickSelected() {
    const std::vector<long> rows = lstChanges->SelectedRows();
    const bool isChosen = !std::all_of(rows.begin(), rows.end(), lstChanges->isTicked);
    for (const long row : rows) {
        m_changes[static_cast<std::size_t>(row)].isChosen = isChosen;
        lstChanges->RefreshItem(row);
    }
    ShowCount();
}

void FormReplace::ShowCount() {
    const auto chosen = std::count_if(m_changes.begin(), m_changes.end(),
                                      [](const TextChange& change) { return change.isChosen; });
    lblCount->SetLabelText(ToWx(FormatResString(Message::ReplaceCount, chosen, m_changes.size())));
    // Finish creates the buttons after the first plan.
    if (cmdOK != nullptr) cmdOK->Enable(chosen > 0);
    EnableOneOrBoth(*cmdAll, chosen<static_cast<std::ptrdiff_t>(m_changes.size()), *cmdNone, chosen> 0);
}

bool FormReplace::Invoke(const std::string& find) {
    txtFind->ChangeValue(ToWx(find));
    Plan();
    txtFind->SetFocus();
    txtFind->SelectAll();
    return ShowModal() == wxID_OK;
}

void FormReplace::OnOK() {
    const wxBusyCursor busy;
    const auto refusal =
        Replacement::Apply(m_editor, m_changes, {Message::ChangeReplace, {FromWx(txtFind->GetValue())}});
    if (!refusal) return Accept();
    const TextChange& change = m_changes[refusal->index];
    lstChanges->SelectRow(static_cast<long>(refusal->index));
    ShowReason(FormatResString(Message::ReplaceRefused,
                               modUtilities::Shortened(std::string(change.entry->Caption()), 60),
                               TextFieldName(change.field), modUtilities::Shortened(change.after, 120),
                               modUtilities::MessageText(refusal->error)));
}

} // namespace nesk
