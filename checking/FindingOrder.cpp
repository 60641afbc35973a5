#include "checking/FindingOrder.h"

#include "checking/EntryPlace.h"
#include "checking/MenuCheck.h"
#include "menu/MenuEntry.h"
#include "platform/Collation.h"

#include <algorithm>
#include <numeric>
#include <string>
#include <string_view>

namespace nesk {

namespace {

std::vector<std::size_t> WorstFirst(const MenuCheck& check) {
    std::vector<Severity> severities(check.Count());
    for (std::size_t i = 0; i < severities.size(); ++i)
        severities[i] = check.At(i).severity;
    std::vector<std::size_t> order(severities.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::stable_sort(order.begin(), order.end(),
                     [&](std::size_t a, std::size_t b) { return severities[a] > severities[b]; });
    return order;
}

std::string KeyOf(const Finding& finding, FindingOrder order) {
    switch (order) {
    case FindingOrder::Entry: return std::string(finding.entry->Caption());
    case FindingOrder::Place: return EntryPlace(*finding.entry);
    case FindingOrder::Field: return finding.FieldName();
    default: return finding.Text();
    }
}

} // namespace

std::vector<std::size_t> OrderFindings(const MenuCheck& check, FindingOrder order, bool reversed) {
    std::vector<std::size_t> indexes;
    if (order == FindingOrder::Menu) {
        indexes.resize(check.Count());
        std::iota(indexes.begin(), indexes.end(), std::size_t{0});
    } else if (order == FindingOrder::Severity) {
        indexes = WorstFirst(check);
    } else {
        std::vector<std::string> keys;
        keys.reserve(check.Count());
        for (std::size_t i = 0; i < check.Count(); ++i)
            keys.push_back(KeyOf(check.At(i), order));
        indexes = platform::SortedOrder(keys);
    }
    if (reversed) std::reverse(indexes.begin(), indexes.end());
    return indexes;
}

} // namespace nesk
