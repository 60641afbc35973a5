#include "platform/ResourceLibrary.h"

#include "platform/ErrorCode.h"
#include "platform/FileSystem.h"
#include "platform/TextEncoding.h"
#include "platform/Utf8.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <memory>
#include <optional>
#include <string_view>
#include <unordered_map>
#include <utility>

// A library is a UTF-8 text file. The first line names the format. Each further line is one string: number,
// tab and text, in ascending order of the numbers. In the text, "\n", "\t" and "\\" represent a line feed, a
// tab and a backslash.

namespace nesk::platform {

namespace {

using Strings = std::unordered_map<std::uint32_t, std::string>;

constexpr std::string_view formatLine = "NeskManager string table 1\n";

// Far above the size of a full block of the longest strings.
constexpr std::size_t maxFileSize = 16U << 20U;

struct Modules {
    std::unordered_map<ModuleHandle, Strings> loaded;
    ModuleHandle last = 0;
};

Modules& LoadedModules() {
    static Modules modules;
    return modules;
}

std::optional<std::string> ReadWhole(const std::string& path) {
    std::unique_ptr<FileReader> reader;
    if (StationFiles().OpenForReading(path, reader) != ErrorCode::Success) return std::nullopt;
    std::string content;
    std::array<char, 65536> buffer{};
    for (;;) {
        std::size_t count = 0;
        if (reader->Read(buffer.data(), buffer.size(), count) != ErrorCode::Success) return std::nullopt;
        if (count == 0) return content;
        content.append(buffer.data(), count);
        if (content.size() > maxFileSize) return std::nullopt;
    }
}

std::optional<std::string> Unescape(std::string_view text) {
    std::string result;
    result.reserve(text.size());
    for (std::size_t index = 0; index < text.size(); ++index) {
        if (text[index] != '\\') {
            result += text[index];
            continue;
        }
        if (++index == text.size()) return std::nullopt;
        switch (text[index]) {
        case 'n': result += '\n'; break;
        case 't': result += '\t'; break;
        case '\\': result += '\\'; break;
        default: return std::nullopt;
        }
    }
    return result;
}

// The strings of a library; empty when it is damaged or not a library.
std::optional<Strings> Parse(std::string_view content) {
    if (!content.starts_with(formatLine) || !IsUtf8(content)) return std::nullopt;
    content.remove_prefix(formatLine.size());

    Strings strings;
    std::optional<std::uint32_t> previous;
    while (!content.empty()) {
        const std::size_t end = content.find('\n');
        // The file is truncated.
        if (end == std::string_view::npos) return std::nullopt;
        const std::string_view line = content.substr(0, end);
        content.remove_prefix(end + 1);

        const std::size_t tab = line.find('\t');
        if (tab == std::string_view::npos) return std::nullopt;
        std::uint32_t number = 0;
        const char* numberEnd = line.data() + tab;
        const auto [stop, error] = std::from_chars(line.data(), numberEnd, number);
        if (error != std::errc() || stop != numberEnd || (previous && number <= *previous))
            return std::nullopt;
        std::optional<std::string> text = Unescape(line.substr(tab + 1));
        if (!text) return std::nullopt;
        strings.emplace(number, std::move(*text));
        previous = number;
    }
    return strings;
}

// Encodes a text in the code page, truncated to `capacity` bytes at a character boundary.
std::string Encode(std::string_view text, std::size_t capacity) {
    if (std::optional<std::string> whole = ToAnsi(text); whole && whole->size() <= capacity)
        return std::move(*whole);
    std::string bytes;
    while (!text.empty()) {
        const std::size_t length = Utf8Length(text);
        const std::string character = ToAnsi(text.substr(0, length)).value_or("?");
        if (bytes.size() + character.size() > capacity) break;
        bytes += character;
        text.remove_prefix(length);
    }
    return bytes;
}

} // namespace

ModuleHandle LoadModule(const std::string& path) {
    const std::optional<std::string> content = ReadWhole(path);
    if (!content) return 0;
    std::optional<Strings> strings = Parse(*content);
    if (!strings) return 0;
    Modules& modules = LoadedModules();
    modules.loaded.emplace(++modules.last, std::move(*strings));
    return modules.last;
}

int ReadModuleString(ModuleHandle module, std::uint32_t id, char* buffer, int capacity) {
    if (buffer == nullptr || capacity <= 0) return 0;
    buffer[0] = '\0';
    const Modules& modules = LoadedModules();
    const auto strings = modules.loaded.find(module);
    if (strings == modules.loaded.end()) return 0;
    const auto text = strings->second.find(id);
    if (text == strings->second.end()) return 0;

    const std::string bytes = Encode(text->second, static_cast<std::size_t>(capacity) - 1);
    *std::copy(bytes.begin(), bytes.end(), buffer) = '\0';
    return static_cast<int>(bytes.size());
}

void FreeModule(ModuleHandle module) {
    LoadedModules().loaded.erase(module);
}

} // namespace nesk::platform
