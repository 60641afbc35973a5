// A text of any content, searched from each of its places. The functions that the reader uses and the scalar
// ones, which processors without SSE2 use, find the same.

#include "fuzz/Fuzz.h"
#include "unit/menu/LineScanChecks.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace nesk;
    // Each place is searched from, so long texts only make it slow.
    constexpr std::size_t longest = 1024;
    if (size > longest) return 0;
    const testing::PaddedText text(fuzz::TextOf(data, size));
    for (std::size_t from = 0; from <= text.Size(); ++from)
        fuzz::Require(testing::LineScanDifference(text, from).empty(),
                      "both kinds of functions find the same");
    return 0;
}
