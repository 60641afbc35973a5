#include "base/NeskError.h"

#include <utility>

namespace nesk {

namespace {

// For logs and debuggers only; the texts shown to the user come from the string tables.
std::string Describe(int number, const std::string& source, int messageId,
                     const std::vector<std::string>& arguments) {
    std::string text =
        "error " + std::to_string(number) + " in " + source + ", message " + std::to_string(messageId);
    for (const std::string& argument : arguments)
        text += " [" + argument + "]";
    return text;
}

} // namespace

NeskError::NeskError(int errorNumber, std::string errorSource, int errorMessageId,
                     std::vector<std::string> errorArguments)
    : std::runtime_error(Describe(errorNumber, errorSource, errorMessageId, errorArguments))
    , number(errorNumber)
    , source(std::move(errorSource))
    , messageId(errorMessageId)
    , arguments(std::move(errorArguments)) {}

} // namespace nesk
