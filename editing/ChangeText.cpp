#include "editing/ChangeText.h"

#include "platform/Utf8.h"
#include "shell/modStringRes.h"

#include <algorithm>

namespace nesk {

namespace {

// In bytes. A menu item with a longer caption would fill the screen.
constexpr std::size_t MaxCaptionLength = 60;

std::string Shortened(const std::string& text) {
    if (text.size() <= MaxCaptionLength) return text;
    std::size_t length = MaxCaptionLength;
    while (length > 0 && platform::ContinuesCharacter(text[length]))
        --length;
    return text.substr(0, length) + "...";
}

} // namespace

std::string ChangeText(const ChangeName& name) {
    modStringRes::Arguments arguments;
    const std::size_t count = std::min(arguments.size(), name.arguments.size());
    std::transform(name.arguments.begin(), name.arguments.begin() + static_cast<std::ptrdiff_t>(count),
                   arguments.begin(), Shortened);
    return modStringRes::FormatResStringArray(name.textId, arguments);
}

} // namespace nesk
