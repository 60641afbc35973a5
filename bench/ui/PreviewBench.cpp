#include "bench/ui/PreviewBench.h"

#include "bench/Measure.h"
#include "bench/Table.h"
#include "bench/ui/SamplePicture.h"
#include "bench/ui/Windows.h"
#include "settings/NeskRegistry.h"
#include "shell/FormMain.h"
#include "shell/FormMenuTree.h"
#include "shell/FormPreview.h"
#include "unit/platform/TempStation.h"

#include <algorithm>
#include <chrono>
#include <functional>
#include <string>
#include <thread>
#include <vector>

#include <wx/menuitem.h>

namespace nesk::bench {

namespace {

constexpr int Submenus = 20;
constexpr int Buttons = 100;
constexpr int ManyButtons = 1000;
constexpr int Rounds = 20;

std::string Parts(int count, const std::string& name) {
    std::string text;
    for (int i = 1; i <= count; ++i)
        text += "BLOCK SUBMENU\r\nCAPTION=Crankshaft bearing " + name + " " + std::to_string(i) +
                "\r\nGRAPHIC=C:\\Pictures\\" + std::to_string(i) + ".png\r\nMENUTYPE=Part Program\r\nEND\r\n";
    return text;
}

std::string SampleMenu() {
    std::string text = "BLOCK MENU\r\n";
    for (int i = 1; i <= Submenus; ++i)
        text += "BLOCK SUBMENU\r\nCAPTION=Submenu " + std::to_string(i) + "\r\nMENUTYPE=Menu\r\n" +
                Parts(i == 1 ? ManyButtons : Buttons, std::to_string(i)) + "END\r\n";
    return text + "END\r\n";
}

// Processes events until a condition holds.
void WaitFor(const std::function<bool()>& condition, const char* what) {
    for (int i = 0; i < 500 && !condition(); ++i) {
        Settle();
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    Demand(condition(), what);
}

} // namespace

void MeasurePreview(Table& table) {
    TempStation station;
    const std::string picture = SamplePicture();
    for (int i = 1; i <= ManyButtons; ++i)
        station.Write("C:\\Pictures\\" + std::to_string(i) + ".png", picture);
    station.Write("C:\\Neskroot\\menu.cfg", SampleMenu());
    NeskRegistry::Instance().NeskRoot = "C:\\Neskroot";
    auto* window = new FormMain;
    window->Show();
    WaitFor([&] { return window->IsActive(); }, "the window is not active");
    window->SetSize(1000, 800);
    WaitFor([&] { return window->GetClientSize().x > 900; }, "the window has no size");
    window->ProcessCommand(window->mnuFileOpen->GetId());
    Settle();
    window->ProcessCommand(window->mnuViewPreview->GetId());
    Settle();
    Demand(window->pnPreview != nullptr && window->pnPreview->GetSize().x > 400, "there is no preview");
    FormPreview& preview = *window->pnPreview;
    preview.SetScreenChoice(2);
    FormButtonGrid& buttons = *preview.grdButtons;
    std::vector<double> go, scroll;
    for (int round = 0; round < Rounds; ++round) {
        const std::string id = "R." + std::to_string(2 + round % (Submenus - 1));
        go.push_back(MillisecondsSettled([&] { window->tvMain->SelectKey(id); }));
        Demand(preview.Place().Id() == id && buttons.Count() == Buttons, "another submenu is not shown");
    }
    window->tvMain->SelectKey("R.1");
    const auto isShown = [&] { return buttons.PictureState(0) == UiThumbnails::State::Shown; };
    WaitFor(isShown, "no picture is shown");
    const int step = buttons.GetClientSize().y / 2;
    int unit = 0;
    buttons.GetScrollPixelsPerUnit(nullptr, &unit);
    for (int y = 0; y < buttons.GetVirtualSize().y - buttons.GetClientSize().y; y += step)
        scroll.push_back(MillisecondsSettled([&] { buttons.Scroll(0, y / unit); }));
    window->Editor().Close();
    window->Destroy();
    Settle();
    table.Heading("The preview, medians");
    table.AtMost("go to another submenu of 100 buttons", Median(go), 50, " ms");
    table.AtMost("scroll by half a page among 1,000 buttons with pictures", Median(scroll), 50, " ms");
    table.Line("the slowest of them",
               std::to_string(*std::max_element(scroll.begin(), scroll.end())) + " ms");
}

} // namespace nesk::bench
