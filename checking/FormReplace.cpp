#include "checking/FormReplace.h"

#include "base/Messages.h"
#include "checking/UiRowModel.h"
#include "editing/MenuEditor.h"
#include "shell/modHelp.h"
#include "shell/modStringRes.h"
#include "shell/modUtilities.h"
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

enum Column { TickColumn, EntryColumn, FieldColumn, BeforeColumn, AfterColumn };

} // namespace

FormReplace::FormReplace(wxWindow* parent, MenuEditor& editor)
    : FormDialog(parent, "FormReplace", Message::ReplaceTitle, modHelp::Topic::MainWindow)
    , m_editor(editor)
    , m_model(new UiRowModel) {
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
    lstChanges = new wxDataViewCtrl(this, wxID_ANY, wxDefaultPosition, FromDIP(wxSize(800, 240)),
                                    wxDV_MULTIPLE | wxDV_ROW_LINES, wxDefaultValidator);
    lstChanges->SetName("lstChanges");
    m_model->text = [this](unsigned row, unsigned column) { return TextAt(row, column); };
    m_model->isTicked = [this](unsigned row) { return m_changes[row].isChosen; };
    m_model->tick = [this](unsigned row, bool isTicked) {
        m_changes[row].isChosen = isTicked;
        ShowCount();
    };
    lstChanges->AssociateModel(m_model.get());
    const auto width = [this](int pixels) { return FromDIP(pixels); };
    lstChanges->AppendToggleColumn("", TickColumn, wxDATAVIEW_CELL_ACTIVATABLE, width(32));
    const auto append = [&](int titleId, unsigned column, int pixels) {
        lstChanges
            ->AppendTextColumn(ResText(titleId), column, wxDATAVIEW_CELL_INERT, width(pixels), wxALIGN_LEFT,
                               wxDATAVIEW_COL_RESIZABLE)
            ->GetRenderer()
            ->EnableEllipsize(wxELLIPSIZE_MIDDLE);
    };
    append(Message::ReplaceEntry, EntryColumn, 150);
    append(Message::ReplaceField, FieldColumn, 110);
    append(Message::ReplaceBefore, BeforeColumn, 250);
    append(Message::ReplaceAfter, AfterColumn, 250);
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

std::string FormReplace::TextAt(unsigned row, unsigned column) const {
    const TextChange& change = m_changes[row];
    switch (column) {
    case EntryColumn: return std::string(change.entry->Caption());
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
    m_changes = Replacement::Plan(*m_editor.OpenMenu(), options);
    m_model->Reset(static_cast<unsigned>(m_changes.size()));
    if (!m_changes.empty()) lstChanges->Select(m_model->GetItem(0));
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
    wxDataViewItemArray items;
    lstChanges->GetSelections(items);
    const auto isTicked = [this](const wxDataViewItem& item) {
        return m_changes[m_model->GetRow(item)].isChosen;
    };
    const bool isChosen = !std::all_of(items.begin(), items.end(), isTicked);
    for (const wxDataViewItem& item : items) {
        m_changes[m_model->GetRow(item)].isChosen = isChosen;
        m_model->RowValueChanged(m_model->GetRow(item), TickColumn);
    }
    ShowCount();
}

void FormReplace::ShowCount() {
    const auto chosen = std::count_if(m_changes.begin(), m_changes.end(),
                                      [](const TextChange& change) { return change.isChosen; });
    lblCount->SetLabelText(ToWx(FormatResString(Message::ReplaceCount, chosen, m_changes.size())));
    // Finish creates the buttons after the first plan.
    if (cmdOK != nullptr) cmdOK->Enable(chosen > 0);
    cmdAll->Enable(chosen < static_cast<std::ptrdiff_t>(m_changes.size()));
    cmdNone->Enable(chosen > 0);
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
    const wxDataViewItem item = m_model->GetItem(static_cast<unsigned>(refusal->index));
    lstChanges->UnselectAll();
    lstChanges->Select(item);
    lstChanges->EnsureVisible(item);
    ShowReason(FormatResString(Message::ReplaceRefused,
                               modUtilities::Shortened(std::string(change.entry->Caption()), 60),
                               TextFieldName(change.field), modUtilities::Shortened(change.after, 120),
                               modUtilities::MessageText(refusal->error)));
}

} // namespace nesk
