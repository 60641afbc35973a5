#include "partedit/FormEditPart.h"

#include "menu/FormPicture.h"
#include "menu/FormSelectMenuPicture.h"
#include "menu/MenuItem.h"
#include "menu/MenuText.h"
#include "partedit/FormSelectHelpFile.h"
#include "partedit/FormSelectHistory.h"
#include "partedit/FormSelectPart.h"
#include "partedit/PartReference.h"
#include "platform/PartInfoEditor.h"
#include "shell/FormUtilities.h"
#include "shell/Startup.h"
#include "shell/modMessageBox.h"
#include "shell/modStringRes.h"

#include <wx/button.h>
#include <wx/sizer.h>
#include <wx/statbox.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

namespace nesk {

using modUtilities::FromWx;
using modUtilities::ToWx;

namespace {

constexpr int TitleText = 32029; // %0% caption
constexpr int MenuPictureText = 32042;
constexpr int PartInformationText = 32043;
constexpr int ProgramText = 32044;
constexpr int HelpFrameText = 32055;
constexpr int MenuFrameText = 32056;
constexpr int PreviewFrameText = 32057;
constexpr int DeleteText = 32065;
constexpr int SelectText = 32066;
constexpr int HelpFileText = 32075;
constexpr int HistoryText = 32083;
constexpr int SelectPartText = 34300;
constexpr int EditorMissing = 34301; // %0% name of the editor
constexpr int EditorFailed = 34302;  // %0% name of the editor
constexpr std::int32_t HelpTopic = 33004;

// Up to this many pixels the menu picture has no frame of its own.
constexpr int CompactWidth = 640;

// Most references to part programs are seen whole in this width.
constexpr int ProgramWidth = 360;

// The lower row of a picture's frame.
wxSizer* PictureButtons(wxButton* select, wxButton* remove, int gap) {
    auto* row = new wxBoxSizer(wxHORIZONTAL);
    row->Add(select);
    row->Add(remove, wxSizerFlags().Border(wxLEFT, gap));
    return row;
}

} // namespace

FormEditPart::FormEditPart(wxWindow* parent, int screenWidth)
    : FormDialog(parent, "FormEditPart", TitleText, HelpTopic) {
    const bool compact = screenWidth <= CompactWidth;
    auto* frames = new wxBoxSizer(wxHORIZONTAL);
    wxSizer* program = MakeProgramRows();
    if (!compact) txtPartName->SetMinSize(FromDIP(wxSize(ProgramWidth, -1)));
    wxSizer* menuPicture = MakeMenuPictureFrame();
    cmdMenuPicture = NewButton(this, "cmdMenuPicture", MenuPictureText);
    frames->Add(menuPicture, wxSizerFlags(1).Expand().Border(wxRIGHT, Gap()));
    frames->Add(cmdMenuPicture, wxSizerFlags().Top().Border(wxRIGHT, Gap()));
    frames->Add(MakePreviewFrame(), wxSizerFlags(1).Expand().Border(wxRIGHT, Gap()));
    frames->Add(MakeHelpFrame(), wxSizerFlags().Expand());
    frames->Show(menuPicture, !compact, true);
    frames->Show(cmdMenuPicture, compact);

    auto* content = new wxBoxSizer(wxVERTICAL);
    content->Add(program, wxSizerFlags().Expand().Border(wxBOTTOM, Gap()));
    content->Add(frames, wxSizerFlags(1).Expand());
    Finish(content);
    BindControls();
}

wxSizer* FormEditPart::MakeProgramRows() {
    lblPartName = NewLabel(this, "lblPartName", ProgramText);
    txtPartName = NewTextBox(this, "txtPartName");
    cmdSelectPart = NewButton(this, "cmdSelectPart", SelectPartText);
    lblDescription = new wxStaticText(this, wxID_ANY, "", wxDefaultPosition, wxDefaultSize,
                                      wxST_ELLIPSIZE_END | wxST_NO_AUTORESIZE, "lblDescription");
    cmdSlideShow = NewButton(this, "cmdSlideShow", PartInformationText);

    auto* grid = new wxFlexGridSizer(3, Gap(), Gap());
    grid->AddGrowableCol(1);
    grid->Add(lblPartName, wxSizerFlags().CentreVertical());
    grid->Add(txtPartName, wxSizerFlags().Expand());
    grid->Add(cmdSelectPart, wxSizerFlags().Expand());
    grid->AddSpacer(0);
    grid->Add(lblDescription, wxSizerFlags().Expand().CentreVertical());
    grid->Add(cmdSlideShow, wxSizerFlags().Expand());
    return grid;
}

wxSizer* FormEditPart::MakeMenuPictureFrame() {
    wxStaticBoxSizer* frame = NewFrame("Frame1", MenuFrameText);
    Frame1 = frame->GetStaticBox();
    picItemHost = new FormPicture(Frame1, "picItemHost", "picItem");
    cmdMenuSelect = NewButton(Frame1, "cmdMenuSelect", SelectText);
    cmdMenuDelete = NewButton(Frame1, "cmdMenuDelete", DeleteText);
    frame->Add(picItemHost, wxSizerFlags(1).Expand().Border(wxALL, Gap()));
    frame->Add(PictureButtons(cmdMenuSelect, cmdMenuDelete, Gap()),
               wxSizerFlags().Border(wxLEFT | wxRIGHT | wxBOTTOM, Gap()));
    return frame;
}

wxSizer* FormEditPart::MakePreviewFrame() {
    wxStaticBoxSizer* frame = NewFrame("Frame2", PreviewFrameText);
    Frame2 = frame->GetStaticBox();
    picPreviewHost = new FormPicture(Frame2, "picPreviewHost", "picPreview");
    cmdPreviewSelect = NewButton(Frame2, "cmdPreviewSelect", SelectText);
    cmdPreviewDelete = NewButton(Frame2, "cmdPreviewDelete", DeleteText);
    frame->Add(picPreviewHost, wxSizerFlags(1).Expand().Border(wxALL, Gap()));
    frame->Add(PictureButtons(cmdPreviewSelect, cmdPreviewDelete, Gap()),
               wxSizerFlags().Border(wxLEFT | wxRIGHT | wxBOTTOM, Gap()));
    return frame;
}

wxSizer* FormEditPart::MakeHelpFrame() {
    wxStaticBoxSizer* frame = NewFrame("Frame3", HelpFrameText);
    Frame3 = frame->GetStaticBox();
    cmdHelpFile = NewButton(Frame3, "cmdHelpFile", HelpFileText);
    cmdHistory = NewButton(Frame3, "cmdHistory", HistoryText);
    frame->Add(cmdHelpFile, wxSizerFlags().Expand().Border(wxALL, Gap()));
    frame->Add(cmdHistory, wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT | wxBOTTOM, Gap()));
    return frame;
}

