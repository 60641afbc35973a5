#include "settings/FormDirectories.h"

#include "base/Messages.h"
#include "partedit/FormBrowse.h"
#include "partedit/FormSelectHistory.h"
#include "settings/FormSelectMachine.h"
#include "settings/FormSelectUser.h"
#include "settings/NeskRegistry.h"
#include "settings/PrinterChoice.h"
#include "shell/modMessageBox.h"
#include "shell/modStringRes.h"
#include "shell/modUtilities.h"
#include "widgets/FormReadOnlyText.h"
#include "widgets/NumericKeyFilter.h"
#include "widgets/UiTextFilter.h"
#include "widgets/UiUtilities.h"

#include <functional>
#include <utility>

#include <wx/button.h>
#include <wx/sizer.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

namespace nesk {

using modUtilities::FromWx;
using modUtilities::NumericKeyFilter;
using modUtilities::ToWx;

namespace {

constexpr std::int32_t HelpTopic = 33007;

// Only digits can be typed. Text entered in another way is checked when the dialog is confirmed.
TextFilter NumberFilter() {
    const NumericKeyFilter digits(false, false);
    return {[digits](char32_t character, const std::string& text, std::size_t start, std::size_t end) {
                return digits.Accepts(character, text, start, end);
            },
            [](const std::string& text) { return text; }, true};
}

} // namespace

FormDirectories::FormDirectories(wxWindow* parent)
    : FormDialog(parent, "FormDirectories", Message::OptionsTitle, HelpTopic) {
    wxSizer* rows = BuildRows();
    cmdHistory = NewButton(this, "cmdHistory", Message::HistoryLabel);
    // Created before the button, so that wx uses it as the button's label.
    lblPrinter = new wxStaticText(this, wxID_ANY, "", wxDefaultPosition, wxDefaultSize,
                                  wxST_ELLIPSIZE_END | wxST_NO_AUTORESIZE, "lblPrinter");
    cmdPrinter = NewButton(this, "cmdPrinter", Message::PrinterLabel);

    auto* more = new wxBoxSizer(wxHORIZONTAL);
    more->Add(cmdHistory);
    more->Add(cmdPrinter, wxSizerFlags().Border(wxLEFT, Gap()));
    more->Add(lblPrinter, wxSizerFlags(1).CentreVertical().Border(wxLEFT, Gap()));
    auto* content = new wxBoxSizer(wxVERTICAL);
    content->Add(rows, wxSizerFlags(1).Expand());
    content->Add(more, wxSizerFlags().Expand().Border(wxTOP, Gap()));
    Finish(content);
    BindEvents();
}

wxSizer* FormDirectories::BuildRows() {
    constexpr int columns = 3;
    auto* rows = new wxFlexGridSizer(columns, Gap(), Gap());
    rows->AddGrowableCol(1);
    const auto add = [&](wxWindow* label, wxWindow* box, wxWindow* button) {
        rows->Add(label, wxSizerFlags().CentreVertical());
        rows->Add(box, button == nullptr ? wxSizerFlags().CentreVertical()
                                         : wxSizerFlags(1).Expand().CentreVertical());
        if (button == nullptr)
            rows->AddSpacer(0);
        else
            rows->Add(button, wxSizerFlags().Expand());
    };
    const auto newNumberBox = [this](const char* name) {
        auto* box = new wxTextCtrl(this, wxID_ANY, "", wxDefaultPosition, FromDIP(wxSize(80, -1)), 0,
                                   wxDefaultValidator, name);
        ApplyTextFilter(*box, NumberFilter());
        SelectAllOnFocus(*box);
        return box;
    };
    const auto newNameBox = [this](const char* name) {
        constexpr int width = 280;
        return new FormReadOnlyText(this, name, width);
    };

    // In Tab order. Each label precedes the box that its access key selects.
    lblRoot = NewLabel(this, "lblRoot", Message::OptionsRoot);
    txtRoot = NewTextBox(this, "txtRoot");
    cmdRoot = NewButton(this, "cmdRoot", Message::OptionsBrowse);
    add(lblRoot, txtRoot, cmdRoot);
    lblSlides = NewLabel(this, "lblSlides", Message::OptionsSlides);
    txtSlides = NewTextBox(this, "txtSlides");
    cmdSlides = NewButton(this, "cmdSlides", Message::OptionsBrowse);
    add(lblSlides, txtSlides, cmdSlides);
    lblBitmap = NewLabel(this, "lblBitmap", Message::OptionsBitmap);
    txtBitmap = NewTextBox(this, "txtBitmap");
    cmdBitmap = NewButton(this, "cmdBitmap", Message::OptionsBrowse);
    add(lblBitmap, txtBitmap, cmdBitmap);
    lblMachine = NewLabel(this, "lblMachine", Message::OptionsMachine);
    txtMachine = newNameBox("txtMachine");
    cmdMachine = NewButton(this, "cmdMachine", Message::OptionsChoose);
    add(lblMachine, txtMachine, cmdMachine);
    lblUser = NewLabel(this, "lblUser", Message::OptionsUser);
    txtUser = newNameBox("txtUser");
    cmdUser = NewButton(this, "cmdUser", Message::OptionsChoose);
    add(lblUser, txtUser, cmdUser);
    lblMaxParts = NewLabel(this, "lblMaxParts", Message::OptionsMaxParts);
    txtMaxParts = newNumberBox("txtMaxParts");
    add(lblMaxParts, txtMaxParts, nullptr);
    lblSampleSize = NewLabel(this, "lblSampleSize", Message::SampleSize);
    txtSampleSize = newNumberBox("txtSampleSize");
    add(lblSampleSize, txtSampleSize, nullptr);
    return rows;
}

void FormDirectories::BindEvents() {
    const auto onPress = [](wxButton* button, std::function<void()> act) {
        button->Bind(wxEVT_BUTTON, [act = std::move(act)](wxCommandEvent&) { act(); });
    };
    onPress(cmdRoot, [this] { BrowseFor(*txtRoot, Message::OptionsRootPrompt); });
    onPress(cmdSlides, [this] { BrowseFor(*txtSlides, Message::OptionsSlidesPrompt); });
    onPress(cmdBitmap, [this] { BrowseFor(*txtBitmap, Message::OptionsBitmapPrompt); });
    onPress(cmdMachine, [this] { ChooseMachine(); });
    onPress(cmdUser, [this] { ChooseUser(); });
    onPress(cmdHistory, [this] { ChooseHistory(); });
    onPress(cmdPrinter, [this] { SetUpPrinter(); });
    // The tooltip shows a path that is longer than its box.
    for (wxTextCtrl* box : {txtRoot, txtSlides, txtBitmap})
        box->Bind(wxEVT_TEXT, [box](wxCommandEvent& event) {
            event.Skip();
            box->SetToolTip(box->GetValue());
        });
}

bool FormDirectories::Invoke(bool mayMakeRoot) {
    m_mayMakeRoot = mayMakeRoot;
    m_fields = OptionsModel::Load(NeskRegistry::Instance());
    ShowFields();
    txtRoot->SetFocus();
    return ShowModal() == wxID_OK;
}

void FormDirectories::OnOK() {
    ReadFields();
    if (m_mayMakeRoot) OfferRoot();
    OptionsModel::Numbers numbers;
    if (const auto fault = OptionsModel::Check(m_fields, numbers)) return Refuse(*fault);
    NeskRegistry& settings = NeskRegistry::Instance();
    OptionsModel::Apply(m_fields, numbers, settings);
    settings.Save();
    Accept();
}

// When the user answers No, the check reports that the folder does not exist.
void FormDirectories::OfferRoot() {
    if (!OptionsModel::RootCanBeMade(m_fields.root)) return;
    namespace Option = modMessageBox::Option;
    const std::string question =
        modStringRes::FormatResString(Message::OptionsCreateRootQuestion, m_fields.root);
    if (modMessageBox::ShowMessage(question, Option::YesNo | Option::Question) == modMessageBox::Result::Yes)
        modUtilities::MakePath(m_fields.root);
}

void FormDirectories::Refuse(const OptionsModel::Fault& fault) {
    ShowReason(fault.reason);
    modMessageBox::ShowMessage(fault.message, modMessageBox::Option::Exclamation, OptionsModel::FaultTitle());
    wxTextCtrl& box = BoxOf(fault.field);
    if (fault.replacement) box.SetValue(ToWx(*fault.replacement));
    box.SetFocus();
    // A box that already has the focus gets no focus event, so its text is selected here.
    if (fault.replacement) modUtilities::SelectAllText(box, true);
}

wxTextCtrl& FormDirectories::BoxOf(OptionsModel::Field field) {
    using OptionsModel::Field;
    switch (field) {
    case Field::Root: return *txtRoot;
    case Field::Slides: return *txtSlides;
    case Field::Bitmap: return *txtBitmap;
    case Field::Machine: return *txtMachine;
    case Field::User: return *txtUser;
    case Field::MaxParts: return *txtMaxParts;
    case Field::SampleSize: break;
    }
    return *txtSampleSize;
}

void FormDirectories::ShowFields() {
    txtRoot->SetValue(ToWx(m_fields.root));
    txtSlides->SetValue(ToWx(m_fields.slides));
    txtBitmap->SetValue(ToWx(m_fields.bitmap));
    txtMachine->SetValue(ToWx(m_fields.machine));
    txtUser->SetValue(ToWx(m_fields.user));
    ShowPrinter();
    ApplyHistoryRule();
}

void FormDirectories::ShowPrinter() {
    const wxString text = ToWx(PrinterChoice::Shown(m_fields.printer));
    lblPrinter->SetLabelText(text);
    lblPrinter->SetToolTip(text);
}

void FormDirectories::SetUpPrinter() {
    platform::PrinterValues chosen = m_fields.printer;
    const auto result = platform::ShowPrinterSetup(this, chosen, PrinterChoice::Texts(m_fields.printer));
    PrinterChoice::Take(m_fields.printer, chosen, result);
    ShowPrinter();
}

void FormDirectories::ReadFields() {
    m_fields.root = FromWx(txtRoot->GetValue());
    m_fields.slides = FromWx(txtSlides->GetValue());
    m_fields.bitmap = FromWx(txtBitmap->GetValue());
    m_fields.machine = FromWx(txtMachine->GetValue());
    m_fields.user = FromWx(txtUser->GetValue());
    m_fields.maxParts = FromWx(txtMaxParts->GetValue());
    m_fields.sampleSize = FromWx(txtSampleSize->GetValue());
}

void FormDirectories::ApplyHistoryRule() {
    const bool used = OptionsModel::ApplyHistoryRule(m_fields);
    txtMaxParts->SetValue(ToWx(m_fields.maxParts));
    txtSampleSize->SetValue(ToWx(m_fields.sampleSize));
    txtMaxParts->Enable(used);
    txtSampleSize->Enable(used);
}

void FormDirectories::BrowseFor(wxTextCtrl& box, int promptId) {
    const std::string folder =
        FormBrowse(this).Invoke(modStringRes::LoadResString(promptId), FromWx(box.GetValue()));
    if (!folder.empty()) box.SetValue(ToWx(folder));
}

void FormDirectories::ChooseMachine() {
    const std::string key =
        FormSelectMachine(this).SelectMachine(m_fields.machineKey, NeskRegistry::Instance().NeskMachine);
    if (key.empty()) return;
    m_fields.machineKey = key;
    ShowReason("");
    OptionsModel::ShowName(key, m_fields.machine);
    txtMachine->SetValue(ToWx(m_fields.machine));
}

void FormDirectories::ChooseUser() {
    const std::string key =
        FormSelectUser(this).SelectUser(m_fields.userKey, NeskRegistry::Instance().NeskUser);
    if (key.empty()) return;
    m_fields.userKey = key;
    ShowReason("");
    OptionsModel::ShowName(key, m_fields.user);
    txtUser->SetValue(ToWx(m_fields.user));
}

void FormDirectories::ChooseHistory() {
    // The numbers that the user typed are kept when there is a history.
    ReadFields();
    FormSelectHistory(this).Display(m_fields.historyDirectory, m_fields.historyTitle, false);
    ApplyHistoryRule();
}

} // namespace nesk
