#include "versions/Matcher.h"

#include "versions/EntryFields.h"
#include "versions/TextHash.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <map>
#include <unordered_map>

namespace nesk {

namespace {

constexpr int None = FlatMenu::None;

// What a user calls the same entry even when its other fields differ.
std::uint64_t NameOf(const MenuEntry& entry) {
    TextHash hash;
    hash.Add(EntryFields::TextOf(entry, MenuKey::Caption));
    hash.Add(EntryFields::TextOf(entry, MenuKey::ProgramId));
    hash.Add(EntryFields::TextOf(entry, MenuKey::MenuType));
    return hash.Value();
}

std::uint64_t ProgramOf(const MenuEntry& entry) {
    TextHash hash;
    hash.Add(EntryFields::TextOf(entry, MenuKey::ProgramId));
    hash.Add(EntryFields::TextOf(entry, MenuKey::MenuType));
    return hash.Value();
}

std::uint64_t CaptionOf(const MenuEntry& entry) {
    TextHash hash;
    hash.Add(EntryFields::TextOf(entry, MenuKey::Caption));
    hash.Add(std::uint64_t{EntryFields::IsPart(entry)});
    return hash.Value();
}

bool HasProgram(const MenuEntry& entry) {
    return !EntryFields::TextOf(entry, MenuKey::ProgramId).empty();
}

// True when two entries of one place may be one entry that was edited: few fields differ, or as many fields
// with a text are equal.
bool AreSimilar(const MenuEntry& one, const MenuEntry& other) {
    if (EntryFields::IsPart(one) != EntryFields::IsPart(other)) return false;
    // Another caption for another program is another part.
    if (!EntryFields::IsSame(one, other, MenuKey::Caption) &&
        !EntryFields::IsSame(one, other, MenuKey::ProgramId) && HasProgram(one) && HasProgram(other))
        return false;
    constexpr int few = 2;
    int different = EntryFields::TopicOf(one) != EntryFields::TopicOf(other) ? 1 : 0;
    int equal = 0;
    for (const MenuKey field : EntryFields::Texts) {
        if (!EntryFields::IsSame(one, other, field))
            ++different;
        else if (field != MenuKey::MenuType && !EntryFields::TextOf(one, field).empty())
            ++equal;
    }
    return different <= few || equal >= different;
}

} // namespace

Matcher::Matcher(const FlatMenu& before, const FlatMenu& after, std::vector<int>& toAfter,
                 std::vector<int>& toBefore)
    : m_one(before), m_other(after), m_after(toAfter), m_before(toBefore) {}

void Matcher::Run() {
    MatchBelow(0, 0);
    MatchMovedSubtrees(Others::OnlyUnique);
    MatchMovedEntries(Others::OnlyUnique);
    MatchByChildren();
    MatchEdited();
    MatchMovedSubtrees(Others::ByOrder);
    MatchMovedEntries(Others::ByOrder);
    MatchEdited();
}

void Matcher::Match(int before, int after) {
    m_after[static_cast<std::size_t>(before)] = after;
    m_before[static_cast<std::size_t>(after)] = before;
}

// Matches two equal subtrees entry by entry, as far as none of them is matched elsewhere.
void Matcher::MatchSubtrees(int before, int after) {
    const int count = m_one.End(before) - before;
    for (int i = 0; i < count; ++i)
        if (IsFree(before + i) && IsFreeAfter(after + i)) Match(before + i, after + i);
}

// Matches two entries, and what is below them.
void Matcher::MatchBelow(int before, int after) {
    Match(before, after);
    m_open.emplace_back(before, after);
    while (!m_open.empty()) {
        const auto [one, other] = m_open.back();
        m_open.pop_back();
        if (m_one.Subtree(one) == m_other.Subtree(other))
            MatchSubtrees(one, other);
        else
            MatchChildren(one, other);
    }
}

// Pairs the entries of two lists that have the same key, the first with the first.
// @param others  what happens to entries that share their key with others of their list
template <typename KeyOf, typename Pair>
void Matcher::PairByKey(const std::vector<int>& before, const std::vector<int>& after, KeyOf keyOf,
                        Others others, Pair pair) {
    struct Place {
        std::vector<int> before;
        std::size_t next = 0;
        int after = 0;
    };
    if (before.empty() || after.empty()) return;
    std::unordered_map<Key, Place> places;
    for (const int at : before)
        if (IsFree(at)) places[keyOf(m_one, at)].before.push_back(at);
    if (others == Others::OnlyUnique)
        for (const int at : after)
            if (const auto found = places.find(keyOf(m_other, at)); found != places.end() && IsFreeAfter(at))
                ++found->second.after;
    for (const int at : after) {
        if (!IsFreeAfter(at)) continue;
        const auto found = places.find(keyOf(m_other, at));
        if (found == places.end()) continue;
        Place& place = found->second;
        if (others == Others::OnlyUnique && (place.before.size() > 1 || place.after > 1)) continue;
        // An entry may have been matched meanwhile, together with one above it.
        while (place.next < place.before.size() && !IsFree(place.before[place.next]))
            ++place.next;
        if (place.next < place.before.size()) pair(place.before[place.next++], at);
    }
}

// Matches equal children from the front and from the back, and removes them from the lists.
void Matcher::TrimEqualEnds(std::vector<int>& before, std::vector<int>& after) {
    const auto isEqual = [this](int one, int other) {
        return m_one.Subtree(one) == m_other.Subtree(other) && IsFree(one) && IsFreeAfter(other);
    };
    std::size_t front = 0;
    while (front < before.size() && front < after.size() && isEqual(before[front], after[front])) {
        MatchSubtrees(before[front], after[front]);
        ++front;
    }
    while (before.size() > front && after.size() > front && isEqual(before.back(), after.back())) {
        MatchSubtrees(before.back(), after.back());
        before.pop_back();
        after.pop_back();
    }
    before.erase(before.begin(), before.begin() + static_cast<std::ptrdiff_t>(front));
    after.erase(after.begin(), after.begin() + static_cast<std::ptrdiff_t>(front));
}

// Matches the children of two matched entries by their contents and names.
void Matcher::MatchChildren(int before, int after) {
    std::vector<int> one = m_one.Children(before);
    std::vector<int> other = m_other.Children(after);
    TrimEqualEnds(one, other);
    const auto pair = [this](int x, int y) {
        Match(x, y);
        m_open.emplace_back(x, y);
    };
    PairByKey(
        one, other, [](const FlatMenu& menu, int at) { return menu.Subtree(at); }, Others::ByOrder, pair);
    PairByKey(
        one, other, [](const FlatMenu& menu, int at) { return NameOf(menu.Entry(at)); }, Others::ByOrder,
        pair);
}

std::vector<int> Matcher::FreeBefore() const {
    std::vector<int> free;
    for (int at = 1; at < m_one.Count(); ++at)
        if (IsFree(at)) free.push_back(at);
    return free;
}

std::vector<int> Matcher::FreeAfter() const {
    std::vector<int> free;
    for (int at = 1; at < m_other.Count(); ++at)
        if (IsFreeAfter(at)) free.push_back(at);
    return free;
}

// Matches equal subtrees in different places. The lists have parents before children, so the largest subtrees
// come first.
void Matcher::MatchMovedSubtrees(Others others) {
    PairByKey(
        FreeBefore(), FreeAfter(), [](const FlatMenu& menu, int at) { return menu.Subtree(at); }, others,
        [this](int one, int other) { MatchSubtrees(one, other); });
}

// Matches submenus whose fields differ when most of their children have matched, from the inside out.
void Matcher::MatchByChildren() {
    const std::vector<int> free = FreeBefore();
    for (auto at = free.rbegin(); at != free.rend(); ++at) {
        std::map<int, int> votes;
        for (int child = m_one.FirstChild(*at); child != None; child = m_one.NextSibling(child))
            if (!IsFree(child)) ++votes[m_other.Parent(m_after[static_cast<std::size_t>(child)])];
        int best = None;
        for (const auto& [candidate, count] : votes)
            if (IsFreeAfter(candidate) && (best == None || count > votes[best])) best = candidate;
        if (best == None || EntryFields::IsPart(m_one.Entry(*at)) != EntryFields::IsPart(m_other.Entry(best)))
            continue;
        MatchBelow(*at, best);
    }
}

void Matcher::MatchMovedEntries(Others others) {
    const auto pair = [this](int one, int other) { MatchBelow(one, other); };
    PairByKey(
        FreeBefore(), FreeAfter(), [](const FlatMenu& menu, int at) { return menu.Content(at); }, others,
        pair);
    // A name alone tells nothing when several entries have it.
    PairByKey(
        FreeBefore(), FreeAfter(), [](const FlatMenu& menu, int at) { return NameOf(menu.Entry(at)); },
        Others::OnlyUnique, pair);
}

void Matcher::MatchEdited() {
    // New matches below are reached later, because children come after their parents.
    for (int at = 0; at < m_one.Count(); ++at)
        if (!IsFree(at)) MatchEditedIn(at, m_after[static_cast<std::size_t>(at)]);
}

// Matches the children of two matched entries by a program or a caption that only one of them has on each
// side.
void Matcher::MatchPartly(int before, int after) {
    std::vector<int> one = m_one.Children(before);
    std::vector<int> other = m_other.Children(after);
    std::erase_if(one, [this](int at) { return !IsFree(at); });
    std::erase_if(other, [this](int at) { return !IsFreeAfter(at); });
    const auto pair = [this](int x, int y) { MatchBelow(x, y); };
    // Entries without a program would all be equal.
    std::vector<int> oneWith;
    std::vector<int> otherWith;
    std::copy_if(one.begin(), one.end(), std::back_inserter(oneWith),
                 [this](int at) { return HasProgram(m_one.Entry(at)); });
    std::copy_if(other.begin(), other.end(), std::back_inserter(otherWith),
                 [this](int at) { return HasProgram(m_other.Entry(at)); });
    PairByKey(
        oneWith, otherWith, [](const FlatMenu& menu, int at) { return ProgramOf(menu.Entry(at)); },
        Others::OnlyUnique, pair);
    PairByKey(
        one, other, [](const FlatMenu& menu, int at) { return CaptionOf(menu.Entry(at)); },
        Others::OnlyUnique, pair);
}

// Matches the children of two matched entries that stand between the same matched neighbours.
void Matcher::MatchEditedIn(int before, int after) {
    if (m_one.Subtree(before) == m_other.Subtree(after)) return;
    MatchPartly(before, after);
    std::vector<int> gap;
    std::vector<int> otherGap;
    int other = m_other.FirstChild(after);
    for (int one = m_one.FirstChild(before);; one = m_one.NextSibling(one)) {
        if (one != None && IsFree(one)) {
            gap.push_back(one);
            continue;
        }
        // The neighbour after the gap. A child that went elsewhere or changed its order does not count.
        const int neighbour = one != None ? m_after[static_cast<std::size_t>(one)] : None;
        if (one != None && (m_other.Parent(neighbour) != after || neighbour < other || other == None))
            continue;
        otherGap.clear();
        for (; other != neighbour && other != None; other = m_other.NextSibling(other))
            if (IsFreeAfter(other)) otherGap.push_back(other);
        MatchGap(gap, otherGap);
        gap.clear();
        if (one == None) return;
        other = m_other.NextSibling(other);
    }
}

void Matcher::MatchGap(const std::vector<int>& before, const std::vector<int>& after) {
    // How far to look ahead: a long list against another one would take too long.
    constexpr std::ptrdiff_t farthest = 16;
    auto other = after.begin();
    for (const int one : before) {
        const auto last = other + std::min(farthest, after.end() - other);
        const auto found = std::find_if(
            other, last, [&](int at) { return AreSimilar(m_one.Entry(one), m_other.Entry(at)); });
        if (found == last) continue;
        other = found + 1;
        MatchBelow(one, *found);
    }
    // A single entry of the same name whose kind was changed.
    if (before.size() == 1 && after.size() == 1 && IsFree(before.front()) && IsFreeAfter(after.front()) &&
        EntryFields::IsSame(m_one.Entry(before.front()), m_other.Entry(after.front()), MenuKey::Caption))
        MatchBelow(before.front(), after.front());
}

} // namespace nesk
