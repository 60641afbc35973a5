#pragma once

#include <chrono>
#include <string>
#include <string_view>

namespace nesk::platform {

class TreeNode;

/// The search that begins when a text is typed in a tree: it finds the next row whose text begins with what
/// was typed, spaces included, without regard to case. A pause begins a new search. It knows no window.
class TypeAhead {
public:
    using Clock = std::chrono::steady_clock;

    /// A longer pause between two characters begins a new search.
    static constexpr std::chrono::milliseconds Pause{1000};

    /// Whether a search is being typed, so that a space belongs to it.
    bool IsTyping(Clock::time_point now) const { return !m_typed.empty() && now - m_last <= Pause; }

    /// Adds what was typed and looks for it. The first character of a search goes to the next row after
    /// `current`; the following ones stay where they still fit. The same character typed again goes on to the
    /// next row that begins with it, unless a row begins with both. The search goes round at the end. Takes
    /// time in proportion to the number of rows.
    /// @param characters  one or more characters in UTF-8; a space that begins a search is ignored
    /// @param root        root of the tree
    /// @param current     row at which the search begins; null for the first
    /// @return the row found; null when there is none
    TreeNode* Type(std::string_view characters, TreeNode& root, TreeNode* current, Clock::time_point now);

    /// Ends the search.
    void Reset() {
        m_typed.clear();
        m_missed = false;
    }

    /// Whether what was typed last was not found. Holds until Reset or the next search.
    bool HasMissed() const { return m_missed; }

    /// What was typed so far.
    const std::string& Typed() const { return m_typed; }

private:
    TreeNode* Search(std::string_view characters, TreeNode& root, TreeNode* current);

    std::string m_typed;
    bool m_missed = false;
    Clock::time_point m_last;
};

} // namespace nesk::platform
