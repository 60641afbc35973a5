#include "bench/FileBench.h"

#include "bench/Contender.h"
#include "bench/Measure.h"
#include "bench/SampleFiles.h"
#include "bench/Table.h"
#include "unit/platform/TempStation.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <map>
#include <string>
#include <vector>

namespace nesk::bench {

namespace {

namespace fs = std::filesystem;

struct Entrant {
    std::string name;
    std::unique_ptr<Contender> (*make)();
    void (*write)(const std::string& path, int items);
    bool saves;
};

const Entrant Entrants[] = {
    {"NeskManager", MakeNesk, WriteBlockFile, true},    {"pugixml", MakePugixml, WriteXmlFile, true},
    {"RapidJSON", MakeRapidJson, WriteJsonFile, true},  {"Boost INFO", MakeBoostInfo, WriteInfoFile, true},
    {"read and scan", MakeScan, WriteBlockFile, false},
};

// The figures of one entrant, one number per round.
struct Results {
    std::vector<double> load;
    std::vector<double> memory;
    std::vector<double> save;
};

using AllResults = std::map<std::string, Results>;

double MedianOfRatios(const std::vector<double>& above, const std::vector<double>& below) {
    std::vector<double> ratios;
    for (std::size_t i = 0; i < above.size(); ++i)
        ratios.push_back(above[i] / below[i]);
    return Median(ratios);
}

std::string Amount(double value, const char* unit) {
    char text[40];
    std::snprintf(text, sizeof text, "%9.3f %s", value, unit);
    return text;
}

std::string Ratio(double value) {
    char text[40];
    std::snprintf(text, sizeof text, "%8.2f", value);
    return text;
}

void RunRound(const fs::path& folder, int items, AllResults& all) {
    for (const Entrant& entrant : Entrants) {
        const std::string path = folder / entrant.name;
        const std::unique_ptr<Contender> contender = entrant.make();
        const auto load = [&] { contender->Load(path); };
        const auto check = [&] {
            contender->Load(path);
            if (contender->Count() == items) return;
            std::fprintf(stderr, "%s holds %d items.\n", entrant.name.c_str(), contender->Count());
            std::exit(2);
        };
        Results& results = all[entrant.name];
        // Approximately the memory that all entrants but the largest need to load or save a file.
        const std::size_t memory = 3 * fs::file_size(path);
        const Figures loading = Measure([] {}, load, memory);
        results.load.push_back(loading.seconds);
        results.memory.push_back(loading.bytes);
        if (!entrant.saves) continue;
        const std::string saved = folder / "saved";
        results.save.push_back(Measure(
                                   check, [&] { contender->Save(saved); }, memory)
                                   .seconds);
        fs::remove(saved);
    }
}

} // namespace

void MeasureFiles(Table& table, int items, int rounds) {
    const TempStation station;
    const fs::path folder = station.Folder() / "samples";
    fs::create_directory(folder);
    for (const Entrant& entrant : Entrants)
        entrant.write(folder / entrant.name, items);
    AllResults all;
    for (int round = 0; round < rounds; ++round)
        RunRound(folder, items, all);

    table.Heading("Files of " + std::to_string(items) + " items, medians of " + std::to_string(rounds) +
                  " rounds");
    const double fileSize = static_cast<double>(fs::file_size(folder / "NeskManager"));
    table.Line("size of the menu file", Amount(fileSize / 1e6, "MB"));
    for (const Entrant& entrant : Entrants) {
        const Results& results = all[entrant.name];
        table.Line(entrant.name + ": load",
                   Amount(Median(results.load), "s ") + Amount(Median(results.memory) / 1e6, "MB"));
        if (entrant.saves) table.Line(entrant.name + ": save", Amount(Median(results.save), "s"));
    }
    const Results& own = all["NeskManager"];
    const Results& pugixml = all["pugixml"];
    table.AtLeast("load: times as fast as pugixml", MedianOfRatios(pugixml.load, own.load), 2.5);
    table.AtMost("load: part of reading and scanning", MedianOfRatios(own.load, all["read and scan"].load),
                 1.0);
    table.AtLeast("save: times as fast as pugixml", MedianOfRatios(pugixml.save, own.save), 1.4);
    // For information only: these comparisons have no goal.
    for (const char* other : {"RapidJSON", "Boost INFO"}) {
        const Results& results = all[other];
        table.Line(std::string("load: times as fast as ") + other,
                   Ratio(MedianOfRatios(results.load, own.load)));
        table.Line(std::string("save: times as fast as ") + other,
                   Ratio(MedianOfRatios(results.save, own.save)));
    }
    table.AtMost("memory: part of the file", Median(own.memory) / fileSize, 1.4);
    table.AtMost("memory: part of pugixml's", MedianOfRatios(own.memory, pugixml.memory), 0.65);
}

} // namespace nesk::bench
