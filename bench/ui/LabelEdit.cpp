#include "bench/ui/LabelEdit.h"

#include "bench/ui/Windows.h"
#include "menu/MenuItem.h"
#include "shell/FormMain.h"
#include "shell/FormMenuTree.h"

#include <algorithm>

#include <wx/menuitem.h>

namespace nesk::bench {

namespace {

void Select(FormMain& window, const std::string& id) {
    window.tvMain->SelectKey(id);
    Settle();
}

platform::TreeView& BeginEdit(FormMain& window) {
    window.ProcessCommand(window.mnuMenuRename->GetId());
    Settle();
    platform::TreeView& tree = window.tvMain->View();
    Demand(tree.Edited() != nullptr, "no label is being edited");
    return tree;
}

void Confirm(platform::TreeView& tree) {
    tree.EndLabelEdit(true);
    Settle();
}

void DemandCaption(FormMain& window, const std::string& id, const std::string& caption) {
    Demand(window.tvMain->View().Edited() == nullptr && window.Editor().Find(id)->Caption() == caption,
           "the entry has not got what was typed");
}

} // namespace

double TypeCaption(FormMain& window, const std::string& id, const std::string& caption) {
    Select(window, id);
    platform::TreeView& tree = BeginEdit(window);
    tree.SetEditText("");
    Settle();
    double slowest = 0;
    for (const char character : caption)
        slowest =
            std::max(slowest, MillisecondsSettled([&] { tree.SetEditText(tree.EditText() + character); }));
    Confirm(tree);
    DemandCaption(window, id, caption);
    return slowest;
}

double RenameInPlace(FormMain& window, const std::string& id, const std::string& caption) {
    Select(window, id);
    const double seconds = Seconds([&] {
        platform::TreeView& tree = BeginEdit(window);
        tree.SetEditText(caption);
        Confirm(tree);
    });
    DemandCaption(window, id, caption);
    return 1000 * seconds;
}

} // namespace nesk::bench
