#include "platform/common/TextDecomposition.h"

#include <unicode/normalizer2.h>
#include <unicode/unistr.h>

namespace nesk::platform {

std::string Decomposed(std::string_view text) {
    UErrorCode error = U_ZERO_ERROR;
    const icu::Normalizer2* const form = icu::Normalizer2::getNFDInstance(error);
    if (U_FAILURE(error)) return std::string(text);
    const auto before =
        icu::UnicodeString::fromUTF8(icu::StringPiece(text.data(), static_cast<std::int32_t>(text.size())));
    const icu::UnicodeString after = form->normalize(before, error);
    if (U_FAILURE(error)) return std::string(text);
    std::string result;
    return after.toUTF8String(result);
}

} // namespace nesk::platform
