#include "bench/MergeBench.h"

#include "bench/Measure.h"
#include "bench/SampleFiles.h"
#include "bench/Table.h"
#include "menu/Menu.h"
#include "menu/MenuItem.h"
#include "menu/MenuItemCollection.h"
#include "menu/ReadMenuQuietly.h"
#include "unit/platform/TempStation.h"
#include "versions/MenuDiff.h"
#include "versions/MenuMerge.h"

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <memory>
#include <random>
#include <string>
#include <vector>

namespace nesk::bench {

namespace {

constexpr int Items = 100000;
constexpr int Edits = 300; // on each side
constexpr int Rounds = 9;

double Milliseconds(const std::function<void()>& action) {
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

std::unique_ptr<Menu> Load(const std::string& path) {
    QuietMenu read = ReadMenuQuietly(path, "C:\\");
    Demand(read.IsWhole(), "the menu was not loaded");
    return std::move(read.menu);
}

// Renames, removes, moves and adds entries all over the menu.
void Edit(Menu& menu, unsigned seed) {
    std::mt19937 random(seed);
    std::vector<MenuItem*> submenus;
    std::vector<MenuEntry*> open{&menu};
    while (!open.empty()) {
        MenuEntry* entry = open.back();
        open.pop_back();
        for (int i = 1; i <= entry->ChildCount(); ++i) {
            MenuItem& item = entry->SubMenus().Item(i);
            if (item.ChildCount() > 1 && item.Children()->Item(2).ChildCount() == 0)
                submenus.push_back(&item);
            open.push_back(&item);
        }
    }
    const auto any = [&]() -> MenuItem& { return *submenus[random() % submenus.size()]; };
    for (int i = 0; i < Edits; ++i) {
        MenuItemCollection& children = any().SubMenus();
        if (children.Count() < 2) continue; // another edit took one away
        switch (i % 4) {
        case 0: children.Item(2).SetCaption("renamed " + std::to_string(random())); break;
        case 1: children.RemoveItem(children.Item(2)); break;
        case 2: children.Add("added " + std::to_string(random()), MenuItem::PartType); break;
        default: {
            MenuItem& target = any();
            auto item = children.Take(2);
            item->SetPlace(target, target.NextCounter());
            target.SubMenus().Append(std::move(item));
        }
        }
    }
}

} // namespace

void MeasureMerge(Table& table) {
    table.Heading("Merging three menus of 100,000 entries, medians of " + std::to_string(Rounds) + " rounds");
    TempStation station;
    const std::string file = station.Folder() / "menu.cfg";
    WriteBlockFile(file, Items);
    const std::string path = "Z:" + file;
    const auto base = Load(path);
    const auto ours = Load(path);
    const auto theirs = Load(path);
    Edit(*ours, 1);
    Edit(*theirs, 2);
    std::vector<double> loads, merges, ratios, differences;
    for (int round = 0; round < Rounds; ++round) {
        std::unique_ptr<Menu> loaded;
        std::unique_ptr<Menu> merged;
        loads.push_back(Milliseconds([&] { loaded = Load(path); }));
        loaded.reset();
        merges.push_back(Milliseconds([&] { merged = MenuMerge(*base, *ours, *theirs).Result(); }));
        Demand(merged->CountBelow() > Items - 2 * Edits, "entries were lost");
        merged.reset();
        differences.push_back(
            Milliseconds([&] { Demand(!MenuDiff(*base, *ours).IsEmpty(), "there is no difference"); }));
        ratios.push_back(merges.back() / loads.back());
    }
    const auto figure = [](const std::vector<double>& times) {
        return std::to_string(Median(times)).append(" ms");
    };
    table.Line("load", figure(loads));
    table.Line("merge with 300 edits on each side", figure(merges));
    table.Line("difference of two", figure(differences));
    table.AtMost("merge, in loads", Median(ratios), 3);
}

} // namespace nesk::bench
