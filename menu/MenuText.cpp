#include "menu/MenuText.h"

#include "platform/TextEncoding.h"
#include "shell/Messages.h"
#include "shell/NeskError.h"

#include <optional>
#include <utility>

namespace nesk::MenuText {

namespace {

bool IsContinuation(char c) {
    return (static_cast<unsigned char>(c) & 0xC0) == 0x80;
}

// The first character that has no place in the code page.
std::string FirstNotEncodable(std::string_view text) {
    while (!text.empty()) {
        std::size_t length = 1;
        while (length < text.size() && IsContinuation(text[length]))
            ++length;
        const std::string_view character = text.substr(0, length);
        if (!platform::ToAnsi(character)) return std::string(character);
        text.remove_prefix(length);
    }
    return "";
}

} // namespace

std::string Encode(std::string_view text, const std::string& source) {
    std::optional<std::string> bytes = platform::ToAnsi(text);
    if (!bytes)
        throw NeskError(5000, source, Message::NotEncodable,
                        {std::string(text), FirstNotEncodable(text), std::to_string(platform::CodePage())});
    return std::move(*bytes);
}

void Check(std::string_view text, const std::string& source) {
    constexpr std::string_view lineEnds("\r\n\0", 3);
    if (text.find_first_of(lineEnds) != std::string_view::npos)
        throw NeskError(5000, source, Message::LineBreakInText);
    Encode(text, source);
}

std::string OnOneLine(std::string_view text) {
    std::string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto c = static_cast<unsigned char>(text[i]);
        const bool crLf = c == '\r' && i + 1 < text.size() && text[i + 1] == '\n';
        if (crLf) continue;
        if (c == '\r' || c == '\n' || c == '\t')
            result += ' ';
        else if (c >= 32 && c != 127)
            result += text[i];
    }
    return result;
}

} // namespace nesk::MenuText
