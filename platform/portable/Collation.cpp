#include "platform/Collation.h"

#include "platform/UserLocale.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <memory>
#include <numeric>

#include <unicode/ucol.h>
#include <unicode/uloc.h>
#include <unicode/unistr.h>

namespace nesk::platform {

namespace {

struct Closer {
    void operator()(UCollator* collator) const { ucol_close(collator); }
};
using Collator = std::unique_ptr<UCollator, Closer>;

Collator OpenCollator() {
    std::array<char, ULOC_FULLNAME_CAPACITY> name{};
    UErrorCode status = U_ZERO_ERROR;
    uloc_getLocaleForLCID(UserDefaultLocale(), name.data(), static_cast<std::int32_t>(name.size()), &status);
    if (U_FAILURE(status)) name.front() = '\0'; // the root locale, which has an order for every character
    status = U_ZERO_ERROR;
    return Collator(ucol_open(name.data(), &status));
}

// Bytes that compare like the text. Without the data of ICU the order is that of the characters.
std::string SortKey(const UCollator* collator, const std::string& text) {
    if (collator == nullptr) return text;
    const icu::UnicodeString wide = icu::UnicodeString::fromUTF8(text);
    std::vector<std::uint8_t> key(text.size() * 4 + 16);
    const auto fill = [&] {
        return static_cast<std::size_t>(ucol_getSortKey(collator, wide.getBuffer(), wide.length(), key.data(),
                                                        static_cast<std::int32_t>(key.size())));
    };
    std::size_t needed = fill();
    if (needed > key.size()) {
        key.resize(needed);
        needed = fill();
    }
    return {key.begin(), key.begin() + static_cast<std::ptrdiff_t>(needed)};
}

} // namespace

std::vector<std::size_t> SortedOrder(const std::vector<std::string>& texts) {
    static const Collator collator = OpenCollator(); // opening one takes longer than sorting a small menu
    std::vector<std::string> keys;
    keys.reserve(texts.size());
    for (const std::string& text : texts)
        keys.push_back(SortKey(collator.get(), text));
    std::vector<std::size_t> order(texts.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::stable_sort(order.begin(), order.end(),
                     [&](std::size_t a, std::size_t b) { return keys[a] < keys[b]; });
    return order;
}

} // namespace nesk::platform
