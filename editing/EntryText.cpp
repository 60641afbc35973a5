#include "editing/EntryText.h"

#include "base/ByteSink.h"
#include "base/ByteSource.h"
#include "base/Messages.h"
#include "base/NeskError.h"
#include "menu/BlockParser.h"
#include "menu/MenuItem.h"
#include "menu/MenuKeys.h"
#include "menu/MenuReader.h"
#include "menu/MenuWriter.h"
#include "platform/TextEncoding.h"

#include <algorithm>
#include <cstdint>
#include <optional>

namespace nesk::EntryText {

namespace {

NeskError Refusal(int messageId, std::int32_t line, std::vector<std::string> arguments) {
    NeskError error(5000, "EntryText.Read", messageId, std::move(arguments));
    error.line = line;
    return error;
}

// The error for the first line with a character that is not in the code page.
NeskError NotEncodable(std::string_view text) {
    std::int32_t line = 1;
    for (;; ++line) {
        const std::size_t end = text.find('\n');
        const std::string character = platform::FirstNotEncodable(text.substr(0, end));
        if (!character.empty() || end == std::string_view::npos)
            return Refusal(Message::TextNotEncodable, line,
                           {std::to_string(line), character, std::to_string(platform::CodePage())});
        text.remove_prefix(end + 1);
    }
}

} // namespace

std::string Write(std::span<const MenuItem* const> items) {
    std::string bytes;
    TextSink sink(bytes);
    MenuWriter(sink).WriteItems(items);
    return platform::FromAnsi(bytes);
}

std::vector<std::unique_ptr<MenuItem>> Read(std::string_view text, MenuEntry& parent) {
    // Some programs end a text with a zero.
    text = text.substr(0, text.find('\0'));
    const std::optional<std::string> bytes = platform::ToAnsi(text);
    if (!bytes) throw NotEncodable(text);
    BlockParser parser(MenuKeys);
    parser.Open(std::make_unique<TextSource>(*bytes, ""));
    auto items = MenuReader(parser).ReadItems(parent);
    if (items.empty()) throw Refusal(Message::NoEntriesInText, 1, {});
    return items;
}

} // namespace nesk::EntryText
