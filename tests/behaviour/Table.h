#pragma once

#include <cstdint>
#include <ostream>
#include <string>
#include <string_view>

namespace nesk::behaviour {

/// Writes what the station answers, a line an answer: the case's name, a tab, the answer. The same program
/// does it on each kind of station; what both write has to be equal.
class Table {
public:
    /// @param out      takes the lines
    /// @param isWine   whether the system is Wine and not Windows
    Table(std::ostream& out, bool isWine) : m_out(out), m_isWine(isWine) {}

    /// A case whose answer is the same everywhere.
    void Add(std::string_view name, const std::string& answer);
    void Add(std::string_view name, std::int64_t answer) { Add(name, std::to_string(answer)); }

    /// A case that Wine answers otherwise than Windows is documented to. Everywhere but on Wine the answer
    /// has to be the documented one; there the documented one is written in its place.
    /// @param why  what is documented, and what Wine does
    void AddDocumented(std::string_view name, const std::string& answer, const std::string& documented,
                       std::string_view why);

    /// How many cases were not answered as documented.
    int Failures() const { return m_failures; }

private:
    std::ostream& m_out;
    bool m_isWine;
    int m_failures = 0;
};

/// Bytes as printable text: what is no printable ASCII, and "\", as \xx.
std::string Shown(std::string_view bytes);

// The groups of cases.
void AddRegistryCases(Table& table);
void AddProfileCases(Table& table);
void AddStringCases(Table& table);
void AddPathCases(Table& table);

} // namespace nesk::behaviour
