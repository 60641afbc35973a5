#include "bench/ui/AddPartsBench.h"

#include "bench/Measure.h"
#include "bench/Table.h"
#include "bench/ui/Windows.h"
#include "menu/MenuItem.h"
#include "partedit/FoundParts.h"
#include "partedit/PartImport.h"
#include "settings/NeskRegistry.h"
#include "shell/FormMain.h"
#include "shell/FormMenuTree.h"
#include "unit/platform/TempStation.h"

#include <optional>
#include <string>
#include <vector>

#include <wx/menuitem.h>

namespace nesk::bench {

namespace {

constexpr int Rounds = 5;
constexpr int PartsOfAFolder = 25;

void Measure(Table& table, int parts, bool hasGoal) {
    TempStation station;
    for (int i = 0; i < parts; ++i) {
        const std::string folder =
            "D:\\Parts\\group" + std::to_string(i / PartsOfAFolder) + "\\part" + std::to_string(i);
        station.Write(folder + "\\partinfo.ini", "[Part]\r\nName=Housing " + std::to_string(i) + "\r\n");
        station.Write(folder + "\\view.bmp", "");
    }
    station.Write("C:\\Neskroot\\menu.cfg", "BLOCK MENU\r\nEND\r\n");
    NeskRegistry::Instance().NeskRoot = "C:\\Neskroot";
    std::vector<double> read, plan, tick, add, undo;
    for (int round = 0; round < Rounds; ++round) {
        auto* window = new FormMain;
        window->SetSize(800, 600);
        window->Show();
        window->ProcessCommand(window->mnuFileOpen->GetId());
        Settle();
        MenuEditor& editor = window->Editor();
        FoundParts found;
        read.push_back(1000 * Seconds([&] {
                           found = FindParts("D:\\Parts", [](const PartSearchProgress&) { return true; });
                       }));
        PartImportOptions options;
        options.historyDir = "D:\\History\\%part%";
        std::optional<PartImport> import;
        plan.push_back(1000 *
                       Seconds([&] { import.emplace(*editor.OpenMenu(), "R", found.found, options); }));
        Demand(import->Count().parts == static_cast<std::size_t>(parts), "some parts are not planned");
        tick.push_back(1000 * Seconds([&] { import->Tick(1, false); }));
        import->TickAll(true);
        add.push_back(MillisecondsSettled([&] { window->tvMain->SelectKeys(import->Apply(editor)); }));
        Demand(editor.OpenMenu()->CountBelow() == parts + parts / PartsOfAFolder, "parts were not added");
        undo.push_back(MillisecondsSettled([&] { window->ProcessCommand(window->mnuEditUndo->GetId()); }));
        Demand(editor.OpenMenu()->CountBelow() == 0, "nothing was undone");
        editor.Close();
        window->Destroy();
        Settle();
    }
    table.Heading("Adding " + std::to_string(parts) + " parts, medians of " + std::to_string(Rounds) +
                  " rounds");
    table.Line("read the repository", std::to_string(Median(read)) + " ms");
    table.Line("plan", std::to_string(Median(plan)) + " ms");
    table.Line("plan again after a tick", std::to_string(Median(tick)) + " ms");
    table.Line("add, select and show", std::to_string(Median(add)) + " ms");
    table.Line("undo", std::to_string(Median(undo)) + " ms");
    if (hasGoal) table.AtMost("all but reading", Median(plan) + Median(add), 1000, " ms");
}

} // namespace

void MeasureAddParts(Table& table) {
    Measure(table, 300, true);
    Measure(table, 10000, false);
}

} // namespace nesk::bench
