#include "versions/TreeMatch.h"

#include "versions/Matcher.h"

namespace nesk {

TreeMatch::TreeMatch(const FlatMenu& before, const FlatMenu& after)
    : m_after(static_cast<std::size_t>(before.Count()), FlatMenu::None)
    , m_before(static_cast<std::size_t>(after.Count()), FlatMenu::None) {
    Matcher(before, after, m_after, m_before).Run();
}

} // namespace nesk
