#include "menu/MenuText.h"

#include "platform/TextEncoding.h"
#include "shell/Messages.h"
#include "shell/NeskError.h"

#include <optional>
#include <utility>

namespace nesk::MenuText {

std::string Encode(std::string_view text, const std::string& source) {
    std::optional<std::string> bytes = platform::ToAnsi(text);
    if (!bytes)
        throw NeskError(
            5000, source, Message::NotEncodable,
            {std::string(text), platform::FirstNotEncodable(text), std::to_string(platform::CodePage())});
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
