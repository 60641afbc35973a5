#include "base/Messages.h"
#include "shell/modMessageBox.h"
#include "shell/modStringRes.h"
#include "shell/modUtilities.h"

#include <algorithm>
#include <cstddef>

namespace nesk::modUtilities {

namespace {

void Show(const std::string& text) {
    modMessageBox::ShowMessage(text, modMessageBox::Option::Critical,
                               modStringRes::LoadResString(Message::ErrorTitle));
}

// A text from a damaged file may be longer than any window can show.
constexpr std::size_t MaxArgumentLength = 1000;

} // namespace

std::string MessageText(const NeskError& error) {
    modStringRes::Arguments arguments;
    const std::size_t count = std::min(arguments.size(), error.arguments.size());
    std::transform(error.arguments.begin(), error.arguments.begin() + static_cast<std::ptrdiff_t>(count),
                   arguments.begin(),
                   [](const std::string& text) { return Shortened(text, MaxArgumentLength); });
    if (error.cause && count < arguments.size()) arguments[count] = MessageText(*error.cause);
    return modStringRes::FormatResStringArray(error.messageId, arguments);
}

std::string ErrorText(const NeskError& error) {
    const std::string text = MessageText(error);
    if (error.file.empty()) return modStringRes::FormatResString(Message::ErrorPlain, error.number, text);
    if (error.line == 0)
        return modStringRes::FormatResString(Message::ErrorWithFile, error.number, text, error.file);
    return modStringRes::FormatResString(Message::ErrorWithLine, error.number, text, error.line, error.file);
}

void ReportError(const NeskError& error) {
    Show(ErrorText(error));
}

void ReportError(const std::exception& error) {
    if (const auto* known = dynamic_cast<const NeskError*>(&error)) return ReportError(*known);
    Show(modStringRes::FormatResString(Message::ErrorUnexpected, error.what()));
}

} // namespace nesk::modUtilities
