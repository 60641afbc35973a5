#include "bench/ui/OpeningBench.h"

#include "bench/Measure.h"
#include "bench/SampleFiles.h"
#include "bench/SampleTree.h"
#include "bench/Table.h"
#include "bench/ui/LabelEdit.h"
#include "bench/ui/Windows.h"
#include "menu/MenuItem.h"
#include "settings/NeskRegistry.h"
#include "shell/FormMain.h"
#include "shell/FormMenuTree.h"
#include "unit/platform/TempStation.h"
#include "widgets/UiIcons.h"

#include <filesystem>
#include <string>
#include <vector>

#include <wx/frame.h>
#include <wx/menuitem.h>
#include <wx/treectrl.h>

namespace nesk::bench {

namespace {

namespace fs = std::filesystem;
constexpr int Items = 100000;
constexpr int Rounds = 5;

// Fills a tree control with as many nodes as the menu has, in the same shape and with the same texts and
// pictures.
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

} // namespace

void MeasureOpening(Table& table) {
    TempStation station;
    fs::create_directories(TempStation::Host("C:\\Neskroot"));
    WriteBlockFile(TempStation::Host("C:\\Neskroot\\menu.cfg"), Items);
    NeskRegistry::Instance().NeskRoot = "C:\\Neskroot";
    std::vector<double> ratios, opening, filling;
    std::vector<double> select, rename, add, move, type, renameInPlace;
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
        const std::string id = "R." + std::to_string(10 + round) + ".7.3";
        select.push_back(MillisecondsSettled([&] { window->tvMain->SelectKey(id); }));
        rename.push_back(MillisecondsSettled([&] { window->Editor().SetCaption(id, "Renamed"); }));
        move.push_back(
            MillisecondsSettled([&] { window->Editor().MoveUp("R." + std::to_string(10 + round)); }));
        add.push_back(MillisecondsSettled([&] { window->Editor().AddPart("R.9", "New"); }));
        const std::string other = "R." + std::to_string(10 + round) + ".8.4";
        type.push_back(TypeCaption(*window, other, "Typed by hand"));
        renameInPlace.push_back(RenameInPlace(*window, other, "Renamed"));
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
    table.AtMost("type a character into a caption, the slowest of 13", Median(type), 50, " ms");
    table.AtMost("rename in place: the command, the text, Enter", Median(renameInPlace), 50, " ms");
}

} // namespace nesk::bench
