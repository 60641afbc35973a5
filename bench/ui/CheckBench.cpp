#include "bench/ui/CheckBench.h"

#include "bench/Measure.h"
#include "bench/Table.h"
#include "bench/ui/Windows.h"
#include "checking/MenuCheck.h"
#include "editing/MenuEditor.h"
#include "unit/platform/TempStation.h"

#include <algorithm>
#include <condition_variable>
#include <filesystem>
#include <fstream>
#include <mutex>
#include <string>
#include <sys/stat.h>
#include <vector>

namespace nesk::bench {

namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;

constexpr int Groups = 100;
constexpr int PartsOfGroup = 100;
constexpr int Rounds = 5;

// A flag that another thread sets.
class Signal {
public:
    void Set() {
        const std::lock_guard lock(m_mutex);
        m_isSet = true;
        m_changed.notify_all();
    }
    void Wait() {
        std::unique_lock lock(m_mutex);
        m_changed.wait_for(lock, 20ms, [this] { return m_isSet; });
        m_isSet = false;
    }

private:
    std::mutex m_mutex;
    std::condition_variable m_changed;
    bool m_isSet = false;
};

std::string GroupFolder(int group) {
    return "C:\\Parts\\group" + std::to_string(group);
}

// Makes a repository in which each part has a partinfo.ini, a picture and a history directory, and a menu
// of them. Returns the host paths of all these files.
std::vector<std::string> MakeStation(MenuEditor& editor) {
    std::vector<std::string> files;
    const std::string picture =
        "BM" + std::string("\x46\0\0\0\0\0\0\0\x36\0\0\0\x28\0\0\0\x02\0\0\0\x02\0\0\0\1\0\x18\0", 28) +
        std::string(40, '\0');
    fs::create_directories(TempStation::Host("C:\\Neskroot"));
    editor.Open("C:\\Neskroot", "C:\\Neskroot\\menu.cfg");
    for (int group = 0; group < Groups; ++group) {
        const std::string parent = editor.AddSubmenu("R", "Group " + std::to_string(group));
        for (int part = 0; part < PartsOfGroup; ++part) {
            const std::string folder = GroupFolder(group) + "\\part" + std::to_string(part);
            const fs::path host = TempStation::Host(folder);
            fs::create_directories(host / "history");
            std::ofstream(host / "partinfo.ini") << "[Part]\r\nName=Part " << part << "\r\n";
            std::ofstream(host / "button.bmp") << picture;
            PartFields fields;
            fields.programId = "@" + folder + "\\partinfo.ini@";
            fields.graphic = folder + "\\button.bmp";
            fields.historyDir = folder + "\\history";
            editor.SetPart(editor.AddPart(parent, "Part " + std::to_string(part)), fields);
            for (const char* name : {"partinfo.ini", "button.bmp", "history"})
                files.push_back((host / name).string());
        }
    }
    return files;
}

void Finish(MenuCheck& check, Signal& signal) {
    while (!check.IsDone())
        if (!check.Step(5ms) && !check.IsDone()) signal.Wait();
}

} // namespace

void MeasureCheck(Table& table) {
    TempStation station;
    MenuEditor editor;
    const std::vector<std::string> files = MakeStation(editor);
    std::vector<double> calls, checks, ratios, edits, additions;
    for (int round = 0; round < Rounds; ++round) {
        calls.push_back(Seconds([&] {
            for (const std::string& file : files) {
                struct stat status {};
                Demand(::stat(file.c_str(), &status) == 0, "a file is missing");
            }
        }));
        Signal signal;
        MenuCheck check(editor, StationInspector(), [&signal] { signal.Set(); });
        checks.push_back(Seconds([&] { Finish(check, signal); }));
        Demand(check.Count() == 0, "there are problems");
        ratios.push_back(checks.back() / calls.back());

        // To the list that is up to date but for the files.
        const auto renew = [&] {
            return 1000 * Seconds([&] {
                       while (check.Step(5ms)) {
                       }
                   });
        };
        double slowest = 0;
        for (int i = 1; i <= 20; ++i) {
            editor.SetCaption("R." + std::to_string(i) + ".50", "Renamed " + std::to_string(round));
            slowest = std::max(slowest, renew());
        }
        edits.push_back(slowest);
        slowest = 0;
        for (int i = 1; i <= 20; ++i) {
            const std::string id = editor.AddPart("R." + std::to_string(i), "Added");
            slowest = std::max(slowest, renew());
            Demand(check.Count() == 1, "the new part is not checked");
            editor.Remove(id);
            slowest = std::max(slowest, renew());
        }
        additions.push_back(slowest);
        Finish(check, signal);
    }
    table.Heading("Checking 10,000 parts with 30,000 files, medians of " + std::to_string(Rounds) +
                  " rounds");
    table.Line("one system call for each file", std::to_string(Median(calls)) + " s");
    table.Line("the check", std::to_string(Median(checks)) + " s");
    table.AtMost("checking: times one system call for each file", Median(ratios), 1.5);
    table.AtMost("renewing after a caption was changed, the slowest of 20", Median(edits), 5, " ms");
    table.AtMost("renewing after a part was added or removed, the slowest of 40", Median(additions), 5,
                 " ms");
}

} // namespace nesk::bench
