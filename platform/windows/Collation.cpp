#include "platform/Collation.h"

#include "platform/UserLocale.h"
#include "platform/windows/WideText.h"

#include <algorithm>
#include <numeric>

#include <windows.h>

namespace nesk::platform {

std::vector<std::size_t> SortedOrder(const std::vector<std::string>& texts) {
    std::vector<std::wstring> wide;
    wide.reserve(texts.size());
    for (const std::string& text : texts)
        wide.push_back(windows::ToWide(text));
    const LCID locale = UserDefaultLocale();
    std::vector<std::size_t> order(texts.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::stable_sort(order.begin(), order.end(), [&](std::size_t a, std::size_t b) {
        return ::CompareStringW(locale, 0, wide[a].data(), static_cast<int>(wide[a].size()), wide[b].data(),
                                static_cast<int>(wide[b].size())) == CSTR_LESS_THAN;
    });
    return order;
}

} // namespace nesk::platform
