#include "shell/FormToolBar.h"

#include "base/Messages.h"
#include "platform/AccessibleName.h"
#include "shell/FieldMessage.h"
#include "shell/UiCommandIcons.h"
#include "shell/modStringRes.h"
#include "widgets/UiUtilities.h"

#include <wx/frame.h>
#include <wx/menuitem.h>
#include <wx/srchctrl.h>

namespace nesk {

namespace {

// "Undo (Ctrl+Z)" for a menu caption "&Undo\tCtrl+Z".
wxString ToolTip(const wxString& name, const wxString& caption) {
    const wxString key = caption.AfterFirst('\t');
    return key.empty() ? name : name + " (" + key + ")";
}

} // namespace

FormToolBar::FormToolBar(wxFrame* parent, const char* controlName)
    : wxToolBar(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxTB_HORIZONTAL | wxTB_FLAT,
                controlName) {
    int menu = 0;
    bool separate = false;
    for (const MainCommandInfo& info : MainCommandTable()) {
        separate = separate || info.separatorBefore || info.menu != menu;
        menu = info.menu;
        if (!info.places.inToolBar) continue;
        if (separate && GetToolsCount() > 0) AddSeparator();
        separate = false;
        const std::string text = modStringRes::LoadResString(info.text);
        const wxString caption = modUtilities::ToWx(text);
        wxString label = modUtilities::ToWx(FieldMessage::PlainLabel(text.substr(0, text.find('\t'))));
        if (label.EndsWith("...")) label.RemoveLast(3);
        AddTool(CommandId(info.command), label, CommandIcon(info.places.icon), ToolTip(label, caption));
    }
    AddStretchableSpace();
    const wxString name = modUtilities::ResText(Message::FindBarText);
    txtFind = new wxSearchCtrl(this, wxID_ANY, "", wxDefaultPosition, FromDIP(wxSize(140, -1)), 0,
                               wxDefaultValidator, "txtFind");
    txtFind->ShowSearchButton(true);
    txtFind->SetDescriptiveText(name);
    platform::SetAccessibleName(*txtFind, modUtilities::FromWx(name));
    AddControl(txtFind, name);
    Realize();
}

bool FormToolBar::ShowsFindBox() const {
    return IsShown() && GetBestSize().x <= GetParent()->GetClientSize().x;
}

void FormToolBar::EnableCommand(MainCommand command, bool enable) {
    if (InfoOf(command).places.inToolBar) EnableTool(CommandId(command), enable);
}

} // namespace nesk
