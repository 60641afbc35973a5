#include "bench/JournalBench.h"

#include "bench/Measure.h"
#include "bench/SampleFiles.h"
#include "bench/Table.h"
#include "editing/MenuEditor.h"
#include "journal/MenuJournal.h"
#include "unit/platform/TempStation.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace nesk::bench {

namespace {

constexpr int Rounds = 5;
constexpr int Edits = 300; // of a kind, per round

double MillisecondsOf(const std::function<void()>& action) {
    const auto start = std::chrono::steady_clock::now();
    action();
    const std::chrono::duration<double, std::milli> took = std::chrono::steady_clock::now() - start;
    return took.count();
}

void Demand(bool holds, const char* what) {
    if (holds) return;
    std::fprintf(stderr, "%s\n", what);
    std::exit(2);
}

std::string Millis(double value) {
    char text[32];
    std::snprintf(text, sizeof text, "%.4f ms", value);
    return text;
}

// The durations of the edits of one round, in milliseconds.
struct Times {
    double first = 0;
    std::vector<double> edits;
    double removal = 0; // the undo of the removal of a large submenu
    double afterSave = 0;
};

// The children of the root that are submenus have the counters 1 to 32.
std::string SomePart(const MenuEditor& editor, int number) {
    std::string id = "R." + std::to_string(number % 32 + 1);
    while (const MenuEntry* entry = editor.Find(id + ".1")) {
        if (entry->ChildCount() == 0) return entry->ID();
        id += "." + std::to_string(number % std::min(32, entry->ParentMenu()->ChildCount()) + 1);
    }
    return id;
}

Times Edit(const std::string& path, bool withJournal) {
    Times times;
    MenuEditor editor;
    std::optional<MenuJournal> journal;
    if (withJournal) journal.emplace(editor, JournalOptions{});
    editor.Open("C:\\", path);
    Demand(editor.IsOpen() && !editor.IsNew(), "the menu was not opened");
    times.first = MillisecondsOf([&] { editor.SetCaption("R", "first"); });
    for (int i = 0; i < Edits; ++i) {
        const std::string part = SomePart(editor, i);
        times.edits.push_back(MillisecondsOf([&] { editor.SetCaption(part, "edit " + std::to_string(i)); }));
        times.edits.push_back(MillisecondsOf([&] { editor.AddPart("R.1", "part"); }));
        times.edits.push_back(MillisecondsOf([&] { editor.Undo(); }));
        times.edits.push_back(MillisecondsOf([&] { editor.MoveUp(part) || editor.MoveDown(part); }));
        if (i % 100 == 0 && journal) journal->Flush();
    }
    Demand(!journal || !journal->Path().empty(), "there is no journal");
    editor.Remove("R.2");
    times.removal = MillisecondsOf([&] { editor.Undo(); });
    editor.Save(path);
    times.afterSave = MillisecondsOf([&] { editor.SetCaption("R", "after the save"); });
    editor.Close();
    return times;
}

void MeasureEdits(Table& table, const TempStation& station, int items, double goal) {
    const std::string path = station.Folder() / "menu.cfg";
    // Figures of both kinds side by side, so that what else the machine does meets both.
    std::vector<double> first[2], typical[2], worst[2], removal[2], afterSave[2];
    for (int round = 0; round < Rounds; ++round)
        for (const bool withJournal : {false, true}) {
            // The same menu each time: an edit that changes nothing costs nothing.
            WriteBlockFile(path, items);
            Times times = Edit("Z:" + path, withJournal);
            first[withJournal].push_back(times.first);
            worst[withJournal].push_back(*std::max_element(times.edits.begin(), times.edits.end()));
            typical[withJournal].push_back(Median(std::move(times.edits)));
            removal[withJournal].push_back(times.removal);
            afterSave[withJournal].push_back(times.afterSave);
        }
    const std::string among = " among " + std::to_string(items) + " items";
    const auto compare = [&](const std::string& what, const std::vector<double>* figures) {
        const double without = Median(figures[0]);
        const double with = Median(figures[1]);
        table.Line(what + among, Millis(without) + " without, " + Millis(with) + " with");
        return with - without;
    };
    const auto demand = [&](const std::string& what, const std::vector<double>* figures) {
        table.AtMost("  more with a journal", compare(what, figures), goal, " ms");
    };
    demand("first edit", first);
    demand("edit", typical);
    // What else the machine does shows in the slowest, so it has no goal.
    compare("slowest of " + std::to_string(4 * Edits) + " edits", worst);
    demand("undo of removing 1/32", removal);
    demand("first edit after a save", afterSave);
}

} // namespace

void MeasureJournal(Table& table) {
    table.Heading("Edits without and with a journal, medians of " + std::to_string(Rounds) + " rounds");
    const TempStation station;
    MeasureEdits(table, station, 10000, 1);
    MeasureEdits(table, station, 100000, 20);
}

} // namespace nesk::bench
