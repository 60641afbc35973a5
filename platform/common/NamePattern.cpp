#include "platform/NamePattern.h"

#include "platform/TextEncoding.h"
#include "platform/Utf8.h"

#include <cstddef>

namespace nesk::platform {

namespace {

std::size_t CharacterLength(std::string_view text) {
    const std::size_t length = Utf8Length(text);
    return length == 0 ? 1 : length;
}

} // namespace

bool MatchesPattern(std::string_view name, std::string_view pattern) {
    if (pattern == "*.*") return true;
    const std::string upperName = ToUpper(name);
    const std::string upperPattern = ToUpper(pattern);
    std::string_view n = upperName;
    std::string_view p = upperPattern;
    // Position to resume from when the text after the last "*" does not match.
    bool hasStar = false;
    std::string_view starPattern;
    std::string_view starName;
    while (!n.empty()) {
        if (!p.empty() && p.front() == '*') {
            p.remove_prefix(1);
            hasStar = true;
            starPattern = p;
            starName = n;
        } else if (!p.empty() && p.front() == '?') {
            p.remove_prefix(1);
            n.remove_prefix(CharacterLength(n));
        } else if (!p.empty() && p.front() == n.front()) {
            p.remove_prefix(1);
            n.remove_prefix(1);
        } else if (hasStar) {
            starName.remove_prefix(CharacterLength(starName));
            n = starName;
            p = starPattern;
        } else {
            return false;
        }
    }
    while (!p.empty() && p.front() == '*')
        p.remove_prefix(1);
    return p.empty();
}

} // namespace nesk::platform
