// Measures this program beside others that do the same, in one run, and prints how the figures stand to the
// goals.

#include "bench/FileBench.h"
#include "bench/ModelBench.h"
#include "bench/Table.h"

#include <cstdio>

int main() {
    nesk::bench::Table table;
    nesk::bench::MeasureFiles(table, 100000, 9);
    nesk::bench::MeasureFiles(table, 1000000, 5);
    nesk::bench::MeasureModel(table);
    std::printf("\n%d goals missed\n", table.Missed());
    return table.Missed() == 0 ? 0 : 1;
}
