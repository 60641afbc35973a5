#include "platform/common/ProfileSearch.h"

#include "platform/ErrorCode.h"
#include "platform/FileSystem.h"
#include "platform/TextEncoding.h"
#include "platform/Utf8.h"
#include "platform/common/ProfileText.h"

#include <algorithm>
#include <memory>
#include <optional>

namespace nesk::platform::common {

namespace {

// Windows never returns a longer value, however large the buffer is.
constexpr std::size_t LongestAnswer = 65535;

// Spaces around the requested names are removed. Other white space stays, unlike in the names in the file.
std::string_view WithoutBlanks(std::string_view text) {
    while (!text.empty() && text.front() == ' ')
        text.remove_prefix(1);
    while (!text.empty() && text.back() == ' ')
        text.remove_suffix(1);
    return text;
}

std::optional<std::string> Find(const std::string& file, std::string_view section, std::string_view key,
                                std::size_t longest) {
    std::unique_ptr<FileReader> reader;
    if (StationFiles().OpenForReading(file, reader) != ErrorCode::Success) return std::nullopt;
    ProfileReader lines(*reader, std::max(section.size(), key.size()), longest);
    bool inSection = false;
    for (ProfileLine line; lines.Next(line);) {
        if (line.kind == ProfileLine::Kind::Header) {
            // Only the first section of a name counts.
            if (inSection) return std::nullopt;
            inSection = line.NameIs(section);
        } else if (line.kind == ProfileLine::Kind::Entry && inSection && line.NameIs(key)) {
            return line.Value(longest);
        }
    }
    return std::nullopt;
}

// The default value without its trailing spaces, truncated to the buffer.
std::string Default(std::string_view text, std::size_t longest) {
    while (!text.empty() && text.back() == ' ')
        text.remove_suffix(1);
    std::string result;
    std::size_t bytes = 0;
    while (!text.empty()) {
        const std::size_t length = std::max<std::size_t>(Utf8Length(text), 1);
        const std::string_view character = text.substr(0, length);
        bytes += ToAnsi(character).value_or("?").size();
        if (bytes > longest) break;
        result += character;
        text.remove_prefix(length);
    }
    return result;
}

} // namespace

std::string SearchProfile(const std::string& file, const std::string& section, const std::string& key,
                          const std::string& defaultValue, std::size_t capacity) {
    const std::size_t longest = std::min(capacity - std::min<std::size_t>(capacity, 1), LongestAnswer);
    std::optional<std::string> value = Find(file, WithoutBlanks(section), WithoutBlanks(key), longest);
    return value ? std::move(*value) : Default(defaultValue, longest);
}

} // namespace nesk::platform::common
