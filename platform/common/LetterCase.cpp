#include "platform/LetterCase.h"

#include "platform/Utf8.h"
#include "platform/common/StationText.h"

namespace nesk::platform {

std::string InCase(std::string_view text, LetterCase letters, int languageId) {
    if (letters == LetterCase::Unchanged) return std::string(text);
    std::string result;
    result.reserve(text.size());
    while (!text.empty()) {
        const std::size_t length = Utf8Length(text);
        if (length == 0)
            result += text.front();
        else
            Utf8Append(result, common::InCase(Utf8Decode(text.substr(0, length)), letters, languageId));
        text.remove_prefix(length == 0 ? 1 : length);
    }
    return result;
}

} // namespace nesk::platform
