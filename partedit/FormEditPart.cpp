#include "partedit/FormEditPart.h"

#include "base/Messages.h"
#include "menu/FormSelectMenuPicture.h"
#include "menu/MenuItem.h"
#include "menu/MenuText.h"
#include "partedit/FormSelectHelpFile.h"
#include "partedit/FormSelectHistory.h"
#include "partedit/FormSelectPart.h"
#include "partedit/PartReference.h"
#include "platform/AccessibleName.h"
#include "platform/PartInfoEditor.h"
#include "shell/FieldMessage.h"
#include "shell/modMessageBox.h"
#include "shell/modStringRes.h"
#include "widgets/FormPicture.h"
#include "widgets/FormReadOnlyText.h"
#include "widgets/UiPictureButtons.h"
#include "widgets/UiUtilities.h"

#include <cstddef>
#include <iterator>

#include <wx/button.h>
#include <wx/panel.h>
#include <wx/sizer.h>
#include <wx/statbox.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

namespace nesk {

using modStringRes::LoadResString;
using modUtilities::FromWx;
using modUtilities::ToWx;

namespace {

constexpr std::int32_t HelpTopic = 33004;

// Up to this width in pixels, the menu picture has no frame of its own.
constexpr int CompactWidth = 640;

// Most references to part programs fit into this width.
constexpr int ProgramWidth = 320;

// Minimum sizes in device-independent pixels, on small screens and on others.
struct Sizes {
    wxSize picture;
    int box = 0; // width of a box next to a button
};
const Sizes CompactSizes{wxSize(100, 75), 110};
const Sizes UsualSizes{wxSize(165, 124), 110};

// The lower row of a picture's frame: its buttons.
wxSizer* PictureButtons(wxButton* select, wxButton* remove, int gap) {
    auto* row = new wxBoxSizer(wxHORIZONTAL);
    row->Add(select);
    row->Add(remove, wxSizerFlags().Border(wxLEFT, gap));
    return row;
}

const Sizes& SizesFor(bool compact) {
    return compact ? CompactSizes : UsualSizes;
}

// A panel that contains only lines of text, so it takes no keyboard focus.
class LinesPanel final : public wxPanel {
public:
    explicit LinesPanel(wxWindow* parent) : wxPanel(parent) {}
    bool AcceptsFocus() const override { return false; }
    bool AcceptsFocusFromKeyboard() const override { return false; }
    bool AcceptsFocusRecursively() const override { return false; }
};

// A line of text. When it is too long, its end is cut off, and its tooltip shows the whole text.
wxStaticText* NewLine(wxWindow* parent, const char* name) {
    return new wxStaticText(parent, wxID_ANY, "", wxDefaultPosition, wxDefaultSize,
                            wxST_ELLIPSIZE_END | wxST_NO_AUTORESIZE, name);
}

void ShowLine(wxStaticText& line, const std::string& text) {
    line.SetLabelText(ToWx(text));
    line.SetToolTip(ToWx(text));
}

} // namespace

FormEditPart::FormEditPart(wxWindow* parent, int screenWidth)
    : FormDialog(parent, "FormEditPart", Message::PartTitle, HelpTopic)
    , m_compact(screenWidth <= CompactWidth) {
    // Each column has its own width: the words of some languages are long. All but the small picture grow.
    auto* frames = new wxFlexGridSizer(4, 0, 0);
    for (const std::size_t column : {0u, 2u, 3u})
        frames->AddGrowableCol(column, 1);
    frames->AddGrowableRow(0);
    wxSizer* program = MakeProgramRows();
    if (!m_compact) txtPartName->SetMinSize(FromDIP(wxSize(ProgramWidth, -1)));
    wxWindow* menuPicture = MakeMenuPictureFrame();
    wxSizer* compactPicture = MakeCompactPicture();
    frames->Add(menuPicture, wxSizerFlags().Expand().Border(wxRIGHT, Gap()));
    frames->Add(compactPicture, wxSizerFlags().Expand().Border(wxRIGHT, Gap()));
    frames->Add(MakePreviewFrame(), wxSizerFlags().Expand().Border(wxRIGHT, Gap()));
    frames->Add(MakeHelpFrame(), wxSizerFlags().Expand());
    // Hides the frame itself too, and not only the window that contains it.
    Frame1->Show(!m_compact);
    frames->Show(menuPicture, !m_compact);
    frames->Show(compactPicture, m_compact, true);

    auto* content = new wxBoxSizer(wxVERTICAL);
    content->Add(program, wxSizerFlags().Expand().Border(wxBOTTOM, Gap()));
    content->Add(frames, wxSizerFlags(1).Expand());
    Finish(content);
    BindControls();
}

wxSizer* FormEditPart::MakeProgramRows() {
    lblPartName = NewLabel(this, "lblPartName", Message::PartProgram);
    txtPartName = NewTextBox(this, "txtPartName");
    cmdSelectPart = NewButton(this, "cmdSelectPart", Message::PartSelectPart);
    // The lines are in a window of their own, because otherwise wx would use them as the label of the next
    // button.
    auto* about = new LinesPanel(this);
    lblDescription = NewLine(about, "lblDescription");
    lblProblem = NewLine(about, "lblProblem");
    auto* lines = new wxBoxSizer(wxVERTICAL);
    lines->Add(lblDescription, wxSizerFlags().Expand());
    lines->Add(lblProblem, wxSizerFlags().Expand());
    about->SetSizer(lines);
    cmdSlideShow = NewButton(this, "cmdSlideShow", Message::PartInformation);

    auto* grid = new wxFlexGridSizer(3, Gap(), Gap());
    grid->AddGrowableCol(1);
    grid->Add(lblPartName, wxSizerFlags().CentreVertical());
    grid->Add(txtPartName, wxSizerFlags().Expand());
    grid->Add(cmdSelectPart, wxSizerFlags().Expand());
    grid->AddSpacer(0);
    grid->Add(about, wxSizerFlags().Expand().CentreVertical());
    grid->Add(cmdSlideShow, wxSizerFlags().Expand());
    return grid;
}

wxWindow* FormEditPart::MakeMenuPictureFrame() {
    wxStaticBoxSizer* frame = NewFrame("Frame1", Message::MenuPictureFrame);
    Frame1 = frame->GetStaticBox();
    picItemHost = new FormPicture(Frame1, "picItemHost", "picItem", SizesFor(m_compact).picture);
    cmdMenuSelect = NewButton(Frame1, "cmdMenuSelect", Message::SelectLabel);
    cmdMenuDelete = NewButton(Frame1, "cmdMenuDelete", Message::DeleteLabel);
    frame->Add(picItemHost, wxSizerFlags(1).Expand().Border(wxALL, Gap()));
    frame->Add(PictureButtons(cmdMenuSelect, cmdMenuDelete, Gap()),
               wxSizerFlags().Border(wxLEFT | wxRIGHT | wxBOTTOM, Gap()));
    return FrameWindow(*frame);
}

// On a small screen, the menu picture is shown small, and is chosen in a separate dialog.
wxSizer* FormEditPart::MakeCompactPicture() {
    picCompact = new FormPicture(this, "picCompactHost", "picCompact", CompactSizes.picture);
    picCompact->Disable();
    cmdMenuPicture = NewButton(this, "cmdMenuPicture", Message::PartMenuPicture);
    auto* column = new wxBoxSizer(wxVERTICAL);
    column->Add(cmdMenuPicture, wxSizerFlags().Expand());
    column->Add(picCompact, wxSizerFlags().Expand().Border(wxTOP, Gap()));
    return column;
}

wxWindow* FormEditPart::MakePreviewFrame() {
    wxStaticBoxSizer* frame = NewFrame("Frame2", Message::PartPreviewFrame);
    Frame2 = frame->GetStaticBox();
    picPreviewHost = new FormPicture(Frame2, "picPreviewHost", "picPreview", SizesFor(m_compact).picture);
    cmdPreviewSelect = NewButton(Frame2, "cmdPreviewSelect", Message::SelectLabel);
    cmdPreviewDelete = NewButton(Frame2, "cmdPreviewDelete", Message::DeleteLabel);
    frame->Add(picPreviewHost, wxSizerFlags(1).Expand().Border(wxALL, Gap()));
    frame->Add(PictureButtons(cmdPreviewSelect, cmdPreviewDelete, Gap()),
               wxSizerFlags().Border(wxLEFT | wxRIGHT | wxBOTTOM, Gap()));
    return FrameWindow(*frame);
}

wxWindow* FormEditPart::MakeHelpFrame() {
    wxStaticBoxSizer* frame = NewFrame("Frame3", Message::PartHelpFrame);
    Frame3 = frame->GetStaticBox();
    auto* grid = new wxFlexGridSizer(2, Gap(), Gap());
    grid->AddGrowableCol(1);
    const auto add = [&](wxWindow* first, const char* name, int accessibleName) {
        auto* box = new FormReadOnlyText(Frame3, name, SizesFor(m_compact).box);
        platform::SetAccessibleName(*box, FieldMessage::PlainLabel(LoadResString(accessibleName)));
        grid->Add(first, wxSizerFlags().Expand().CentreVertical());
        grid->Add(box, wxSizerFlags().Expand().CentreVertical());
        return box;
    };
    cmdHelpFile = NewButton(Frame3, "cmdHelpFile", Message::HelpFile);
    txtHelpFile = add(cmdHelpFile, "txtHelpFile", Message::HelpFile);
    txtHelpTopic =
        add(NewLabel(Frame3, "lblHelpTopic", Message::PartTopicLabel), "txtHelpTopic", Message::HelpTopic);
    cmdHistory = NewButton(Frame3, "cmdHistory", Message::HistoryLabel);
    txtHistoryDir = add(cmdHistory, "txtHistoryDir", Message::HistoryFolder);
    txtHistoryTitle = add(NewLabel(Frame3, "lblHistoryTitle", Message::PartTitleLabel), "txtHistoryTitle",
                          Message::HistoryTitle);
    // The file name is at the end of the path.
    txtHelpFile->KeepEndInView();
    txtHistoryDir->KeepEndInView();
    // A part without a history directory uses the history of the options.
    txtHistoryDir->SetHint(modUtilities::ResText(Message::PartDefaultHistory));
    frame->Add(grid, wxSizerFlags(1).Expand().Border(wxALL, Gap()));
    return FrameWindow(*frame);
}

void FormEditPart::BindControls() {
    txtPartName->Bind(wxEVT_TEXT, [this](wxCommandEvent&) {
        const std::string text = FromWx(txtPartName->GetValue());
        // A line break would damage the menu file, so pasted line breaks become spaces.
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
    onPress(cmdHelpFile, [this] {
        FormSelectHelpFile(this).Display(m_fields.helpFile, m_fields.helpTopic);
        ShowHelpAndHistory();
    });
    onPress(cmdHistory, [this] {
        FormSelectHistory(this).Display(m_fields.historyDir, m_fields.historyTitle, true, m_caption);
        ShowHelpAndHistory();
    });
    picItemHost->onChanged = [this] { picCompact->SetPath(picItemHost->Path()); };
    BindPictureButtons(*picItemHost, *cmdMenuSelect, *cmdMenuDelete);
    BindPictureButtons(*picPreviewHost, *cmdPreviewSelect, *cmdPreviewDelete);
    // The captions of these buttons occur twice in the dialog, so they cannot mark the access keys.
    SetAccessKeys({cmdMenuSelect, cmdMenuDelete, cmdPreviewSelect, cmdPreviewDelete},
                  Message::PartPictureKeys);
}

void FormEditPart::ShowHelpAndHistory() {
    txtHelpFile->SetValue(ToWx(m_fields.helpFile));
    txtHelpTopic->SetValue(ToWx(std::to_string(m_fields.helpTopic)));
    txtHistoryDir->SetValue(ToWx(m_fields.historyDir));
    txtHistoryTitle->SetValue(ToWx(m_fields.historyTitle));
}

bool FormEditPart::Edit(const std::string& caption, PartFields& fields) {
    m_caption = caption;
    m_fields = m_before = fields;
    ShowHelpAndHistory();
    SetTitle(ToWx(modStringRes::FormatResString(Message::PartTitle, caption)));
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
    // Any text is accepted except one that the menu file cannot store, which the user must correct while the
    // dialog is still open.
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
    ShowLine(*lblDescription, PartReference::Description(text));
    ShowLine(*lblProblem, PartReference::Problem(text));
    txtPartName->SetToolTip(ToWx(text));
    cmdSlideShow->Enable(PartReference::RefersToPart(text));
}

void FormEditPart::SelectPart() {
    FormSelectPart dialog(this);
    dialog.SetCurrent(PartReference::IniPath(FromWx(txtPartName->GetValue())));
    const std::string path = dialog.SelectPart();
    if (!path.empty()) txtPartName->SetValue(ToWx(PartReference::Make(path)));
}

void FormEditPart::EditPartInformation() {
    const std::string path = PartReference::IniPath(Program());
    const std::optional<std::string> folder = PartReference::PartFolder(path);
    if (!folder) return;
    const platform::PartInfoResult result = platform::EditPartInfo(*folder, path, modStringRes::LanguageID());
    // The name of the part may have changed.
    RefreshDescription();
    if (result == platform::PartInfoResult::Done) return;
    const int message =
        result == platform::PartInfoResult::Missing ? Message::PartEditorMissing : Message::PartEditorFailed;
    modMessageBox::ShowMessage(modStringRes::FormatResString(message, platform::PartInfoEditorName()),
                               modMessageBox::Option::Exclamation);
}

void FormEditPart::ChooseFromLibrary() {
    std::string path = picItemHost->Path();
    if (FormSelectMenuPicture(this).Display(path)) picItemHost->SetPath(path);
}

} // namespace nesk
