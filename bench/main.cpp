// Compares this program with others that do the same, in one run, and prints the figures and their goals.
// With two arguments, the number of items and the number of rounds, it measures only loading and saving; with
// "model" it omits files; with "journal" it measures only the journal of unsaved changes, and with "merge" it
// only merges.

#include "bench/FileBench.h"
#include "bench/JournalBench.h"
#include "bench/MergeBench.h"
#include "bench/ModelBench.h"
#include "bench/Table.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>

int main(int count, char** arguments) {
    nesk::bench::Table table;
    if (count == 3) {
        nesk::bench::MeasureFiles(table, std::atoi(arguments[1]), std::atoi(arguments[2]));
    } else if (count == 2 && std::strcmp(arguments[1], "journal") == 0) {
        nesk::bench::MeasureJournal(table);
    } else if (count == 2 && std::strcmp(arguments[1], "merge") == 0) {
        nesk::bench::MeasureMerge(table);
    } else {
        const bool files = count != 2 || std::strcmp(arguments[1], "model") != 0;
        if (files) nesk::bench::MeasureFiles(table, 100000, 9);
        if (files) nesk::bench::MeasureFiles(table, 1000000, 5);
        nesk::bench::MeasureModel(table);
        nesk::bench::MeasureJournal(table);
        nesk::bench::MeasureMerge(table);
    }
    std::printf("\n%d goals missed\n", table.Missed());
    return table.Missed() == 0 ? 0 : 1;
}
