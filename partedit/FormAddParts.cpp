#include "partedit/FormAddParts.h"

#include "base/AddPartsMessages.h"
#include "base/Messages.h"
#include "editing/MenuEditor.h"
#include "menu/MenuEntry.h"
#include "partedit/FormBrowse.h"
#include "partedit/HistoryChoice.h"
#include "partedit/RepositoryRoot.h"
#include "platform/AccessibleName.h"
#include "platform/OpenFileDialog.h"
#include "settings/NeskRegistry.h"
#include "settings/WindowMemory.h"
#include "shell/FieldMessage.h"
#include "shell/modHelp.h"
#include "shell/modStringRes.h"
#include "shell/modUtilities.h"
#include "widgets/UiRowList.h"
#include "widgets/UiUtilities.h"

#include <algorithm>
#include <cctype>
#include <new>
#include <utility>

#include <wx/button.h>
#include <wx/checkbox.h>
#include <wx/choice.h>
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

// Frequent enough to look continuous.
// A longer hint is wrapped.
constexpr int HintWidth = 700;

constexpr int ProgressMilliseconds = 50;

constexpr const char* PartName = "%part%";

bool IsReturn(const wxKeyEvent& event) {
    return event.GetKeyCode() == WXK_RETURN || event.GetKeyCode() == WXK_NUMPAD_ENTER;
}

// The key code of the letter after the "&" of a label. 0 for a label without "&".
int AccessKey(const wxStaticText& label) {
    const std::string text = FromWx(label.GetLabel());
    const std::size_t at = text.find('&') + 1;
    return at > 0 && at < text.size() ? std::toupper(static_cast<unsigned char>(text[at])) : 0;
}

wxStaticText* NewLine(wxWindow* parent, const char* name) {
    return new wxStaticText(parent, wxID_ANY, "", wxDefaultPosition, wxDefaultSize,
                            wxST_NO_AUTORESIZE | wxST_ELLIPSIZE_END, name);
}

} // namespace

FormAddParts::FormAddParts(wxWindow* parent, MenuEditor& editor, WindowMemory& memory)
    : FormDialog(parent, "FormAddParts", Message::AddPartsTitle, modHelp::Topic::MainWindow)
    , m_editor(editor)
    , m_memory(memory) {
    auto* content = new wxBoxSizer(wxVERTICAL);
    BuildFolder(*content);
    BuildOptions(*content);
    BuildList(*content);
    Finish(content);
    cmdOK->SetLabel(ResText(Message::AddPartsOK));
    BindOptions();
    ShowOptions(PartImportOptions::In(memory));
    m_searchTimer.Bind(wxEVT_TIMER, [this](wxTimerEvent&) { OnSearchTimer(); });
    Bind(wxEVT_IDLE, &FormAddParts::OnIdle, this);
    // GTK cannot give the focus to this list when the access key of its label is pressed.
    Bind(wxEVT_CHAR_HOOK, [this, key = AccessKey(*lblParts)](wxKeyEvent& event) {
        if (event.GetModifiers() == wxMOD_ALT && event.GetKeyCode() == key)
            lstParts->SetFocus();
        else
            event.Skip();
    });
    UpdateCount();
}

// The list reports events of its rows while it is being destroyed. The handlers must not run then.
FormAddParts::~FormAddParts() {
    lstParts->SetEvtHandlerEnabled(false);
}

// --- construction ---