void FormEditPart::BindControls() {
    txtPartName->Bind(wxEVT_TEXT, [this](wxCommandEvent&) {
        const std::string text = FromWx(txtPartName->GetValue());
        // A line break would break the menu file; pasted ones become blanks.
        if (const std::string line = MenuText::OnOneLine(text); line != text)
            txtPartName->ChangeValue(ToWx(line));
        RefreshDescription();
    });
    const auto onPress = [](wxButton* button, auto action) {
        button->Bind(wxEVT_BUTTON, [action](wxCommandEvent&) { action(); });
    };
    onPress(cmdSelectPart, [this] { SelectPart(); });
    onPress(cmdSlideShow, [this] { EditPartInformation(); });
    onPress(cmdMenuPicture, [this] { ChooseFromLibrary(); });
    onPress(cmdMenuSelect, [this] { picItemHost->Choose(); });
    onPress(cmdMenuDelete, [this] { picItemHost->SetPath(""); });
    onPress(cmdPreviewSelect, [this] { picPreviewHost->Choose(); });
    onPress(cmdPreviewDelete, [this] { picPreviewHost->SetPath(""); });
    onPress(cmdHelpFile, [this] { FormSelectHelpFile(this).Display(m_fields.helpFile, m_fields.helpTopic); });
    onPress(cmdHistory,
            [this] { FormSelectHistory(this).Display(m_fields.historyDir, m_fields.historyTitle, true); });
}

bool FormEditPart::Edit(const std::string& caption, PartFields& fields) {
    m_fields = m_before = fields;
    SetTitle(ToWx(modStringRes::FormatResString(TitleText, caption)));
    m_program.Show(*txtPartName, fields.programId);
    picItemHost->SetPath(fields.graphic);
    picPreviewHost->SetPath(fields.preview);
    RefreshDescription();
    txtPartName->SetFocus();
    if (ShowModal() != wxID_OK) return false;
    fields = Entered();
    return true;
}

std::string FormEditPart::Program() const {
    return m_program.Of(*txtPartName);
}

PartFields FormEditPart::Entered() const {
    PartFields fields = m_fields;
    fields.programId = Program();
    fields.graphic = picItemHost->Path();
    fields.preview = picPreviewHost->Path();
    return fields;
}

void FormEditPart::OnOK() {
    // Any text is accepted, but one that the menu file cannot hold must be
    // corrected while it is still here.
    CheckPartFields(Entered(), m_before);
    Accept();
}

bool FormEditPart::Edit(MenuItem* item) {
    if (item == nullptr) return false;
    PartFields fields = PartFieldsOf(*item);
    if (!Edit(std::string(item->Caption()), fields)) return false;
    ApplyPartFields(*item, fields);
    return true;
}

void FormEditPart::RefreshDescription() {
    const std::string text = Program();
    lblDescription->SetLabelText(ToWx(PartReference::Description(text)));
    txtPartName->SetToolTip(ToWx(text));
    cmdSlideShow->Enable(PartReference::RefersToPart(text));
}

void FormEditPart::SelectPart() {
    const std::string path = FormSelectPart(this).SelectPart();
    if (!path.empty()) txtPartName->SetValue(ToWx(PartReference::Make(path)));
}

void FormEditPart::EditPartInformation() {
    const std::string path = PartReference::IniPath(Program());
    const std::optional<std::string> folder = PartReference::PartFolder(path);
    if (!folder) return;
    const platform::PartInfoResult result = platform::EditPartInfo(*folder, path, Startup::LanguageID());
    // The part may have got another name.
    RefreshDescription();
    if (result == platform::PartInfoResult::Done) return;
    const int message = result == platform::PartInfoResult::Missing ? EditorMissing : EditorFailed;
    modMessageBox::ShowMessage(modStringRes::FormatResString(message, platform::PartInfoEditorName()),
                               modMessageBox::Option::Exclamation);
}

void FormEditPart::ChooseFromLibrary() {
    std::string path = picItemHost->Path();
    if (FormSelectMenuPicture(this).Display(path)) picItemHost->SetPath(path);
}

} // namespace nesk
