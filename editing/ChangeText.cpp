#include "editing/ChangeText.h"

#include "shell/modStringRes.h"
#include "shell/modUtilities.h"

#include <algorithm>

namespace nesk {

namespace {

// In bytes. A menu item with a longer caption would fill the screen.
constexpr std::size_t MaxCaptionLength = 60;

} // namespace

std::string ChangeText(const ChangeName& name) {
    modStringRes::Arguments arguments;
    const std::size_t count = std::min(arguments.size(), name.arguments.size());
    std::transform(name.arguments.begin(), name.arguments.begin() + static_cast<std::ptrdiff_t>(count),
                   arguments.begin(),
                   [](const std::string& text) { return modUtilities::Shortened(text, MaxCaptionLength); });
    return modStringRes::FormatResStringArray(name.textId, arguments);
}

} // namespace nesk