void FormAddParts::BuildFolder(wxSizer& content) {
    lblFolder = NewLabel(this, "lblFolder", Message::AddPartsFolder);
    txtFolder = NewTextBox(this, "txtFolder");
    cmdBrowse = NewButton(this, "cmdBrowse", Message::AddPartsBrowse);
    cmdRead = NewButton(this, "cmdRead", Message::AddPartsRead);
    lblStatus = NewLine(this, "lblStatus");
    auto* folder = new wxBoxSizer(wxHORIZONTAL);
    folder->Add(lblFolder, wxSizerFlags().CenterVertical());
    folder->Add(txtFolder, wxSizerFlags(1).CenterVertical().Border(wxLEFT, Gap()));
    folder->Add(cmdBrowse, wxSizerFlags().CenterVertical().Border(wxLEFT, Gap()));
    folder->Add(cmdRead, wxSizerFlags().CenterVertical().Border(wxLEFT, Gap()));
    content.Add(folder, wxSizerFlags().Expand());
    content.Add(lblStatus, wxSizerFlags().Expand().Border(wxTOP, Gap() / 2));

    txtFolder->Bind(wxEVT_TEXT, [this](wxCommandEvent&) { OnFolderText(); });
    txtFolder->Bind(wxEVT_CHAR_HOOK, [this](wxKeyEvent& event) {
        if (!IsReturn(event) || event.HasAnyModifiers() || IsFolderRead())
            event.Skip();
        else
            StartSearch();
    });
    cmdBrowse->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { OnBrowse(); });
    cmdRead->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) {
        if (IsSearching())
            m_search->Stop();
        else
            StartSearch();
    });
}

wxChoice* FormAddParts::NewChoice(const char* name, std::initializer_list<int> textIds) {
    auto* choice = new wxChoice(this, wxID_ANY, wxDefaultPosition, wxDefaultSize, 0, nullptr, 0,
                                wxDefaultValidator, name);
    for (const int textId : textIds)
        choice->Append(ResText(textId));
    return choice;
}

void FormAddParts::BuildOptions(wxSizer& content) {
    // Rows of their own, because columns of the longest words of both would be too wide for a small screen.
    auto* options = new wxBoxSizer(wxVERTICAL);
    wxBoxSizer* row = nullptr;
    const auto newRow = [&] {
        const int above = options->IsEmpty() ? 0 : Gap();
        row = new wxBoxSizer(wxHORIZONTAL);
        options->Add(row, wxSizerFlags().Expand().Border(wxTOP, above));
    };
    const auto add = [&](wxStaticText* label, wxWindow* box, wxButton* button = nullptr) {
        row->Add(label, wxSizerFlags().CenterVertical().Border(wxLEFT, row->IsEmpty() ? 0 : 2 * Gap()));
        row->Add(box, wxSizerFlags(1).CenterVertical().Border(wxLEFT, Gap()));
        if (button != nullptr) row->Add(button, wxSizerFlags().CenterVertical().Border(wxLEFT, Gap()));
    };
    const auto newBox = [this](const char* name) {
        wxTextCtrl* box = NewTextBox(this, name);
        box->SetMinSize(FromDIP(wxSize(90, -1)));
        return box;
    };
    newRow();
    lblCaptions = NewLabel(this, "lblCaptions", Message::AddPartsCaptions);
    choCaptions = NewChoice("choCaptions", {Message::AddPartsCaptionPart, Message::AddPartsCaptionFolder});
    add(lblCaptions, choCaptions);
    lblLetters = NewLabel(this, "lblLetters", Message::AddPartsLetters);
    choLetters = NewChoice("choLetters", {Message::AddPartsLettersUnchanged, Message::AddPartsLettersUpper,
                                          Message::AddPartsLettersLower}); // in the order of LetterCase
    add(lblLetters, choLetters);
    newRow();
    lblPictures = NewLabel(this, "lblPictures", Message::AddPartsPictures);
    txtPictures = newBox("txtPictures");
    txtPictures->SetHint(ResText(Message::AddPartsPicturesHint));
    add(lblPictures, txtPictures);
    lblPicture = NewLabel(this, "lblPicture", Message::AddPartsDefaultPicture);
    txtPicture = newBox("txtPicture");
    txtPicture->SetHint(ResText(Message::AddPartsDefaultHint));
    cmdPicture = NewButton(this, "cmdPicture", Message::AddPartsChoosePicture);
    add(lblPicture, txtPicture, cmdPicture);
    lblHistory = NewLabel(this, "lblHistory", Message::AddPartsHistory);
    txtHistory = newBox("txtHistory");
    txtHistory->SetHint(ResText(Message::PartDefaultHistory));
    cmdHistory = NewButton(this, "cmdHistory", Message::AddPartsBrowseHistory);
    lblHistoryHint = NewLabel(this, "lblHistoryHint", Message::AddPartsHistoryHint);
    lblHistoryHint->Wrap(FromDIP(HintWidth));
    chkSubmenus = new wxCheckBox(this, wxID_ANY, ResText(Message::AddPartsSubmenus), wxDefaultPosition,
                                 wxDefaultSize, 0, wxDefaultValidator, "chkSubmenus");

    auto* history = new wxBoxSizer(wxHORIZONTAL);
    history->Add(lblHistory, wxSizerFlags().CenterVertical());
    history->Add(txtHistory, wxSizerFlags(1).CenterVertical().Border(wxLEFT, Gap()));
    history->Add(cmdHistory, wxSizerFlags().CenterVertical().Border(wxLEFT, Gap()));
    content.Add(options, wxSizerFlags().Expand().Border(wxTOP, Gap()));
    content.Add(history, wxSizerFlags().Expand().Border(wxTOP, Gap()));
    content.Add(lblHistoryHint, wxSizerFlags().Border(wxTOP, Gap() / 2));
    content.Add(chkSubmenus, wxSizerFlags().Border(wxTOP, Gap()));
}

