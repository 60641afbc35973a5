#pragma once

#include <cstdio>
#include <string>

namespace nesk::bench {

/// Prints measured figures and their goals, one per line, and counts the missed goals.
class Table {
public:
    void Heading(const std::string& text);

    /// Prints a figure without a goal.
    void Line(const std::string& what, const std::string& figure);

    /// Prints a ratio whose goal is `goal` or more.
    void AtLeast(const std::string& what, double ratio, double goal);

    /// Prints a figure whose goal is `goal` or less.
    void AtMost(const std::string& what, double figure, double goal, const std::string& unit = "");

    int Missed() const { return m_missed; }

private:
    void Goal(const std::string& what, double figure, double goal, const std::string& unit, bool least);

    std::FILE* m_out = stdout;
    int m_missed = 0;
};

} // namespace nesk::bench
