// Measures the windows: opening a large menu beside filling a bare tree control, what follows an edit in it,
// scanning a repository beside `find`, and the start of the program. Arguments pick some of it: opening,
// scan, start.

#include "bench/Measure.h"
#include "bench/SampleFiles.h"
#include "bench/SampleTree.h"
#include "bench/Table.h"
#include "bench/ui/StartBench.h"
#include "menu/MenuItem.h"
#include "partedit/FormSelectPart.h"
#include "settings/NeskRegistry.h"
#include "settings/RegEntry.h"
#include "shell/FormIcons.h"
#include "shell/FormMain.h"
#include "shell/FormMenuTree.h"
#include "shell/FormUtilities.h"
#include "shell/Startup.h"
#include "unit/platform/TempStation.h"

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include <wx/app.h>
#include <wx/evtloop.h>
#include <wx/filename.h>
#include <wx/frame.h>
#include <wx/menu.h>
#include <wx/modalhook.h>
#include <wx/treectrl.h>

namespace nesk::bench {

namespace {

namespace fs = std::filesystem;
using modUtilities::FromWx;
constexpr int Items = 100000;
constexpr int Folders = 50000;
constexpr int Rounds = 5;

double Seconds(const std::function<void()>& action) {
    const auto start = std::chrono::steady_clock::now();
    action();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

// Until the windows have drawn themselves and nothing is left to be done.
void Settle() {
    wxEventLoopBase* loop = wxEventLoop::GetActive();
    for (int i = 0; i < 3; ++i) {
        while (loop->Pending())
            loop->Dispatch();
        wxTheApp->ProcessPendingEvents();
        loop->ProcessIdle();
    }
}

void Demand(bool holds, const char* what) {
    if (holds) return;
    std::fprintf(stderr, "%s\n", what);
    std::exit(2);
}

// As many nodes as the menu has, with the same texts and pictures, in the same shape.
class TreeFiller final : public SampleWriter {
public:
    explicit TreeFiller(wxTreeCtrl& tree) : m_tree(tree) {}
    void BeginMenu() override { m_nodes.push_back(m_tree.AddRoot("Main Menu", 0, 0)); }
    void BeginItem(const SampleEntry& entry) override {
        const int image = entry.menuType == "Menu" ? 0 : 1;
        m_nodes.push_back(m_tree.AppendItem(m_nodes.back(), wxString::FromUTF8(entry.caption), image, image));
    }
    void EndItem() override { m_nodes.pop_back(); }
    void EndMenu() override { m_tree.Expand(m_nodes.front()); }

private:
    wxTreeCtrl& m_tree;
    std::vector<wxTreeItemId> m_nodes;
};

double FillBareTree() {
    auto* frame = new wxFrame(nullptr, wxID_ANY, "bare", wxDefaultPosition, wxSize(800, 600));
    auto* tree = new wxTreeCtrl(frame, wxID_ANY, wxDefaultPosition, wxDefaultSize,
                                wxTR_HAS_BUTTONS | wxTR_LINES_AT_ROOT | wxTR_SINGLE);
    const wxSize size(20, 20);
    wxVector<wxBitmapBundle> images;
    images.push_back(IconBundle("folder", size));
    images.push_back(IconBundle("part", size));
    tree->SetImages(images);
    frame->Show();
    Settle();
    const double seconds = Seconds([&] {
        tree->Freeze();
        TreeFiller filler(*tree);
        VisitSampleTree(filler, Items);
        tree->Thaw();
        Settle();
    });
    Demand(tree->GetCount() == Items + 1, "the bare tree is not filled");
    frame->Destroy();
    Settle();
    return seconds;
}

void MeasureOpening(Table& table) {
    TempStation station;
    fs::create_directories(TempStation::Host("C:\\Neskroot"));
    WriteBlockFile(TempStation::Host("C:\\Neskroot\\menu.cfg"), Items);
    NeskRegistry::Instance().NeskRoot = "C:\\Neskroot";
    std::vector<double> ratios, opening, filling;
    std::vector<double> select, rename, add, move;
    for (int round = 0; round < Rounds; ++round) {
        auto* window = new FormMain;
        window->SetSize(800, 600);
        window->Show();
        Settle();
        opening.push_back(Seconds([&] {
            window->ProcessCommand(window->mnuFileOpen->GetId());
            Settle();
        }));
        Demand(window->Editor().Find("R.32") != nullptr, "the menu is not open");
        filling.push_back(FillBareTree());
        ratios.push_back(opening.back() / filling.back());
        const auto millis = [](const std::function<void()>& action) {
            return 1000 * Seconds([&] {
                       action();
                       Settle();
                   });
        };
        const std::string id = "R." + std::to_string(10 + round) + ".7.3";
        select.push_back(millis([&] { window->tvMain->SelectKey(id); }));
        rename.push_back(millis([&] { window->Editor().SetCaption(id, "Renamed"); }));
        move.push_back(millis([&] { window->Editor().MoveUp("R." + std::to_string(10 + round)); }));
        add.push_back(millis([&] { window->Editor().AddPart("R.9", "New"); }));
        window->Editor().Close();
        window->Destroy();
        Settle();
    }
    table.Heading("The window with 100,000 items, medians of " + std::to_string(Rounds) + " rounds");
    table.Line("filling a bare tree control", std::to_string(Median(filling)) + " s");
    table.Line("opening the menu", std::to_string(Median(opening)) + " s");
    table.AtMost("opening: times filling a bare tree control", Median(ratios), 1.5);
    table.AtMost("select an entry", Median(select), 50, " ms");
    table.AtMost("rename an entry", Median(rename), 50, " ms");
    table.AtMost("move a submenu of 3,000 entries", Median(move), 50, " ms");
    table.AtMost("add an entry", Median(add), 50, " ms");
}

// Ends every dialog as soon as it has been shown and its scan is done.
class CloseDialogs final : public wxModalDialogHook {
protected:
    int Enter(wxDialog* dialog) override {
        dialog->CallAfter([dialog] { dialog->EndModal(wxID_CANCEL); });
        return wxID_NONE;
    }
};

void MeasureScan(Table& table) {
    TempStation station;
    for (int i = 0; i < Folders / 100; ++i)
        for (int j = 0; j < 99; ++j)
            fs::create_directories(TempStation::Host("C:\\Parts\\group" + std::to_string(i)) /
                                   ("part" + std::to_string(j)));
    RegEntry entry;
    entry.CreateKey("Common");
    entry.SetString("RepositoryRoot", "C:\\Parts");
    const std::string find =
        "find '" + TempStation::Host("C:\\Parts").string() + "' -type d | wc -l >/dev/null";
    std::vector<double> ratios, scan, found;
    for (int round = 0; round < Rounds; ++round) {
        found.push_back(Seconds([&] { Demand(std::system(find.c_str()) == 0, "find failed"); }));
        CloseDialogs hook;
        hook.Register();
        FormSelectPart form(nullptr);
        scan.push_back(Seconds([&] { form.SelectPart(); }));
        hook.Unregister();
        Demand(form.tvMain->GetCount() > Folders * 9 / 10, "the scan did not come to its end");
        ratios.push_back(scan.back() / found.back());
    }
    table.Heading("A repository of 50,000 folders, medians of " + std::to_string(Rounds) + " rounds");
    table.Line("find -type d", std::to_string(Median(found)) + " s");
    table.Line("the dialog with all folders in its tree", std::to_string(Median(scan)) + " s");
    table.AtMost("scanning: times find -type d", Median(ratios), 2.0);
}

class BenchApp final : public wxApp {
public:
    bool OnInit() override {
        SetExitOnFrameDelete(false);
        return true;
    }
    int OnRun() override {
        wxEventLoop loop;
        const wxEventLoopActivator active(&loop);
        Startup::InitLanguage();
        Table table;
        if (IsWanted("opening")) MeasureOpening(table);
        if (IsWanted("scan")) MeasureScan(table);
        if (IsWanted("start")) MeasureStart(table, FromWx(wxFileName(argv[0]).GetPath()));
        std::printf("\n%d goals missed\n", table.Missed());
        return table.Missed() == 0 ? 0 : 1;
    }

private:
    bool IsWanted(const char* part) const {
        const wxArrayString& wanted = argv.GetArguments();
        return wanted.size() == 1 || wanted.Index(part) != wxNOT_FOUND;
    }
};

} // namespace

} // namespace nesk::bench

wxIMPLEMENT_APP_NO_MAIN(nesk::bench::BenchApp);

int main(int argc, char** argv) {
    return wxEntry(argc, argv);
}
