#include "widgets/WrappedText.h"

#include "platform/Utf8.h"

#include <algorithm>
#include <cstddef>

namespace nesk {

namespace {

// A zero-width character marks this line break, to distinguish it from the line breaks of the text.
constexpr std::string_view WordBreak = "\xE2\x80\x8B\n";

// The start of the character at `at`. When this is the first character, the position after it.
std::size_t CharacterAt(std::string_view text, std::size_t at) {
    while (at > 0 && at < text.size() && platform::ContinuesCharacter(text[at]))
        --at;
    if (at == 0)
        for (at = 1; at < text.size() && platform::ContinuesCharacter(text[at]);)
            ++at;
    return std::min(at, text.size());
}

// Length of the longest prefix that is not wider than `width`, at least one character.
std::size_t FittingLength(std::string_view line, int width,
                          const std::function<int(std::string_view)>& widthOf) {
    std::size_t fits = 0;
    std::size_t tooLong = line.size() + 1;
    while (tooLong - fits > 1) {
        const std::size_t middle = fits + (tooLong - fits) / 2;
        if (widthOf(line.substr(0, CharacterAt(line, middle))) <= width)
            fits = middle;
        else
            tooLong = middle;
    }
    return CharacterAt(line, fits);
}

} // namespace

std::vector<std::string_view> WrappedLines(std::string_view text, int width,
                                           const std::function<int(std::string_view)>& widthOf) {
    std::vector<std::string_view> lines;
    for (bool more = true; more;) {
        const std::size_t end = text.find('\n');
        std::string_view line = text.substr(0, end);
        more = end != std::string_view::npos;
        if (more) text.remove_prefix(end + 1);
        for (;;) {
            const std::size_t fits = FittingLength(line, width, widthOf);
            if (fits >= line.size()) break;
            // A line may also be broken at the space directly after the part that fits.
            const std::size_t blank = line.rfind(' ', fits);
            const bool atWord = blank != std::string_view::npos && blank > 0;
            lines.push_back(line.substr(0, atWord ? blank : fits));
            line.remove_prefix(atWord ? blank + 1 : fits);
        }
        lines.push_back(line);
    }
    return lines;
}

std::string WrappedText(std::string_view text, int width,
                        const std::function<int(std::string_view)>& widthOf) {
    std::string wrapped;
    const char* between = "";
    for (const std::string_view line : WrappedLines(text, width, widthOf)) {
        wrapped.append(between).append(line);
        between = "\n";
    }
    return wrapped;
}

std::string WithWordsBroken(std::string_view text, const std::vector<std::string_view>& lines) {
    std::string result;
    const char* last = text.data();
    for (const std::string_view line : lines) {
        // The space or line break at the end of the previous line.
        const std::string_view between(last, static_cast<std::size_t>(line.data() - last));
        if (between.empty() && line.data() != text.data())
            result += WordBreak;
        else
            result += between;
        result += line;
        last = line.data() + line.size();
    }
    return result;
}

std::string WithoutWordBreaks(std::string_view text) {
    std::string result(text);
    for (const std::string_view mark : {WordBreak, WordBreak.substr(0, WordBreak.size() - 1)})
        for (std::size_t at = result.find(mark); at != std::string::npos; at = result.find(mark, at))
            result.erase(at, mark.size());
    return result;
}

} // namespace nesk