void FormAddParts::BindOptions() {
    const auto changed = [this](wxCommandEvent&) { m_optionsChanged = true; };
    for (wxChoice* choice : {choCaptions, choLetters})
        choice->Bind(wxEVT_CHOICE, changed);
    for (wxTextCtrl* box : {txtPictures, txtPicture, txtHistory})
        box->Bind(wxEVT_TEXT, changed);
    chkSubmenus->Bind(wxEVT_CHECKBOX, changed);
    cmdPicture->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { OnChoosePicture(); });
    cmdHistory->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { OnBrowseHistory(); });
}

void FormAddParts::BuildList(wxSizer& content) {
    lblParts = NewLabel(this, "lblParts", Message::AddPartsList);
    lstParts = new UiRowList(this, "lstParts", FromDIP(wxSize(800, 210)), {true, true});
    const auto rowOf = [this](long line) -> const PartImportRow& {
        return m_plan->Rows()[m_list.RowOf(static_cast<std::size_t>(line))];
    };
    lstParts->text = [this](long line, int column) {
        return m_list.Text(static_cast<std::size_t>(line), column);
    };
    lstParts->isTicked = [rowOf](long line) { return rowOf(line).isTicked; };
    lstParts->tick = [this](long line, bool isTicked) {
        m_plan->Tick(m_list.RowOf(static_cast<std::size_t>(line)), isTicked);
        UpdateCount();
    };
    // In the order of PartImportList::Column.
    lstParts->AddColumn(Message::AddPartsColumnFolder, FromDIP(250));
    lstParts->AddColumn(Message::AddPartsColumnCaption, FromDIP(165));
    lstParts->AddColumn(Message::AddPartsColumnPicture, FromDIP(95));
    lstParts->AddColumn(Message::AddPartsColumnExisting, FromDIP(150));
    lstParts->AddColumn(Message::AddPartsColumnNote, FromDIP(130));
    lstParts->Bind(wxEVT_CHAR_HOOK, &FormAddParts::OnListKey, this);
    lstParts->Bind(wxEVT_CHAR, &FormAddParts::OnListChar, this);
    lstParts->Bind(wxEVT_LIST_ITEM_ACTIVATED, [this](wxListEvent& event) {
        const auto line = static_cast<std::size_t>(event.GetIndex());
        if (m_list.Toggle(line)) ShowLines(line);
    });
    for (const auto& type : {wxEVT_LIST_ITEM_FOCUSED, wxEVT_LIST_ITEM_SELECTED})
        lstParts->Bind(type, [this](wxListEvent& event) {
            event.Skip();
            ShowNote();
        });
    cmdAll = NewButton(this, "cmdAll", Message::AddPartsAll);
    cmdNone = NewButton(this, "cmdNone", Message::AddPartsNone);
    lblNote = NewLine(this, "lblNote");
    lblCount = NewLine(this, "lblCount");
    cmdAll->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { TickAll(true); });
    cmdNone->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { TickAll(false); });
    auto* row = new wxBoxSizer(wxHORIZONTAL);
    row->Add(cmdAll);
    row->Add(cmdNone, wxSizerFlags().Border(wxLEFT, Gap()));
    row->Add(lblNote, wxSizerFlags(1).CenterVertical().Border(wxLEFT, Gap()));
    content.Add(lblParts, wxSizerFlags().Border(wxTOP, Gap()));
    content.Add(lstParts, wxSizerFlags(1).Expand().Border(wxTOP, Gap() / 2));
    content.Add(row, wxSizerFlags().Expand().Border(wxTOP, Gap()));
    content.Add(lblCount, wxSizerFlags().Expand().Border(wxTOP, Gap()));
}

