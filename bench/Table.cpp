#include "bench/Table.h"

namespace nesk::bench {

void Table::Heading(const std::string& text) {
    std::fprintf(m_out, "\n%s\n", text.c_str());
}

void Table::Line(const std::string& what, const std::string& figure) {
    std::fprintf(m_out, "  %-58s %s\n", what.c_str(), figure.c_str());
    std::fflush(m_out);
}

void Table::AtLeast(const std::string& what, double ratio, double goal) {
    Goal(what, ratio, goal, "", true);
}

void Table::AtMost(const std::string& what, double figure, double goal, const std::string& unit) {
    Goal(what, figure, goal, unit, false);
}

void Table::Goal(const std::string& what, double figure, double goal, const std::string& unit, bool least) {
    const bool reached = least ? figure >= goal : figure <= goal;
    if (!reached) ++m_missed;
    char text[160];
    std::snprintf(text, sizeof text, "%8.2f%s   goal: %s %.2f   %s", figure, unit.c_str(),
                  least ? "at least" : "at most", goal, reached ? "PASS" : "MISSED");
    std::string line = text;
    if (!reached) {
        std::snprintf(text, sizeof text, " by %.0f %%",
                      100 * (least ? goal / figure - 1 : figure / goal - 1));
        line += text;
    }
    Line(what, line);
}

} // namespace nesk::bench
