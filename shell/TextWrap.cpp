#include "shell/TextWrap.h"

#include <algorithm>
#include <string_view>

namespace nesk {

namespace {

using Measure = std::function<int(const std::string&)>;

// Length of the character that begins the text.
std::size_t CharacterLength(std::string_view text) {
    std::size_t length = 1;
    while (length < text.size() && (static_cast<unsigned char>(text[length]) & 0xC0) == 0x80)
        ++length;
    return length;
}

// Adds a word to the last of `lines`, in pieces where it is longer than a whole line.
void AddWord(std::string& lines, std::string& line, std::string word, int width, const Measure& measure) {
    const std::string joined = line.empty() ? word : line + " " + word;
    if (measure(joined) <= width) {
        line = joined;
        return;
    }
    if (!line.empty()) lines += line + "\n";
    line.clear();
    while (measure(word) > width) {
        std::size_t fits = CharacterLength(word);
        while (fits < word.size()) {
            const std::size_t next = fits + CharacterLength(std::string_view(word).substr(fits));
            if (measure(word.substr(0, next)) > width) break;
            fits = next;
        }
        if (fits >= word.size()) break; // one character is wider than the line
        lines += word.substr(0, fits) + "\n";
        word.erase(0, fits);
    }
    line = word;
}

} // namespace

std::string WrapText(const std::string& text, int width, const Measure& measure) {
    std::string lines;
    for (std::size_t from = 0;; ++from) {
        const std::size_t end = std::min(text.find('\n', from), text.size());
        std::string line;
        for (std::size_t at = from; at < end;) {
            const std::size_t blank = std::min(text.find(' ', at), end);
            AddWord(lines, line, text.substr(at, blank - at), width, measure);
            at = blank + 1;
        }
        lines += line;
        if (end == text.size()) return lines;
        lines += '\n';
        from = end;
    }
}

} // namespace nesk
