#pragma once

#include <chrono>
#include <string>
#include <string_view>

namespace nesk::platform {

class TreeNode;

/// Type-ahead search in a tree: it finds the next row whose text begins with the typed characters, including
/// spaces, without regard to case. A pause starts a new search. It does not depend on any window.
class TypeAhead {
public:
    using Clock = std::chrono::steady_clock;

    /// A longer pause between two characters starts a new search.
    static constexpr std::chrono::milliseconds Pause{1000};

    /// True while a search is being typed; a space then belongs to it.
    bool IsTyping(Clock::time_point now) const { return !m_typed.empty() && now - m_last <= Pause; }

    /// Adds typed characters and searches for the text so far. The first character of a search selects a row
    /// after `current`; further characters keep the row while it still matches. Typing the same character
    /// again moves to the next row that begins with it, unless a row begins with both characters. At the end
    /// the search wraps around. Takes time proportional to the number of rows.
    /// @param characters  one or more characters in UTF-8; a space at the start of a search is ignored
    /// @param root        root of the tree
    /// @param current     row at which the search starts; null for the first
    /// @return the row found; null when no row matches
    TreeNode* Type(std::string_view characters, TreeNode& root, TreeNode* current, Clock::time_point now);

    /// Ends the search.
    void Reset() {
        m_typed.clear();
        m_missed = false;
    }

    /// True when the last typed text was not found, until Reset or the next search.
    bool HasMissed() const { return m_missed; }

    /// The characters typed so far.
    const std::string& Typed() const { return m_typed; }

private:
    TreeNode* Search(std::string_view characters, TreeNode& root, TreeNode* current);

    std::string m_typed;
    bool m_missed = false;
    Clock::time_point m_last;
};

} // namespace nesk::platform
