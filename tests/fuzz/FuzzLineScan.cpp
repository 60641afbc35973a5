// Searches an arbitrary text from each of its offsets. The functions that the reader uses and the scalar
// ones, which processors without SSE2 use, must return the same.

#include "fuzz/Fuzz.h"
#include "unit/menu/LineScanChecks.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace nesk;
    // Every offset is searched from, so longer texts only slow the run down.
    constexpr std::size_t longest = 1024;
    if (size > longest) return 0;
    const testing::PaddedText text(fuzz::TextOf(data, size));
    for (std::size_t from = 0; from <= text.Size(); ++from)
        fuzz::Require(testing::LineScanDifference(text, from).empty(),
                      "both kinds of functions find the same");
    return 0;
}
