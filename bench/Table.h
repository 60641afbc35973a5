#pragma once

#include <cstdio>
#include <string>

namespace nesk::bench {

/// Prints what was measured against what was meant to be reached, a line each, and counts what was missed.
class Table {
public:
    void Heading(const std::string& text);

    /// A figure without a goal.
    void Line(const std::string& what, const std::string& figure);

    /// A ratio that should be `goal` or more.
    void AtLeast(const std::string& what, double ratio, double goal);

    /// A figure that should be `goal` or less.
    void AtMost(const std::string& what, double figure, double goal, const std::string& unit = "");

    int Missed() const { return m_missed; }

private:
    void Goal(const std::string& what, double figure, double goal, const std::string& unit, bool least);

    std::FILE* m_out = stdout;
    int m_missed = 0;
};

} // namespace nesk::bench