// --- showing and confirming ---

EntryIds FormAddParts::Invoke(const std::string& target, const std::string& folder) {
    const MenuEntry* entry = m_editor.Find(target);
    if (entry == nullptr) return {};
    m_target = target;
    m_added.clear();
    SetTitle(ToWx(
        FormatResString(Message::AddPartsTo, modUtilities::Shortened(std::string(entry->Caption()), 60))));
    txtFolder->ChangeValue(ToWx(folder.empty() ? RepositoryRoot() : folder));
    StartSearch();
    FocusListOrFolder();
    ShowModal();
    m_searchTimer.Stop();
    m_search.reset();
    return std::exchange(m_added, {});
}

void FormAddParts::OnOK() {
    PlanAgain();
    if (!cmdOK->IsEnabled()) return;
    const PartImportOptions& options = m_plan->Options();
    const std::string picture = modUtilities::Trim(options.defaultPicture);
    if (!picture.empty() && !modUtilities::FileExists(picture)) {
        txtPicture->SetFocus();
        return ShowReason(FormatResString(Message::AddPartsNoPicture, picture));
    }
    if (!options.historyDir.empty() && !modUtilities::DirectoryExists(options.CommonHistoryDir())) {
        txtHistory->SetFocus();
        return ShowReason(FormatResString(Message::AddPartsNoHistoryDir, options.CommonHistoryDir()));
    }
    try {
        const wxBusyCursor busy;
        m_added = m_plan->Apply(m_editor);
    } catch (const std::bad_alloc&) {
        throw NeskError(RuntimeError::OutOfMemory, "FormAddParts.OnOK", Message::NoMemoryToEdit);
    }
    options.PutInto(m_memory);
    Accept();
}

// --- reading a folder ---

bool FormAddParts::IsFolderRead() const {
    return PartSearchFolder(FromWx(txtFolder->GetValue())) == m_readFolder && !m_readFolder.empty();
}

void FormAddParts::StartSearch() {
    m_readFolder = PartSearchFolder(FromWx(txtFolder->GetValue()));
    ShowReason("");
    lstParts->SetRowCount(0); // no row may be drawn without a plan
    m_list.Show(nullptr);
    m_plan.reset();
    m_search.reset();
    if (m_readFolder.empty()) {
        ShowStatus(LoadResString(Message::AddPartsEnterFolder));
    } else {
        m_search.emplace(m_readFolder);
        m_searchTimer.Start(ProgressMilliseconds);
        cmdRead->SetLabel(ResText(Message::AddPartsStop));
        OnSearchTimer();
    }
    UpdateCount();
}

// A small folder may be read already. The list has no rows before that, but it is where the user goes on.
void FormAddParts::FocusListOrFolder() {
    if (IsSearching() || m_list.Count() > 0)
        lstParts->SetFocus();
    else
        txtFolder->SetFocus();
}

void FormAddParts::OnSearchTimer() {
    if (!IsSearching()) return;
    if (std::optional<FoundParts> found = m_search->Take()) return ShowFound(*std::move(found));
    const PartSearchProgress progress = m_search->Progress();
    ShowStatus(FormatResString(Message::AddPartsReading, progress.foldersRead, progress.parts));
}

