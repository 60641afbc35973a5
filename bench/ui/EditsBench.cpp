#include "bench/ui/EditsBench.h"

#include "bench/Measure.h"
#include "bench/SampleFiles.h"
#include "bench/Table.h"
#include "bench/ui/Windows.h"
#include "menu/MenuItem.h"
#include "settings/NeskRegistry.h"
#include "shell/FormMain.h"
#include "shell/FormMenuTree.h"
#include "unit/platform/TempStation.h"

#include <algorithm>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include <wx/menuitem.h>

namespace nesk::bench {

namespace {

constexpr int Items = 100000;
constexpr int Rounds = 5;
constexpr int Pasted = 3000;
constexpr int Selected = 10000;
constexpr int Siblings = 30000;
constexpr int Steps = 10000;

FormMain* OpenWindow() {
    NeskRegistry::Instance().NeskRoot = "C:\\Neskroot";
    auto* window = new FormMain;
    window->SetSize(800, 600);
    window->Show();
    window->ProcessCommand(window->mnuFileOpen->GetId());
    Settle();
    Demand(window->Editor().IsOpen(), "the menu is not open");
    return window;
}

void CloseWindow(FormMain* window) {
    window->Editor().Close();
    window->Destroy();
    Settle();
}

std::string Parts(int count) {
    std::string text;
    for (int i = 1; i <= count; ++i)
        text +=
            "BLOCK SUBMENU\r\nCAPTION=Housing " + std::to_string(i) + "\r\nMENUTYPE=Part Program\r\nEND\r\n";
    return text;
}

// The slowest of undo and redo after an edit, to the painted window.
double UndoAndRedo(FormMain& window, const std::function<void()>& edit) {
    edit();
    Settle();
    const std::size_t steps = window.Editor().History().UndoNames().size();
    const double undo = MillisecondsSettled([&] { window.ProcessCommand(window.mnuEditUndo->GetId()); });
    Demand(window.Editor().History().UndoNames().size() == steps - 1, "nothing was undone");
    const double redo = MillisecondsSettled([&] { window.ProcessCommand(window.mnuEditRedo->GetId()); });
    Demand(window.Editor().History().UndoNames().size() == steps, "nothing was redone");
    return std::max(undo, redo);
}

double Drop(FormMain& window, const std::string& id, const std::string& target) {
    FormMenuTree& tree = *window.tvMain;
    platform::TreeNode* const node = tree.NodeOf(id);
    const platform::TreeDrop drop{tree.NodeOf(target), platform::TreeDrop::Where::On, false};
    const int before = window.Editor().Find(target)->ChildCount();
    const double time = MillisecondsSettled([&] { tree.View().on.dropped({node}, drop); });
    Demand(window.Editor().Find(target)->ChildCount() == before + 1, "nothing was dropped");
    return time;
}

double Paste(FormMain& window, const std::string& parentId, const std::string& text) {
    const std::int64_t before = window.Editor().OpenMenu()->CountBelow();
    const double time =
        MillisecondsSettled([&] { window.tvMain->SelectKeys(window.Editor().Paste(text, parentId, 0)); });
    Demand(window.Editor().OpenMenu()->CountBelow() >= before + Pasted, "nothing was pasted");
    return time;
}

void MeasureSteps(Table& table, const FormMain& window) {
    auto& editor = const_cast<FormMain&>(window).Editor();
    for (int i = 0; i < Steps; ++i)
        editor.SetCaption("R.20." + std::to_string(1 + i % 2), "Housing " + std::to_string(i));
    Demand(editor.History().UndoNames().size() >= Steps, "steps were dropped");
    table.Line("memory of 10,000 undo steps", std::to_string(editor.History().Bytes() / 1024) + " KB");
}

void MeasureManySelected(Table& table) {
    TempStation station;
    station.Write("C:\\Neskroot\\menu.cfg",
                  "BLOCK MENU\r\nBLOCK SUBMENU\r\nMENUTYPE=Menu\r\n" + Parts(Siblings) + "END\r\nEND\r\n");
    FormMain* const window = OpenWindow();
    FormMenuTree& tree = *window->tvMain;
    tree.View().Expand(*tree.NodeOf("R.1"));
    std::vector<double> remove, back;
    for (int round = 0; round < Rounds; ++round) {
        // Every third entry, so that no block of them could be treated as one.
        EntryIds ids;
        for (int i = 0; i < Selected; ++i)
            ids.push_back("R.1." + std::to_string(1 + 3 * i));
        tree.SelectKeys(ids);
        Settle();
        Demand(tree.View().Selection().size() == Selected, "the entries are not selected");
        remove.push_back(MillisecondsSettled([&] { window->Editor().Remove(ids); }));
        Demand(window->Editor().Find("R.1")->ChildCount() == Siblings - Selected, "they were not removed");
        back.push_back(MillisecondsSettled([&] { window->ProcessCommand(window->mnuEditUndo->GetId()); }));
        Demand(window->Editor().Find("R.1")->ChildCount() == Siblings, "they were not brought back");
        Demand(tree.View().Selection().size() == Selected, "they are not selected again");
    }
    CloseWindow(window);
    table.AtMost("remove 10,000 selected entries of 30,000", Median(remove), 200, " ms");
    table.AtMost("bring them back", Median(back), 200, " ms");
}

} // namespace

void MeasureEdits(Table& table) {
    table.Heading("Edits in the window with 100,000 items, medians of " + std::to_string(Rounds) + " rounds");
    {
        TempStation station;
        std::filesystem::create_directories(TempStation::Host("C:\\Neskroot"));
        WriteBlockFile(TempStation::Host("C:\\Neskroot\\menu.cfg"), Items);
        FormMain* const window = OpenWindow();
        MenuEditor& editor = window->Editor();
        std::vector<double> rename, add, remove, move, drop, undoDrop, paste, pasteOne;
        const std::string submenu = editor.CopyText({"R.9"});
        const std::string parts = Parts(Pasted);
        for (int round = 0; round < Rounds; ++round) {
            const std::string top = "R." + std::to_string(10 + round);
            rename.push_back(UndoAndRedo(*window, [&] { editor.SetCaption(top + ".7.3", "Renamed"); }));
            add.push_back(UndoAndRedo(*window, [&] { editor.AddPart(top, "New"); }));
            remove.push_back(UndoAndRedo(*window, [&] { editor.Remove(top + ".8"); }));
            move.push_back(UndoAndRedo(*window, [&] { editor.MoveUp(top); }));
            // A submenu of 3,000 entries.
            undoDrop.push_back(UndoAndRedo(*window, [&] { Drop(*window, top, "R.1"); }));
            editor.Undo();
            drop.push_back(Drop(*window, top, "R.2"));
            paste.push_back(Paste(*window, editor.AddSubmenu("R", "Empty"), parts));
            pasteOne.push_back(Paste(*window, "R", submenu));
        }
        MeasureSteps(table, *window);
        CloseWindow(window);
        table.AtMost("undo or redo a rename", Median(rename), 50, " ms");
        table.AtMost("undo or redo an addition", Median(add), 50, " ms");
        table.AtMost("undo or redo a removal", Median(remove), 50, " ms");
        table.AtMost("undo or redo a move", Median(move), 50, " ms");
        table.AtMost("undo or redo a drop", Median(undoDrop), 50, " ms");
        table.AtMost("drop a submenu of 3,000 entries", Median(drop), 50, " ms");
        table.AtMost("paste 3,000 entries", Median(paste), 50, " ms");
        table.AtMost("paste a submenu of 3,000 entries", Median(pasteOne), 50, " ms");
    }
    MeasureManySelected(table);
}

} // namespace nesk::bench
