#include "bench/ui/FindBench.h"

#include "bench/Measure.h"
#include "bench/SampleFiles.h"
#include "bench/Table.h"
#include "bench/ui/Windows.h"
#include "checking/FolderUse.h"
#include "checking/Replacement.h"
#include "settings/NeskRegistry.h"
#include "shell/FormMain.h"
#include "unit/platform/TempStation.h"

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include <wx/menuitem.h>
#include <wx/srchctrl.h>
#include <wx/stattext.h>

namespace nesk::bench {

namespace {

constexpr int Items = 100000;
constexpr int Rounds = 5;

// Types a text and returns the milliseconds of the slowest letter.
double TypeText(wxSearchCtrl& box, const std::string& text) {
    double slowest = 0;
    for (std::size_t length = 1; length <= text.size(); ++length)
        slowest = std::max(slowest, MillisecondsSettled([&] { box.SetValue(text.substr(0, length)); }));
    return slowest;
}

} // namespace

void MeasureFind(Table& table) {
    TempStation station;
    std::filesystem::create_directories(TempStation::Host("C:\\Neskroot"));
    WriteBlockFile(TempStation::Host("C:\\Neskroot\\menu.cfg"), Items);
    NeskRegistry::Instance().NeskRoot = "C:\\Neskroot";
    std::vector<double> first, letter, next, filtered, filter, plan, replace, undo, folders;
    for (int round = 0; round < Rounds; ++round) {
        auto* window = new FormMain;
        window->SetSize(800, 600);
        window->Show();
        window->ProcessCommand(window->mnuFileOpen->GetId());
        window->ProcessCommand(window->mnuEditFind->GetId());
        auto& box = dynamic_cast<wxSearchCtrl&>(*wxWindow::FindWindowByName("txtFind", window));
        // Paints the find bar. In the few slices of idle time in it, the search prepares a small part of the
        // texts.
        Settle();
        first.push_back(MillisecondsSettled([&] { box.SetValue("s"); }));
        const std::string found = wxWindow::FindWindowByName("lblFound", window)->GetLabel().utf8_string();
        Demand(!found.empty() && found.front() != 'N', "nothing was found");
        letter.push_back(TypeText(box, "part 99 "));
        letter.back() = std::max(letter.back(), TypeText(box, "neskroot\\x"));
        box.SetValue("99");
        Settle();
        next.push_back(
            MillisecondsSettled([&] { window->ProcessCommand(window->mnuEditFindNext->GetId()); }));
        filter.push_back(
            MillisecondsSettled([&] { window->ProcessCommand(window->mnuEditShowMatches->GetId()); }));
        filtered.push_back(TypeText(box, "group7\\p"));
        window->ProcessCommand(window->mnuEditShowMatches->GetId());
        const Menu& menu = *window->Editor().OpenMenu();
        std::vector<TextChange> changes;
        const ReplaceOptions options{"Neskroot", "New", TextFieldSet().set(), false};
        plan.push_back(1000 * Seconds([&] { changes = Replacement::Plan(menu, options); }));
        Demand(changes.size() > Items, "few changes are planned");
        folders.push_back(1000 * Seconds([&] { const FolderUse use(menu); }));
        replace.push_back(MillisecondsSettled([&] { Replacement::Apply(window->Editor(), changes, {}); }));
        undo.push_back(MillisecondsSettled([&] { window->Editor().Undo(); }));
        window->Editor().Close();
        window->Destroy();
        Settle();
    }
    table.Heading("Finding among 100,000 entries, medians of " + std::to_string(Rounds) + " rounds");
    table.AtMost("the first letter, directly after the find bar was opened", Median(first), 50, " ms");
    table.AtMost("a letter, the slowest of 18", Median(letter), 50, " ms");
    table.AtMost("go to the next match", Median(next), 50, " ms");
    table.Line("show only matches", std::to_string(Median(filter)) + " ms");
    table.Line("a letter while only matches are shown, the slowest of 8",
               std::to_string(Median(filtered)) + " ms");
    table.Line("plan a replacement in all entries", std::to_string(Median(plan)) + " ms");
    table.Line("make it", std::to_string(Median(replace)) + " ms");
    table.Line("undo it", std::to_string(Median(undo)) + " ms");
    table.Line("the folders that all paths use", std::to_string(Median(folders)) + " ms");
}

} // namespace nesk::bench
