#include "bench/ModelBench.h"

#include "bench/Measure.h"
#include "bench/SampleFiles.h"
#include "bench/Table.h"
#include "menu/Menu.h"
#include "menu/MenuItem.h"
#include "menu/MenuItemCollection.h"
#include "unit/platform/TempStation.h"

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <memory>
#include <random>
#include <string>
#include <utility>
#include <vector>

namespace nesk::bench {

namespace {

constexpr int Items = 1000000;
constexpr int Siblings = MenuItemCollection::MaxCount;
constexpr int Edits = 2000; // per round
constexpr int Histories = 10000;
constexpr int Rounds = 5;

// The average duration of one call, in microseconds.
double MicrosecondsEach(int calls, const std::function<void(int)>& call) {
    const auto start = std::chrono::steady_clock::now();
    for (int i = 0; i < calls; ++i)
        call(i);
    const std::chrono::duration<double, std::micro> took = std::chrono::steady_clock::now() - start;
    return took.count() / calls;
}

double MedianOfRounds(int calls, const std::function<void(int)>& call) {
    std::vector<double> rounds(Rounds);
    for (double& round : rounds)
        round = MicrosecondsEach(calls, call);
    return Median(rounds);
}

void Demand(bool holds, const char* what) {
    if (holds) return;
    std::fprintf(stderr, "%s\n", what);
    std::exit(2);
}

std::vector<std::string> AllIds(Menu& menu) {
    std::vector<std::string> ids;
    std::vector<MenuEntry*> open{&menu};
    while (!open.empty()) {
        MenuEntry* entry = open.back();
        open.pop_back();
        ids.push_back(entry->ID());
        for (int i = 1; i <= entry->ChildCount(); ++i)
            open.push_back(&entry->SubMenus().Item(i));
    }
    return ids;
}

void MeasureFind(Table& table, const TempStation& station) {
    const std::string path = station.Folder() / "menu.cfg";
    WriteBlockFile(path, Items);
    Menu menu;
    menu.Initialize("C:\\");
    menu.LoadFromFile("Z:" + path);
    std::vector<std::string> ids = AllIds(menu);
    std::shuffle(ids.begin(), ids.end(), std::mt19937(1));
    const double each = MedianOfRounds(static_cast<int>(ids.size()), [&](int i) {
        Demand(menu.Find(ids[static_cast<std::size_t>(i)]) != nullptr, "an entry is not found");
    });
    table.AtMost("Find by id among 1,000,000 items", each, 1, " us");
}

void MeasureSiblings(Table& table) {
    Menu menu;
    menu.Initialize("C:\\");
    MenuItemCollection& children = menu.SubMenus();
    for (int i = 0; i < Siblings; ++i)
        children.Add("entry", MenuItem::PartType);
    std::mt19937 random(2);
    // Shuffle first: in the order of the file every search would end at once.
    for (int i = 0; i < Siblings; ++i)
        children.Append(children.Take(1 + static_cast<int>(random() % Siblings)));
    const auto anyPosition = [&] {
        return 1 + static_cast<int>(random() % static_cast<unsigned>(children.Count()));
    };
    const auto any = [&]() -> MenuItem& { return children.Item(anyPosition()); };
    // Alternates removing and adding, so that the number of siblings stays near the maximum.
    std::vector<double> remove, add, putBack;
    for (int round = 0; round < Rounds; ++round) {
        remove.push_back(MicrosecondsEach(Edits, [&](int) { children.RemoveItem(any()); }));
        add.push_back(MicrosecondsEach(Edits, [&](int) { children.Add("entry", MenuItem::PartType); }));
        Demand(children.Count() == Siblings, "as many were added as were removed");
        std::vector<std::unique_ptr<MenuItem>> taken(Edits);
        for (std::unique_ptr<MenuItem>& item : taken)
            item = children.Take(anyPosition());
        putBack.push_back(MicrosecondsEach(Edits, [&](int i) {
            children.Insert(anyPosition(), std::move(taken[static_cast<std::size_t>(i)]));
        }));
        Demand(children.Count() == Siblings, "all that were taken are back");
    }
    table.AtMost("remove one of 32,767 siblings", Median(remove), 20, " us");
    table.AtMost("add to 32,767 siblings", Median(add), 20, " us");
    table.AtMost("put a removed one back among 32,767 siblings", Median(putBack), 20, " us");
    table.AtMost("move one of 32,767 siblings",
                 MedianOfRounds(Edits,
                                [&](int i) {
                                    MenuItem& item = any();
                                    i % 2 == 0 ? item.MoveUp() : item.MoveDown();
                                }),
                 20, " us");
}

void MeasureHistories(Table& table, TempStation& station) {
    std::string file = "BLOCK MENU\r\n";
    for (int i = 0; i < Histories; ++i) {
        const std::string number = std::to_string(i);
        file.append("\tBLOCK SUBMENU\r\n\t\tCAPTION=").append(number);
        file.append("\r\n\t\tHISTORY_DIR=C:\\Neskroot\\History\\").append(number);
        file.append("\r\n\t\tHISTORY_TITLE=Bore ").append(number).append("\r\n\tEND\r\n");
    }
    station.Write("C:\\menu.cfg", file + "END\r\n");
    std::vector<double> rounds;
    for (int round = 0; round < Rounds; ++round) {
        Menu menu;
        menu.Initialize("C:\\");
        rounds.push_back(MicrosecondsEach(1, [&](int) { menu.LoadFromFile("C:\\menu.cfg"); }) / 1e6);
        Demand(menu.ChildCount() == Histories, "not all entries were loaded");
    }
    table.AtMost("load with 10,000 histories to register", Median(rounds), 1, " s");
}

} // namespace

void MeasureModel(Table& table) {
    table.Heading("The tree in memory, medians of " + std::to_string(Rounds) + " rounds");
    TempStation station;
    MeasureFind(table, station);
    MeasureSiblings(table);
    MeasureHistories(table, station);
}

} // namespace nesk::bench
