#include "platform/common/FileFilter.h"

#include <string_view>

namespace nesk::platform::common {

namespace {

bool IsLetter(char c) {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

// A pattern that matches letters in either case. Extensions are ASCII; other letters are unchanged.
std::string WithoutCase(std::string_view pattern) {
    if (pattern == "*.*") return "*";
    std::string result;
    for (const char c : pattern) {
        if (IsLetter(c))
            result.append({'[', static_cast<char>(c | 0x20), static_cast<char>(c & ~0x20), ']'});
        else
            result += c;
    }
    return result;
}

std::string PatternsWithoutCase(std::string_view patterns) {
    std::string result;
    for (;;) {
        const std::size_t end = patterns.find(';');
        result += WithoutCase(patterns.substr(0, end));
        if (end == std::string_view::npos) return result;
        result += ';';
        patterns.remove_prefix(end + 1);
    }
}

} // namespace

std::string NativeFilter(const std::string& filter) {
    std::string result;
    std::string_view rest = filter;
    for (bool isPatterns = false;; isPatterns = !isPatterns) {
        const std::size_t end = rest.find('|');
        const std::string_view field = rest.substr(0, end);
        result += isPatterns ? PatternsWithoutCase(field) : std::string(field);
        if (end == std::string_view::npos) return result;
        result += '|';
        rest.remove_prefix(end + 1);
    }
}

} // namespace nesk::platform::common
