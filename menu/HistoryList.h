#pragma once

#include <string>

namespace nesk {

class MenuItem;
class RegEntry;

/// The list of measurement histories that the operator interface offers, kept in the registry.
class HistoryList {
public:
    /// Appends an entry, under the number behind the one that is stored as the last, be that negative. An
    /// entry that is listed already is appended again. Raises Overflow when there is no such number in 32
    /// bits, and the errors of RegEntry with what is wrong with the registry and where it lies.
    static void Append(const std::string& directory, const std::string& title);

    /// Appends the history of a part, if it has one.
    static void Register(const MenuItem& item);

private:
    static void Append(RegEntry& entry, const std::string& directory, const std::string& title);
};

} // namespace nesk
