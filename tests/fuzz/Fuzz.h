#pragma once

#include "platform/TextEncoding.h"
#include "unit/platform/TempStation.h"

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

/// Entry point of a fuzz target, called by the fuzzer or by Replay.cpp. Runs one input.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace nesk::fuzz {

/// Aborts the process if a property does not hold. A fuzzer recognises a fault by the abort.
inline void Require(bool holds, const char* property) {
    if (holds) return;
    std::fprintf(stderr, "property violated: %s (code page %d)\n", property, platform::CodePage());
    std::abort();
}

/// Largest input that is run; larger ones only slow the run down.
constexpr std::size_t LargestInput = 65536;

inline std::string TextOf(const std::uint8_t* data, std::size_t size) {
    return {reinterpret_cast<const char*>(data), size};
}

/// Removes the first line from an input and returns it without its line end.
inline std::string TakeLine(std::string& input) {
    const std::size_t end = input.find('\n');
    std::string line = input.substr(0, end);
    input.erase(0, end == std::string::npos ? end : end + 1);
    return line;
}

/// The environment of one input: its own station and one code page. Everything is removed afterwards, so no
/// input depends on an earlier one.
class Surroundings {
public:
    explicit Surroundings(int languageId) { platform::SelectCodePage(languageId); }
    ~Surroundings() { platform::SelectCodePage(1033); }
    Surroundings(const Surroundings&) = delete;
    Surroundings& operator=(const Surroundings&) = delete;

    TempStation station;
};

/// Runs an arbitrary input once with each kind of code page: a western one, one with undefined bytes and one
/// with two-byte characters. An input that is too large is skipped.
/// @param run  called with the surroundings and the input
template <typename Run>
int WithEachCodePage(const std::uint8_t* data, std::size_t size, Run run) {
    if (size > LargestInput) return 0;
    const std::string input = TextOf(data, size);
    for (const int language : {1033, 1032, 1041}) {
        Surroundings surroundings(language);
        run(surroundings, input);
    }
    return 0;
}

} // namespace nesk::fuzz