void FormAddParts::ShowFound(FoundParts found) {
    const PartSearchProgress progress = m_search->Progress();
    m_searchTimer.Stop();
    m_search.reset();
    cmdRead->SetLabel(ResText(Message::AddPartsRead));
    m_plan.emplace(*m_editor.OpenMenu(), m_target, found.found, Options());
    m_optionsChanged = false;
    m_list.Show(&*m_plan);
    ShowLines(0);
    if (!found.folderExists)
        ShowStatus(FormatResString(Message::AddPartsNoFolder, m_readFolder));
    else if (!found.isComplete)
        ShowStatus(FormatResString(Message::AddPartsStopped, progress.foldersRead, progress.parts));
    else if (found.found.empty())
        ShowStatus(FormatResString(Message::AddPartsEmpty, m_readFolder));
    else
        ShowStatus(FormatResString(Message::AddPartsFound, progress.foldersRead, progress.parts));
    if (!found.unreadable.empty())
        ShowReason(FormatResString(Message::AddPartsUnreadable, found.unreadable.size(),
                                   modUtilities::MessageText(found.unreadable.front())));
    OnFolderText(); // the user may have typed meanwhile
    // There is nothing to do in the list then.
    if (m_list.Count() == 0 && lstParts->HasFocus()) txtFolder->SetFocus();
}

void FormAddParts::ShowStatus(const std::string& text) {
    if (FromWx(lblStatus->GetLabelText()) != text) lblStatus->SetLabelText(ToWx(text));
}

void FormAddParts::OnFolderText() {
    if (!IsSearching() && !IsFolderRead()) ShowStatus(LoadResString(Message::AddPartsOtherFolder));
    UpdateCount();
}

void FormAddParts::OnBrowse() {
    const std::string chosen =
        FormBrowse(this).Invoke(LoadResString(Message::AddPartsPrompt), FromWx(txtFolder->GetValue()));
    if (chosen.empty()) return;
    txtFolder->ChangeValue(ToWx(chosen));
    StartSearch();
    FocusListOrFolder();
}

// --- options ---

void FormAddParts::ShowOptions(const PartImportOptions& options) {
    choCaptions->SetSelection(options.caption == PartImportOptions::Caption::Folder ? 1 : 0);
    choLetters->SetSelection(static_cast<int>(options.letters));
    chkSubmenus->SetValue(options.submenus);
    txtPictures->ChangeValue(ToWx(options.pictures));
    txtPicture->ChangeValue(ToWx(options.defaultPicture));
    txtHistory->ChangeValue(ToWx(options.historyDir));
}

PartImportOptions FormAddParts::Options() const {
    PartImportOptions options;
    if (choCaptions->GetSelection() == 1) options.caption = PartImportOptions::Caption::Folder;
    options.letters = static_cast<platform::LetterCase>(choLetters->GetSelection());
    options.submenus = chkSubmenus->GetValue();
    options.pictures = modUtilities::Trim(FromWx(txtPictures->GetValue()));
    options.defaultPicture = modUtilities::Trim(FromWx(txtPicture->GetValue()));
    options.historyDir = modUtilities::Trim(FromWx(txtHistory->GetValue()));
    return options;
}

// A large plan takes a moment, so it is not made for each letter of a quickly typed text.
void FormAddParts::OnIdle(wxIdleEvent& event) {
    event.Skip();
    PlanAgain();
}

void FormAddParts::PlanAgain() {
    if (!m_optionsChanged || !m_plan) return;
    m_optionsChanged = false;
    m_plan->SetOptions(Options());
    UpdateCount();
}

void FormAddParts::OnChoosePicture() {
    const std::string before = FromWx(txtPicture->GetValue());
    const std::string folder =
        modUtilities::ExistingFolderOf(before, NeskRegistry::Instance().DefaultBitmapDirectory);
    // No file filter, because pictures are recognised by their content and not by their name.
    const std::string chosen = platform::ShowOpenFileDialog(
        this, {LoadResString(Message::PictureChoosePictureTitle), folder, before, ""});
    if (!chosen.empty()) txtPicture->SetValue(ToWx(chosen));
}

