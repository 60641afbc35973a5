#include "shell/FormDetails.h"

#include "base/DetailMessages.h"
#include "base/Messages.h"
#include "checking/EntryPlace.h"
#include "checking/FileDrop.h"
#include "checking/TextFields.h"
#include "checking/UiFieldChooser.h"
#include "menu/MenuItem.h"
#include "partedit/FormSelectHelpFile.h"
#include "partedit/FormSelectHistory.h"
#include "partedit/HelpFileChoice.h"
#include "partedit/PartReference.h"
#include "platform/AccessibleName.h"
#include "shell/FieldMessage.h"
#include "shell/modMessageBox.h"
#include "shell/modStringRes.h"
#include "shell/modUtilities.h"
#include "widgets/NumericKeyFilter.h"
#include "widgets/PictureChoice.h"
#include "widgets/UiTextFilter.h"
#include "widgets/UiTextKeys.h"
#include "widgets/UiUtilities.h"

#include <wx/app.h>
#include <wx/button.h>
#include <wx/dcclient.h>
#include <wx/settings.h>
#include <wx/sizer.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>
#include <wx/utils.h>

namespace nesk {

using modStringRes::FormatResString;
using modStringRes::LoadResString;
using modUtilities::FromWx;
using modUtilities::ResText;
using modUtilities::ToWx;

namespace {

using modUtilities::NumericKeyFilter;

// Size of a small picture, in device-independent pixels.
constexpr int ViewWidth = 40;
constexpr int ViewHeight = 30;

constexpr std::chrono::milliseconds Slice{4};
constexpr int PictureMilliseconds = 50;

// Names of the text boxes, in the order of DetailField. A button has "cmd" instead of "txt".
constexpr std::array<const char*, DetailFieldCount> Names{
    "txtDetailCaption",  "txtDetailProgram",   "txtDetailPicture",    "txtDetailPreview",
    "txtDetailHelpFile", "txtDetailHelpTopic", "txtDetailHistoryDir", "txtDetailHistoryTitle"};

std::string LabelOf(DetailField field) {
    switch (field) {
    case DetailField::Caption: return TextFieldName(TextField::Caption);
    case DetailField::Program: return TextFieldName(TextField::Program);
    case DetailField::Picture: return TextFieldName(TextField::Picture);
    case DetailField::Preview: return TextFieldName(TextField::Preview);
    case DetailField::HelpFile: return TextFieldName(TextField::HelpFile);
    case DetailField::HistoryDir: return TextFieldName(TextField::HistoryDir);
    case DetailField::HistoryTitle: return TextFieldName(TextField::HistoryTitle);
    default: return LoadResString(Message::DetailsHelpTopic);
    }
}

bool IsPicture(DetailField field) {
    return field == DetailField::Picture || field == DetailField::Preview;
}

bool HasChooser(DetailField field) {
    return IsPicture(field) || field == DetailField::Program || field == DetailField::HelpFile ||
           field == DetailField::HistoryDir;
}

TextFilter DigitsOnly() {
    const NumericKeyFilter filter;
    return {[filter](char32_t character, const std::string& text, std::size_t start, std::size_t end) {
                return filter.Accepts(character, text, start, end);
            },
            [filter](const std::string& text) { return filter.Clean(text); }, true};
}

// A picture beside a text box, which is edited in the box.
class PictureView final : public wxWindow {
public:
    using wxWindow::wxWindow;
    bool AcceptsFocus() const override { return false; }
    bool AcceptsFocusFromKeyboard() const override { return false; }
    bool AcceptsFocusRecursively() const override { return false; }
};

} // namespace

FormDetails::FormDetails(wxWindow* parent, MenuEditor& editor, std::shared_ptr<PictureFiles> files)
    : wxPanel(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxTAB_TRAVERSAL, "FormDetails")
    , m_editor(editor)
    , m_details(editor)
    , m_pictures(std::move(files), FromDIP(ViewWidth)) {
    const int gap = FromDIP(4);
    lblAbout = new wxStaticText(this, wxID_ANY, "", wxDefaultPosition, wxDefaultSize,
                                wxST_NO_AUTORESIZE | wxST_ELLIPSIZE_END, "lblAbout");
    // Labels that are hidden at times are not in it: GTK cannot scroll hidden windows.
    m_fields =
        new wxScrolledWindow(this, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxTAB_TRAVERSAL | wxVSCROLL);
    m_fields->SetScrollRate(0, FromDIP(10));
    auto* grid = new wxFlexGridSizer(4, gap / 2, gap);
    grid->AddGrowableCol(1);
    for (std::size_t i = 0; i < DetailFieldCount; ++i)
        BuildRow(*grid, static_cast<DetailField>(i));
    lblReason = new wxStaticText(this, wxID_ANY, "", wxDefaultPosition, wxDefaultSize, wxST_NO_AUTORESIZE,
                                 "lblDetailReason");
    lblReason->Hide();
    auto* sizer = new wxBoxSizer(wxVERTICAL);
    sizer->Add(lblAbout, wxSizerFlags().Expand().Border(wxALL, gap));
    auto* fields = new wxBoxSizer(wxVERTICAL);
    fields->Add(grid, wxSizerFlags().Expand().Border(wxALL, gap));
    m_fields->SetSizer(fields);
    sizer->Add(m_fields, wxSizerFlags(1).Expand());
    sizer->Add(lblReason, wxSizerFlags().Expand().Border(wxALL, gap));
    SetSizer(sizer);
    ShowTexts();
    ShowValues();
    editor.AddListener(*this);
    Bind(wxEVT_IDLE, &FormDetails::OnIdle, this);
    m_pictureTimer.Bind(wxEVT_TIMER, [](wxTimerEvent&) { wxWakeUpIdle(); });
}

FormDetails::~FormDetails() {
    m_editor.RemoveListener(*this);
    // A field may lose the focus while it is being destroyed. The handlers must not run then.
    for (const Row& row : m_rows)
        row.box->SetEvtHandlerEnabled(false);
}

void FormDetails::BuildRow(wxFlexGridSizer& grid, DetailField field) {
    Row& row = m_rows[IndexOf(field)];
    const char* name = Names[IndexOf(field)];
    row.label = new wxStaticText(m_fields, wxID_ANY, "");
    row.box = new wxTextCtrl(m_fields, wxID_ANY, "", wxDefaultPosition, FromDIP(wxSize(80, -1)),
                             wxTE_PROCESS_ENTER, wxDefaultValidator, name);
    grid.Add(row.label, wxSizerFlags().CenterVertical());
    grid.Add(row.box, wxSizerFlags(1).Expand().CenterVertical());
    if (IsPicture(field)) {
        BuildView(row, field);
        grid.Add(row.view, wxSizerFlags().CenterVertical());
    } else {
        grid.AddSpacer(0);
    }
    if (HasChooser(field)) {
        row.button = new wxButton(m_fields, wxID_ANY, "", wxDefaultPosition, wxDefaultSize, wxBU_EXACTFIT,
                                  wxDefaultValidator, "cmd" + wxString(name).Mid(3));
        grid.Add(row.button, wxSizerFlags().CenterVertical());
    } else {
        grid.AddSpacer(0);
    }
    if (field == DetailField::Program) {
        lblPart = new wxStaticText(m_fields, wxID_ANY, "", wxDefaultPosition, wxDefaultSize,
                                   wxST_NO_AUTORESIZE | wxST_ELLIPSIZE_END, "lblDetailPart");
        grid.AddSpacer(0);
        grid.Add(lblPart, wxSizerFlags().Expand());
        grid.AddSpacer(0);
        grid.AddSpacer(0);
    }
    BindRow(field);
}

void FormDetails::BuildView(Row& row, DetailField field) {
    row.view = new PictureView(m_fields, wxID_ANY, wxDefaultPosition, FromDIP(wxSize(ViewWidth, ViewHeight)),
                               wxBORDER_SIMPLE);
    row.view->SetMinSize(row.view->GetSize());
    row.files = platform::FileTarget::Create(*row.view, FileEvents(field));
    row.view->Bind(wxEVT_PAINT, [this, field](wxPaintEvent&) { PaintView(m_rows[IndexOf(field)], field); });
    row.view->Bind(wxEVT_LEFT_DOWN, [this, field](wxMouseEvent&) { FocusField(field); });
}

void FormDetails::PaintView(const Row& row, DetailField field) {
    wxPaintDC dc(row.view);
    dc.SetBackground(wxSystemSettings::GetColour(wxSYS_COLOUR_WINDOW));
    dc.Clear();
    const DetailValue value = m_details.ValueOf(field);
    const wxSize room = row.view->GetClientSize();
    if (PictureChoice::IsPictureName(value.text)) {
        const wxBitmap& bitmap = m_pictures.Bitmap(value.text, room, 1);
        if (bitmap.IsOk())
            dc.DrawBitmap(bitmap, (room.x - bitmap.GetWidth()) / 2, (room.y - bitmap.GetHeight()) / 2, true);
    }
    if (field != m_dropField) return;
    dc.SetPen(wxPen(wxSystemSettings::GetColour(wxSYS_COLOUR_HIGHLIGHT), 3));
    dc.SetBrush(*wxTRANSPARENT_BRUSH);
    dc.DrawRectangle(wxPoint(1, 1), room - wxSize(1, 1));
}

void FormDetails::BindRow(DetailField field) {
    Row& row = m_rows[IndexOf(field)];
    row.box->Bind(wxEVT_TEXT, [this, &row](wxCommandEvent&) { SetTyped(row, true); });
    row.box->Bind(wxEVT_SET_FOCUS, [this](wxFocusEvent& event) {
        event.Skip();
        if (on.focusChanged) CallAfter([this] { on.focusChanged(); });
    });
    row.box->Bind(wxEVT_KILL_FOCUS, [this, field](wxFocusEvent& event) {
        event.Skip();
        OnKillFocus(field);
    });
    SelectAllOnFocus(*row.box);
    if (field == DetailField::HelpTopic) ApplyTextFilter(*row.box, DigitsOnly());
    if (row.button != nullptr)
        row.button->Bind(wxEVT_BUTTON, [this, field](wxCommandEvent&) { Choose(field); });
}

void FormDetails::SetTyped(Row& row, bool isTyped) {
    if (row.isTyped == isTyped) return;
    row.isTyped = isTyped;
    if (on.focusChanged) CallAfter([this] { on.focusChanged(); });
}

void FormDetails::ShowTexts() {
    platform::SetAccessibleName(*this, LoadResString(Message::DetailsTitle));
    for (std::size_t i = 0; i < DetailFieldCount; ++i) {
        const std::string label = LabelOf(static_cast<DetailField>(i));
        const Row& row = m_rows[i];
        row.label->SetLabelText(ToWx(label));
        platform::SetAccessibleName(*row.box, label);
        if (row.button == nullptr) continue;
        row.button->SetLabel(ResText(Message::DetailsChoose));
        const std::string choose = FormatResString(Message::DetailsChooseOf, label);
        row.button->SetToolTip(ToWx(choose));
        platform::SetAccessibleName(*row.button, choose);
    }
    ShowValues();
}

// --- what is shown ---

void FormDetails::OnMenuReplaced() {
    for (Row& row : m_rows)
        SetTyped(row, false);
    ShowSelection({});
}

void FormDetails::OnMenuEvent(const MenuEvent& /*event*/) {}

void FormDetails::OnStateChanged() {
    ShowValues();
}

void FormDetails::ShowSelection(const EntryIds& ids) {
    if (ids == m_details.Ids()) return;
    // Some systems select another row before the field loses the focus.
    for (std::size_t i = 0; i < DetailFieldCount; ++i)
        Leave(static_cast<DetailField>(i));
    ShowReason("");
    m_details.Select(ids);
    ShowValues();
}

void FormDetails::ShowValues() {
    std::vector<std::string> pictures;
    for (std::size_t i = 0; i < DetailFieldCount; ++i) {
        const auto field = static_cast<DetailField>(i);
        const DetailValue value = m_details.ValueOf(field);
        Row& row = m_rows[i];
        row.box->Enable(value.isEnabled);
        if (row.button != nullptr) row.button->Enable(value.isEnabled);
        row.box->SetHint(value.differs ? ResText(Message::DetailsDiffer) : wxString());
        if (row.view != nullptr) {
            row.view->Refresh();
            if (PictureChoice::IsPictureName(value.text)) pictures.push_back(value.text);
        }
        // What is being typed stays.
        if (row.isTyped) continue;
        row.shown.Show(*row.box, value.text);
        row.box->SetToolTip(ToWx(value.text));
    }
    m_pictures.Want(std::move(pictures));
    wxWakeUpIdle();
    ShowPartName();
    ShowAbout();
    Layout();
    m_fields->FitInside();
}

// The line is always there, so that the fields stay where they are.
void FormDetails::ShowAbout() {
    const EntryIds& ids = m_details.Ids();
    std::string text;
    if (const MenuEntry* entry = ids.size() == 1 ? m_editor.Find(ids.front()) : nullptr; entry != nullptr)
        text = entry->ParentMenu() != nullptr ? FormatResString(Message::DetailsPlace, EntryPlace(*entry))
                                              : LoadResString(Message::DetailsRoot);
    else
        text = ids.size() < 2 ? LoadResString(Message::DetailsNothing)
                              : FormatResString(Message::DetailsSeveral, ids.size());
    if (FromWx(lblAbout->GetLabelText()) == text) return;
    lblAbout->SetLabelText(ToWx(text));
    lblAbout->SetToolTip(ToWx(text));
}

void FormDetails::ShowPartName() {
    const DetailValue program = m_details.ValueOf(DetailField::Program);
    std::string text;
    if (program.isEnabled && !program.differs) {
        const std::string path = PartReference::IniPath(program.text);
        if (path.empty())
            text = LoadResString(Message::NoPart);
        else
            text = FormatResString(Message::PartName, on.partName ? on.partName(path) : "");
    }
    if (FromWx(lblPart->GetLabelText()) != text) lblPart->SetLabelText(ToWx(text));
}

void FormDetails::ShowReason(const std::string& reason) {
    if (lblReason->IsShown() == !reason.empty() && reason.empty()) return;
    lblReason->Show(!reason.empty());
    if (!reason.empty()) {
        lblReason->SetLabelText(ToWx(reason));
        lblReason->Wrap(GetClientSize().x - FromDIP(8));
    }
    Layout();
    m_fields->FitInside();
}

void FormDetails::CheckFiles() {
    if (IsShownOnScreen()) m_pictures.CheckFiles();
    wxWakeUpIdle();
}

// Decodes the small pictures while nothing else happens.
void FormDetails::OnIdle(wxIdleEvent& event) {
    event.Skip();
    if (!IsShownOnScreen() || !m_pictures.IsBusy()) return;
    if (m_pictures.Work(Slice))
        for (const Row& row : m_rows)
            if (row.view != nullptr) row.view->Refresh();
    if (m_pictures.IsBusy()) m_pictureTimer.StartOnce(PictureMilliseconds);
}

// --- editing ---

std::optional<DetailField> FormDetails::FocusedField() const {
    const wxWindow* focus = FindFocus();
    for (std::size_t i = 0; i < DetailFieldCount; ++i)
        if (m_rows[i].box == focus) return static_cast<DetailField>(i);
    return std::nullopt;
}

bool FormDetails::HasTyping() const {
    const std::optional<DetailField> field = FocusedField();
    return field && m_rows[IndexOf(*field)].isTyped;
}

bool FormDetails::UndoTyping() {
    if (!HasTyping()) return false;
    Revert(*FocusedField());
    return true;
}

bool FormDetails::FocusField(DetailField field) {
    const Row& row = m_rows[IndexOf(field)];
    if (!row.box->IsEnabled() || !IsShownOnScreen()) return false;
    row.box->SetFocus();
    return true;
}

// Sets the typed text of a field. Returns why it was refused.
std::optional<EntryDetails::Refusal> FormDetails::Set(DetailField field) {
    Row& row = m_rows[IndexOf(field)];
    const std::string text = row.shown.Of(*row.box);
    const bool isKept = field == DetailField::HelpTopic && !HelpFileChoice::IsTopic(text);
    if (auto refusal = m_details.WhyNot(field, text)) return refusal;
    SetTyped(row, false);
    try {
        m_details.Set(field, text);
    } catch (const NeskError& error) {
        SetTyped(row, true);
        return EntryDetails::Refusal{
            FormatResString(Message::CommandFailed, modUtilities::MessageText(error)), ""};
    }
    ShowReason(isKept ? LoadResString(Message::DetailsTopicKept) : "");
    ShowValues();
    return std::nullopt;
}

bool FormDetails::Commit() {
    for (std::size_t i = 0; i < DetailFieldCount; ++i) {
        if (!m_rows[i].isTyped) continue;
        const auto field = static_cast<DetailField>(i);
        if (const auto refusal = Set(field)) {
            Refuse(field, *refusal);
            return false;
        }
    }
    return true;
}

void FormDetails::Refuse(DetailField field, const EntryDetails::Refusal& refusal) {
    ShowReason(refusal.reason);
    m_isRefusing = true;
    modMessageBox::ShowMessage(refusal.message, modMessageBox::Option::Exclamation, FieldMessage::Title());
    m_isRefusing = false;
    m_rows[IndexOf(field)].box->SetFocus();
}

void FormDetails::OnKillFocus(DetailField field) {
    if (IsBeingDeleted()) return;
    if (on.focusChanged) CallAfter([this] { on.focusChanged(); });
    Leave(field);
}

// The user goes elsewhere: the typed text is set for the entries that are still shown. If it is refused, he
// is told afterwards, and sees the entries and his text again.
void FormDetails::Leave(DetailField field) {
    Row& row = m_rows[IndexOf(field)];
    if (!row.isTyped || m_isRefusing) return;
    const auto refusal = Set(field);
    if (!refusal) return;
    const std::string text = row.shown.Of(*row.box);
    SetTyped(row, false);
    CallAfter([this, field, text, ids = m_details.Ids(), refusal = *refusal] {
        if (on.select && ids != m_details.Ids()) on.select(ids);
        Row& again = m_rows[IndexOf(field)];
        again.box->ChangeValue(ToWx(text));
        SetTyped(again, true);
        Refuse(field, refusal);
    });
}

void FormDetails::Revert(DetailField field) {
    Row& row = m_rows[IndexOf(field)];
    SetTyped(row, false);
    ShowReason("");
    ShowValues();
    row.box->SelectAll();
}

void FormDetails::Choose(DetailField field) {
    if (!Commit()) return;
    const std::string now = m_details.ValueOf(field).text;
    wxWindow* const top = wxGetTopLevelParent(this);
    if (field == DetailField::HelpFile) {
        std::string file = now;
        std::int32_t topic = 0;
        if (const DetailValue value = m_details.ValueOf(DetailField::HelpTopic); !value.differs)
            topic = HelpFileChoice::Topic(value.text, 0);
        if (FormSelectHelpFile(top).Display(file, topic)) m_details.SetHelp(file, topic);
    } else if (field == DetailField::HistoryDir) {
        std::string directory = now;
        std::string title = m_details.ValueOf(DetailField::HistoryTitle).text;
        const std::string proposed = m_details.ValueOf(DetailField::Caption).text;
        if (FormSelectHistory(top).Display(directory, title, true, proposed))
            m_details.SetHistory(directory, title);
    } else {
        const auto text = field == DetailField::Program ? TextField::Program : TextField::Picture;
        const std::string shown = field == DetailField::Program ? PartReference::IniPath(now) : now;
        const std::string path = ChooseFieldPath(top, text, shown);
        if (!path.empty())
            m_details.Set(field, field == DetailField::Program ? PartReference::Make(path) : path);
    }
    ShowValues();
}

bool FormDetails::OnCharHook(wxKeyEvent& event) {
    const std::optional<DetailField> field = FocusedField();
    const int key = event.GetKeyCode();
    if (!field) {
        // The buttons need only these. A command must not change an entry from here.
        if (!IsDescendant(FindFocus()) || event.HasAnyModifiers()) return false;
        if (key == WXK_ESCAPE) {
            if (on.leave) on.leave();
            return true;
        }
        if (key == WXK_DELETE || key == WXK_NUMPAD_DELETE || key == WXK_F2) return true;
        if (key >= WXK_F1 && key <= WXK_F24) return false;
        event.Skip();
        return true;
    }
    Row& row = m_rows[IndexOf(*field)];
    if ((key == WXK_RETURN || key == WXK_NUMPAD_ENTER) && !event.HasAnyModifiers()) {
        // Not now: on Windows, a message that the text is refused would get this key too, and close.
        CallAfter([this, box = row.box] {
            if (Commit()) box->SelectAll();
        });
        return true;
    }
    if (key == WXK_ESCAPE && !event.HasAnyModifiers()) {
        if (row.isTyped)
            Revert(*field);
        else if (on.leave)
            on.leave();
        return true;
    }
    switch (TextKeyOf(event)) {
    case TextKey::Text: event.Skip(); return true;
    case TextKey::Undo:
        if (on.undo) on.undo();
        return true;
    case TextKey::Redo:
        // A change that is made again would take the place of the typing.
        if (!row.isTyped && on.redo) on.redo();
        return true;
    case TextKey::Nothing: return true;
    case TextKey::Command: break;
    }
    return false;
}

} // namespace nesk
