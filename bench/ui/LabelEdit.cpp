#include "bench/ui/LabelEdit.h"

#include "bench/ui/Windows.h"
#include "menu/MenuItem.h"
#include "shell/FormMain.h"
#include "shell/FormMenuTree.h"

#include <algorithm>

#include <wx/menuitem.h>
#include <wx/textctrl.h>

namespace nesk::bench {

namespace {

void Select(FormMain& window, const std::string& id) {
    window.tvMain->SelectKey(id);
    Settle();
}

wxTextCtrl& BeginEdit(FormMain& window) {
    window.ProcessCommand(window.mnuMenuRename->GetId());
    Settle();
    wxTextCtrl* box = window.tvMain->GetEditControl();
    Demand(box != nullptr, "no label is being edited");
    return *box;
}

void PressEnter(wxTextCtrl& box) {
    wxKeyEvent enter(wxEVT_CHAR);
    enter.SetEventObject(&box);
    enter.m_keyCode = WXK_RETURN;
    box.HandleWindowEvent(enter);
    Settle();
}

void DemandCaption(FormMain& window, const std::string& id, const std::string& caption) {
    Demand(window.tvMain->GetEditControl() == nullptr && window.Editor().Find(id)->Caption() == caption,
           "the entry has not got what was typed");
}

} // namespace

double TypeCaption(FormMain& window, const std::string& id, const std::string& caption) {
    Select(window, id);
    wxTextCtrl& box = BeginEdit(window);
    box.SetValue("");
    Settle();
    double slowest = 0;
    for (const char character : caption)
        slowest = std::max(slowest, MillisecondsSettled([&] { box.WriteText(wxString(character, 1)); }));
    PressEnter(box);
    DemandCaption(window, id, caption);
    return slowest;
}

double RenameInPlace(FormMain& window, const std::string& id, const std::string& caption) {
    Select(window, id);
    const double seconds = Seconds([&] {
        wxTextCtrl& box = BeginEdit(window);
        box.SetValue(wxString::FromUTF8(caption));
        PressEnter(box);
    });
    DemandCaption(window, id, caption);
    return 1000 * seconds;
}

} // namespace nesk::bench