// The chosen folder is the one for all parts.
void FormAddParts::OnBrowseHistory() {
    const std::string start = HistoryChoice::BrowseFolder(Options().CommonHistoryDir());
    const std::string chosen = FormBrowse(this).Invoke(LoadResString(Message::HistoryBrowsePrompt), start);
    if (!chosen.empty()) txtHistory->SetValue(ToWx(chosen + PartName));
}

// --- list ---

long FormAddParts::CurrentLine() const {
    return lstParts->GetFocusedItem();
}

// Shows the lines after some of them came or went.
void FormAddParts::ShowLines(std::size_t line) {
    lstParts->SetRowCount(m_list.Count());
    if (line < m_list.Count()) lstParts->SelectRow(static_cast<long>(line));
    UpdateCount();
}

// Without a mouse: the space bar ticks, the arrow keys close and open folders, Enter confirms.
void FormAddParts::OnListKey(wxKeyEvent& event) {
    const int key = event.GetKeyCode();
    const long at = CurrentLine();
    if (event.HasAnyModifiers() || at < 0 || at >= static_cast<long>(m_list.Count())) return event.Skip();
    const auto line = static_cast<std::size_t>(at);
    if (IsReturn(event)) {
        wxCommandEvent click(wxEVT_BUTTON, cmdOK->GetId());
        click.SetEventObject(cmdOK);
        if (cmdOK->IsEnabled()) cmdOK->ProcessWindowEvent(click);
    } else if (key == WXK_SPACE && !m_list.IsTyping(platform::TypeAhead::Clock::now())) {
        TickSelected();
    } else if (key == WXK_LEFT) {
        ShowLines(m_list.Left(line));
    } else if (key == WXK_RIGHT) {
        ShowLines(m_list.Right(line));
    } else {
        event.Skip();
    }
}

void FormAddParts::OnListChar(wxKeyEvent& event) {
    const wxChar typed = event.GetUnicodeKey();
    const long at = CurrentLine();
    if (typed < WXK_SPACE || typed == WXK_DELETE || event.HasAnyModifiers() || m_list.Count() == 0)
        return event.Skip();
    const std::size_t line = at < 0 ? 0 : static_cast<std::size_t>(at);
    const std::size_t found = m_list.Type(FromWx(wxString(typed)), line, platform::TypeAhead::Clock::now());
    lstParts->SelectRow(static_cast<long>(found));
}

// When some of the selected lines are not ticked, all of them are ticked.
void FormAddParts::TickSelected() {
    std::vector<std::size_t> rows;
    for (const long line : lstParts->SelectedRows())
        if (const std::size_t row = m_list.RowOf(static_cast<std::size_t>(line));
            m_plan->Rows()[row].CanTick())
            rows.push_back(row);
    const bool areTicked = std::all_of(rows.begin(), rows.end(),
                                       [this](std::size_t row) { return m_plan->Rows()[row].isTicked; });
    m_plan->Tick(rows, !areTicked);
    UpdateCount();
}

void FormAddParts::TickAll(bool isTicked) {
    if (!m_plan) return;
    m_plan->TickAll(isTicked);
    UpdateCount();
}

// Shows the present plan in the lines that are there, what it amounts to, and what is possible.
void FormAddParts::UpdateCount() {
    lstParts->Refresh(); // a tick also changes the lines of the folders
    const bool hasLines = m_list.Count() > 0;
    lblCount->SetLabelText(ToWx(hasLines ? PartImportCountText(*m_plan) : std::string()));
    cmdOK->Enable(hasLines && m_plan->Count().parts > 0 && !IsSearching() && IsFolderRead());
    cmdAll->Enable(hasLines);
    cmdNone->Enable(hasLines);
    ShowNote();
}

// The column is narrower than most notes.
void FormAddParts::ShowNote() {
    const long line = CurrentLine();
    const bool isLine = line >= 0 && line < static_cast<long>(m_list.Count());
    const wxString note =
        isLine ? ToWx(m_list.Text(static_cast<std::size_t>(line), PartImportList::NoteColumn)) : wxString();
    if (lblNote->GetLabelText() == note) return;
    lblNote->SetLabelText(note);
    lblNote->SetToolTip(note);
}

} // namespace nesk
