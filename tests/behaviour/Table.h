#pragma once

#include "platform/ErrorCode.h"

#include <cstdint>
#include <ostream>
#include <string>
#include <string_view>

namespace nesk::behaviour {

/// Writes the answers of a station: one line for each case, with its name, a tab and the answer. The same
/// program runs on each kind of station, and the outputs must be equal.
class Table {
public:
    /// @param out      stream that the lines are written to
    /// @param isWine   true on Wine, false on Windows
    Table(std::ostream& out, bool isWine) : m_out(out), m_isWine(isWine) {}

    /// Adds a case with the same answer on every system.
    void Add(std::string_view name, const std::string& answer);
    void Add(std::string_view name, std::int64_t answer) { Add(name, std::to_string(answer)); }
    void Add(std::string_view name, platform::ErrorCode answer) { Add(name, std::int64_t{Number(answer)}); }

    /// Adds a case in which Wine differs from the documented behaviour of Windows. On any other system the
    /// answer must be the documented one. On Wine the documented answer is written instead.
    /// @param why  the documented behaviour, and what Wine does instead
    void AddDocumented(std::string_view name, const std::string& answer, const std::string& documented,
                       std::string_view why);

    /// Number of answers that differ from the documented ones.
    int Failures() const { return m_failures; }

private:
    std::ostream& m_out;
    bool m_isWine;
    int m_failures = 0;
};

/// Bytes as printable text. "\" and bytes that are not printable ASCII become \xx.
std::string Shown(std::string_view bytes);

// The groups of cases.
void AddRegistryCases(Table& table);
void AddProfileCases(Table& table);
void AddStringCases(Table& table);
void AddPathCases(Table& table);

} // namespace nesk::behaviour
