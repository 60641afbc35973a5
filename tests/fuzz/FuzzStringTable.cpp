// Loads an arbitrary language library. Every library that loads answers within the given buffer, and a
// library made from its answers gives the same answers.

#include "fuzz/Fuzz.h"
#include "platform/ResourceLibrary.h"

#include <algorithm>
#include <charconv>
#include <map>
#include <optional>
#include <set>
#include <vector>

namespace nesk::fuzz {

namespace {

const std::string Path = "C:\\Orvane\\ENU32000.DLL";
constexpr char Guard = '\x5A';
// Buffer sizes: larger than any string of an input, and the size that the program uses.
constexpr int Large = static_cast<int>(LargestInput) * 4;
constexpr int Usual = 1024;

// Reads a string into a buffer that is followed by guard bytes.
std::string Read(platform::ModuleHandle module, std::uint32_t id, int capacity) {
    std::vector<char> buffer(static_cast<std::size_t>(capacity) + 8, Guard);
    const int length = platform::ReadModuleString(module, id, buffer.data(), capacity);
    Require(length >= 0 && length < std::max(capacity, 1), "the length is below the capacity");
    Require(std::all_of(buffer.begin() + capacity, buffer.end(), [](char c) { return c == Guard; }),
            "nothing is written behind the buffer");
    if (capacity > 0) Require(buffer[static_cast<std::size_t>(length)] == '\0', "a string ends with a zero");
    return {buffer.data(), static_cast<std::size_t>(length)};
}

// The numbers before a tab at the start of a line, and some that are probably not in the library.
std::set<std::uint32_t> NumbersIn(const std::string& bytes) {
    std::set<std::uint32_t> numbers = {0, 1, 32000, 0xFFFFFFFF};
    for (std::size_t at = 0; at < bytes.size() && numbers.size() < 300;) {
        std::uint32_t number = 0;
        const auto [stop, error] = std::from_chars(bytes.data() + at, bytes.data() + bytes.size(), number);
        if (error == std::errc()) numbers.insert(number);
        at = bytes.find('\n', at);
        if (at != std::string::npos) ++at;
    }
    return numbers;
}

void CheckString(platform::ModuleHandle module, std::uint32_t id, const std::string& whole) {
    Require(Read(module, id, Large) == whole, "a string stays what it is");
    for (const int capacity : {0, 1, 2, 3, Usual}) {
        const std::string part = Read(module, id, capacity);
        Require(whole.starts_with(part), "a short buffer holds the beginning");
        // A character of the code page has at most two bytes, which must not be split.
        const std::size_t expected =
            std::min(whole.size(), static_cast<std::size_t>(std::max(capacity, 1)) - 1);
        Require(part.size() + 1 >= expected, "a short buffer is filled");
    }
}

std::string Escaped(const std::string& text) {
    std::string result;
    for (const char c : text) {
        if (c == '\\')
            result += "\\\\";
        else if (c == '\n')
            result += "\\n";
        else if (c == '\t')
            result += "\\t";
        else
            result += c;
    }
    return result;
}

void CheckRebuilt(Surroundings& surroundings, const std::map<std::uint32_t, std::string>& strings) {
    std::string library = "NeskManager string table 1\n";
    for (const auto& [number, bytes] : strings)
        library += std::to_string(number) + "\t" + Escaped(platform::FromAnsi(bytes)) + "\n";
    surroundings.station.Write(Path, library);
    const platform::ModuleHandle module = platform::LoadModule(Path);
    Require(module != 0, "a library made of answers loads");
    for (const auto& [number, bytes] : strings)
        Require(Read(module, number, Large) == bytes, "a library made of answers gives the same answers");
    platform::FreeModule(module);
}

void CheckModule(Surroundings& surroundings, platform::ModuleHandle module, const std::string& bytes) {
    Require(bytes.ends_with('\n'), "a library that was cut is none");
    std::map<std::uint32_t, std::string> strings;
    const std::set<std::uint32_t> numbers = NumbersIn(bytes);
    for (const std::uint32_t number : numbers) {
        const std::string whole = Read(module, number, Large);
        CheckString(module, number, whole);
        strings.emplace(number, whole);
    }
    platform::FreeModule(module);
    for (const std::uint32_t number : numbers)
        Require(Read(module, number, Usual).empty(), "a library that was released is silent");
    CheckRebuilt(surroundings, strings);
}

} // namespace

} // namespace nesk::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace nesk::fuzz;
    return WithEachCodePage(data, size, [](Surroundings& surroundings, const std::string& bytes) {
        surroundings.station.Write(Path, bytes);
        if (const auto module = nesk::platform::LoadModule(Path); module != 0)
            CheckModule(surroundings, module, bytes);
    });
}
