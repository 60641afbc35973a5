#pragma once

#include "platform/TextEncoding.h"
#include "unit/platform/TempStation.h"

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

/// The entry point of a fuzz target: runs one input. The fuzzer or Replay.cpp calls it.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace nesk::fuzz {

/// Ends the process, which is how a fuzzer learns of a fault, when a property does not hold.
inline void Require(bool holds, const char* property) {
    if (holds) return;
    std::fprintf(stderr, "property violated: %s (code page %d)\n", property, platform::CodePage());
    std::abort();
}

/// Larger inputs only make a run slow.
constexpr std::size_t LargestInput = 65536;

inline std::string TextOf(const std::uint8_t* data, std::size_t size) {
    return {reinterpret_cast<const char*>(data), size};
}

/// Takes the first line, without its end, off an input.
inline std::string TakeLine(std::string& input) {
    const std::size_t end = input.find('\n');
    std::string line = input.substr(0, end);
    input.erase(0, end == std::string::npos ? end : end + 1);
    return line;
}

/// What every input runs in: a station of its own and one code page. Nothing of it is left afterwards, so
/// that no input depends on those before.
class Surroundings {
public:
    explicit Surroundings(int languageId) { platform::SelectCodePage(languageId); }
    ~Surroundings() { platform::SelectCodePage(1033); }
    Surroundings(const Surroundings&) = delete;
    Surroundings& operator=(const Surroundings&) = delete;

    TempStation station;
};

/// Runs an input of any content once with each kind of code page: western, with bytes that stand for nothing,
/// with characters of two bytes. An input that is too large is left out.
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
