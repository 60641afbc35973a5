#include "bench/ui/SiblingsBench.h"

#include "bench/Measure.h"
#include "bench/Table.h"
#include "bench/ui/LabelEdit.h"
#include "bench/ui/Windows.h"
#include "menu/MenuItem.h"
#include "settings/NeskRegistry.h"
#include "shell/FormMain.h"
#include "shell/FormMenuTree.h"
#include "unit/platform/TempStation.h"

#include <string>
#include <vector>

#include <wx/menuitem.h>

namespace nesk::bench {

namespace {

constexpr int Rounds = 5;

// Leaves room below the maximum for one new entry per round.
constexpr int Siblings = 32760;

std::string FileOfOneSubmenu() {
    std::string file = "BLOCK MENU\r\n\tBLOCK SUBMENU\r\n\t\tCAPTION=Many\r\n\t\tMENUTYPE=Menu\r\n";
    for (int i = 1; i <= Siblings; ++i)
        file += "\t\tBLOCK SUBMENU\r\n\t\t\tCAPTION=Housing " + std::to_string(i) +
                "\r\n\t\t\tMENUTYPE=Part Program\r\n\t\tEND\r\n";
    return file + "\tEND\r\nEND\r\n";
}

} // namespace

void MeasureWindowSiblings(Table& table) {
    TempStation station;
    station.Write("C:\\Neskroot\\menu.cfg", FileOfOneSubmenu());
    NeskRegistry::Instance().NeskRoot = "C:\\Neskroot";
    auto* window = new FormMain;
    window->SetSize(800, 600);
    window->Show();
    window->ProcessCommand(window->mnuFileOpen->GetId());
    FormMenuTree& tree = *window->tvMain;
    tree.View().Expand(*tree.NodeOf("R.1"));
    Settle();
    Demand(window->Editor().Find("R.1")->ChildCount() == Siblings, "the menu is not open");

    std::vector<double> select, move, add, remove, type, rename;
    for (int round = 0; round < Rounds; ++round) {
        // Near the end, where a linear search takes longest.
        const auto entry = [&](int block) { return "R.1." + std::to_string(32000 + 100 * block + round); };
        select.push_back(MillisecondsSettled([&] { tree.SelectKey(entry(0)); }));
        Demand(tree.SelectedKey() == entry(0), "the entry is not selected");
        move.push_back(MillisecondsSettled([&] { window->ProcessCommand(window->mnuMenuUp->GetId()); }));
        Demand(tree.SelectedKey() == entry(0), "the entry that moved is not selected");
        add.push_back(MillisecondsSettled([&] { window->Editor().AddPart("R.1", "New"); }));
        remove.push_back(MillisecondsSettled([&] { window->Editor().Remove(entry(1)); }));
        Demand(window->Editor().Find("R.1")->ChildCount() == Siblings, "one was added and one removed");
        type.push_back(TypeCaption(*window, entry(2), "Typed by hand"));
        rename.push_back(RenameInPlace(*window, entry(2), "Renamed"));
    }
    window->Editor().Close();
    window->Destroy();
    Settle();

    table.Heading("The window with 32,760 expanded siblings, medians of " + std::to_string(Rounds) +
                  " rounds");
    table.AtMost("select an entry", Median(select), 50, " ms");
    table.AtMost("move an entry", Median(move), 50, " ms");
    table.AtMost("add an entry", Median(add), 50, " ms");
    table.AtMost("remove an entry", Median(remove), 50, " ms");
    table.AtMost("type a character into a caption, the slowest of 13", Median(type), 50, " ms");
    table.AtMost("rename in place: the command, the text, Enter", Median(rename), 50, " ms");
}

} // namespace nesk::bench
