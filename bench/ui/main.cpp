// Measures the windows: opening a large menu and the updates after an edit in it, edits among many siblings,
// undo, drops and edits of many entries, finding and replacing, the preview, the report, adding many parts,
// checking a menu and its files, scanning a repository compared with `find`, and the start of the program.
// Arguments select some of the measurements: opening, siblings, edits, find, preview, report, parts, check,
// scan, start.

#include "bench/Measure.h"
#include "bench/Table.h"
#include "bench/ui/AddPartsBench.h"
#include "bench/ui/CheckBench.h"
#include "bench/ui/EditsBench.h"
#include "bench/ui/FindBench.h"
#include "bench/ui/OpeningBench.h"
#include "bench/ui/PreviewBench.h"
#include "bench/ui/ReportBench.h"
#include "bench/ui/SiblingsBench.h"
#include "bench/ui/StartBench.h"
#include "bench/ui/Windows.h"
#include "partedit/FormSelectPart.h"
#include "settings/RegEntry.h"
#include "shell/Startup.h"
#include "unit/platform/TempStation.h"
#include "widgets/UiUtilities.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <functional>
#include <string>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>
#include <vector>

#include <wx/app.h>
#include <wx/evtloop.h>
#include <wx/filename.h>
#include <wx/modalhook.h>
#include <wx/treectrl.h>

namespace nesk::bench {

namespace {

namespace fs = std::filesystem;
using modUtilities::FromWx;
constexpr int Folders = 50000;
constexpr int Rounds = 5;

// Closes every dialog as soon as it is shown and its scan is complete.
class CloseDialogs final : public wxModalDialogHook {
protected:
    int Enter(wxDialog* dialog) override {
        dialog->CallAfter([dialog] { dialog->EndModal(wxID_CANCEL); });
        return wxID_NONE;
    }
};

// Runs `find -type d` and discards its output.
bool FindFolders(const std::string& folder) {
    const pid_t child = ::fork();
    if (child == 0) {
        const int nowhere = ::open("/dev/null", O_WRONLY | O_CLOEXEC);
        if (::dup2(nowhere, STDOUT_FILENO) >= 0)
            ::execlp("find", "find", folder.c_str(), "-type", "d", static_cast<char*>(nullptr));
        ::_exit(127);
    }
    int status = 0;
    return ::waitpid(child, &status, 0) == child && WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

std::size_t CountNodes(const platform::TreeNode& root) {
    std::size_t count = 0;
    std::vector<const platform::TreeNode*> nodes{&root};
    for (; count < nodes.size(); ++count)
        for (std::size_t i = 0; i < nodes[count]->ChildCount(); ++i)
            nodes.push_back(&nodes[count]->Child(i));
    return count;
}

void MeasureScan(Table& table) {
    TempStation station;
    for (int i = 0; i < Folders / 100; ++i)
        for (int j = 0; j < 99; ++j)
            fs::create_directories(TempStation::Host("C:\\Parts\\group" + std::to_string(i)) /
                                   ("part" + std::to_string(j)));
    RegEntry entry;
    entry.CreateKey("Common");
    entry.SetString("RepositoryRoot", "C:\\Parts");
    const std::string parts = TempStation::Host("C:\\Parts").string();
    std::vector<double> ratios, scan, found;
    for (int round = 0; round < Rounds; ++round) {
        found.push_back(Seconds([&] { Demand(FindFolders(parts), "find failed"); }));
        CloseDialogs hook;
        hook.Register();
        FormSelectPart form(nullptr);
        scan.push_back(Seconds([&] { form.SelectPart(); }));
        hook.Unregister();
        Demand(CountNodes(*form.tvMain->Root()) > Folders * 9 / 10, "the scan did not come to its end");
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
        int measured = 0;
        for (const auto& [name, measure] : Parts()) {
            if (!IsWanted(name)) continue;
            measure(table);
            ++measured;
        }
        if (measured < std::max(1, argc - 1)) {
            std::printf("an argument is no measurement\n");
            return 2;
        }
        std::printf("\n%d goals missed\n", table.Missed());
        return table.Missed() == 0 ? 0 : 1;
    }

private:
    using Part = std::pair<const char*, std::function<void(Table&)>>;

    std::vector<Part> Parts() const {
        const std::string folder = FromWx(wxFileName(argv[0]).GetPath());
        return {
            {"opening", MeasureOpening}, {"siblings", MeasureWindowSiblings},
            {"edits", MeasureEdits},     {"find", MeasureFind},
            {"check", MeasureCheck},     {"parts", MeasureAddParts},
            {"preview", MeasurePreview}, {"report", MeasureReport},
            {"scan", MeasureScan},       {"start", [folder](Table& table) { MeasureStart(table, folder); }},
        };
    }

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
