#include "shell/FormToolBar.h"

#include "shell/UiCommandIcons.h"
#include "widgets/UiUtilities.h"

#include <wx/frame.h>
#include <wx/menuitem.h>

namespace nesk {

namespace {

// "Undo (Ctrl+Z)" for a menu caption "&Undo\tCtrl+Z".
wxString ToolTip(const wxString& name, const wxString& caption) {
    const wxString key = caption.AfterFirst('\t');
    return key.empty() ? name : name + " (" + key + ")";
}

} // namespace

FormToolBar::FormToolBar(wxFrame* parent, const char* name)
    : wxToolBar(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxTB_HORIZONTAL | wxTB_FLAT, name) {
    int menu = 0;
    bool separate = false;
    for (const MainCommandInfo& info : MainCommandTable()) {
        separate = separate || info.separatorBefore || info.menu != menu;
        menu = info.menu;
        if (!info.places.inToolBar) continue;
        if (separate && GetToolsCount() > 0) AddSeparator();
        separate = false;
        const wxString caption = modUtilities::ResText(info.text);
        wxString label = wxMenuItem::GetLabelText(caption);
        if (label.EndsWith("...")) label.RemoveLast(3);
        AddTool(CommandId(info.command), label, CommandIcon(info.places.icon), ToolTip(label, caption));
    }
    AddStretchableSpace();
    Realize();
}

void FormToolBar::EnableCommand(MainCommand command, bool enable) {
    if (InfoOf(command).places.inToolBar) EnableTool(CommandId(command), enable);
}

} // namespace nesk
