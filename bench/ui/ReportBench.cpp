#include "bench/ui/ReportBench.h"

#include "bench/Measure.h"
#include "bench/Table.h"
#include "bench/ui/SamplePicture.h"
#include "bench/ui/Windows.h"
#include "checking/MenuCheck.h"
#include "editing/MenuEditor.h"
#include "platform/SaveFileDialog.h"
#include "shell/FormReport.h"
#include "unit/platform/TempStation.h"

#include <chrono>
#include <filesystem>
#include <string>
#include <thread>
#include <vector>

#include <wx/button.h>
#include <wx/modalhook.h>

namespace nesk::bench {

namespace {

using namespace std::chrono_literals;

constexpr int Buttons = 1000;
constexpr int Submenus = 20;
constexpr int Rounds = 3;
constexpr const char* ReportPath = "C:\\Neskroot\\report.html";

// Presses a button of the next dialog as soon as it is shown, or closes it.
class Press final : public wxModalDialogHook {
public:
    explicit Press(bool saves) : m_saves(saves) { Register(); }
    ~Press() override { Unregister(); }
    Press(const Press&) = delete;
    Press& operator=(const Press&) = delete;

protected:
    int Enter(wxDialog* dialog) override {
        WhenMade(*static_cast<FormReport*>(dialog));
        return wxID_NONE;
    }

private:
    void WhenMade(FormReport& dialog) {
        dialog.CallAfter([this, &dialog] {
            if (!dialog.IsMade()) return WhenMade(dialog);
            if (!m_saves) return dialog.EndModal(wxID_CANCEL);
            wxCommandEvent event(wxEVT_BUTTON, dialog.cmdOK->GetId());
            dialog.cmdOK->GetEventHandler()->ProcessEvent(event);
            dialog.EndModal(wxID_CANCEL);
        });
    }

    bool m_saves;
};

void MakeMenu(MenuEditor& editor, TempStation& station) {
    const std::string picture = SamplePicture();
    std::filesystem::create_directories(TempStation::Host("C:\\Neskroot"));
    editor.Open("C:\\Neskroot", "C:\\Neskroot\\menu.cfg");
    for (int submenu = 0; submenu < Submenus; ++submenu) {
        const std::string parent = editor.AddSubmenu("R", "Group " + std::to_string(submenu));
        for (int i = 0; i < Buttons / Submenus; ++i) {
            const std::string name = std::to_string(submenu) + "-" + std::to_string(i);
            PartFields fields;
            fields.programId = "@C:\\Parts\\" + name + "\\partinfo.ini@";
            fields.graphic = "C:\\Pictures\\" + name + ".png";
            fields.preview = "C:\\Previews\\" + name + ".png";
            station.Write(fields.graphic, picture);
            station.Write(fields.preview, picture);
            editor.AddPart(parent, "Crankshaft bearing " + name, fields);
        }
    }
}

double Milliseconds(const MenuEditor& editor, const MenuCheck& check, bool saves) {
    const Press press(saves);
    return Seconds([&] { FormReport(nullptr, editor, check).Invoke(); }) * 1000;
}

} // namespace

void MeasureReport(Table& table) {
    TempStation station;
    MenuEditor editor;
    MakeMenu(editor, station);
    MenuCheck check(editor);
    for (int i = 0; i < 2000 && !check.IsDone(); ++i)
        if (!check.Step(5ms)) std::this_thread::sleep_for(5ms);
    Demand(check.IsDone(), "the check does not end");
    const auto before = platform::SetSaveFileDialog(
        [](wxWindow*, const platform::OpenFileRequest&) { return std::string(ReportPath); });
    std::vector<double> shown, saved;
    for (int round = 0; round < Rounds; ++round) {
        shown.push_back(Milliseconds(editor, check, false));
        saved.push_back(Milliseconds(editor, check, true));
    }
    platform::SetSaveFileDialog(before);
    const auto size = std::filesystem::file_size(TempStation::Host(ReportPath));
    Demand(size > Buttons * 1000u, "the saved report has no pictures");
    table.Heading("The report about 1,000 buttons with 2,000 pictures, medians of " + std::to_string(Rounds));
    table.AtMost("shown in its window", Median(shown), 2000, " ms");
    table.AtMost("shown, and saved as a file", Median(saved), 2000, " ms");
    table.Line("size of the file", std::to_string(size / 1024) + " KiB");
}

} // namespace nesk::bench
