#include "editing/CompoundChange.h"

namespace nesk {

namespace {

// Runs `step` for each item of a range. When a step fails, runs `back` for the items before it in reverse
// order.
template <typename Iterator, typename Step, typename Back>
bool RunAllOrGoBack(Iterator first, Iterator last, Step step, Back back) {
    Iterator at = first;
    const auto goBack = [&] {
        while (at != first)
            back(**--at);
    };
    try {
        for (; at != last; ++at) {
            if (step(**at)) continue;
            goBack();
            return false;
        }
    } catch (...) {
        goBack();
        throw;
    }
    return true;
}

} // namespace

bool CompoundChange::Apply(Menu& menu, const MenuEventHandler& report) {
    return RunAllOrGoBack(
        m_changes.begin(), m_changes.end(), [&](MenuChange& change) { return change.Apply(menu, report); },
        [&](MenuChange& change) { change.Revert(menu, report); });
}

bool CompoundChange::Revert(Menu& menu, const MenuEventHandler& report) {
    return RunAllOrGoBack(
        m_changes.rbegin(), m_changes.rend(), [&](MenuChange& change) { return change.Revert(menu, report); },
        [&](MenuChange& change) { change.Apply(menu, report); });
}

std::size_t CompoundChange::EventCount() const {
    std::size_t count = 0;
    for (const auto& change : m_changes)
        count += change->EventCount();
    return count;
}

std::size_t CompoundChange::Bytes() const {
    std::size_t bytes = sizeof *this;
    for (const auto& change : m_changes)
        bytes += change->Bytes();
    return bytes;
}

} // namespace nesk
