#include "shell/FormUnsaved.h"

#include "base/UnsavedMessages.h"
#include "widgets/UiUtilities.h"
#include "widgets/WrappedText.h"

#include <cstdint>
#include <string_view>
#include <utility>

#include <wx/button.h>
#include <wx/sizer.h>
#include <wx/stattext.h>

namespace nesk {

using modUtilities::ResText;
using modUtilities::ToWx;

namespace {

constexpr std::int32_t HelpTopic = 33013;

constexpr int MaxTextWidth = 460;

} // namespace

FormUnsaved::FormUnsaved(wxWindow* parent, const std::string& question, const std::string& notes)
    : FormDialog(parent, "FormUnsaved", Message::UnsavedTitle, HelpTopic) {
    lblQuestion = NewText("lblQuestion", question);
    lblNotes = NewText("lblNotes", notes);
    lblNotes->Show(!notes.empty());
    cmdLook = NewButton(this, "cmdLook", Message::UnsavedLook);
    cmdDiscard = NewButton(this, "cmdDiscard", Message::UnsavedDiscard);
    auto* buttons = new wxBoxSizer(wxHORIZONTAL);
    buttons->Add(cmdLook);
    buttons->Add(cmdDiscard, wxSizerFlags().Border(wxLEFT, Gap()));
    auto* content = new wxBoxSizer(wxVERTICAL);
    content->Add(lblQuestion, wxSizerFlags().Expand());
    content->Add(lblNotes, wxSizerFlags().Expand().Border(wxTOP, Gap()));
    content->Add(buttons, wxSizerFlags().Border(wxTOP, 2 * Gap()));
    Finish(content);
    cmdOK->SetLabel(ResText(Message::UnsavedRestore));
    cmdCancel->SetLabel(ResText(Message::UnsavedLater));
    FitToContent();
    cmdLook->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { m_look(); });
    cmdDiscard->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { EndModal(wxID_DELETE); });
}

wxStaticText* FormUnsaved::NewText(const char* name, const std::string& text) {
    auto* label = new wxStaticText(this, wxID_ANY, "", wxDefaultPosition, wxDefaultSize, 0, name);
    label->SetLabelText(ToWx(WrappedText(text, FromDIP(MaxTextWidth), [label](std::string_view piece) {
        return label->GetTextExtent(ToWx(piece)).x;
    })));
    return label;
}

FormUnsaved::Answer FormUnsaved::Invoke(std::function<void()> look) {
    m_look = std::move(look);
    cmdOK->SetFocus();
    switch (ShowModal()) {
    case wxID_OK: return Answer::Restore;
    case wxID_DELETE: return Answer::Discard;
    default: return Answer::Later;
    }
}

} // namespace nesk
