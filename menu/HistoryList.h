#pragma once

#include <string>

namespace nesk {

class MenuItem;
class RegEntry;

/// The list of measurement histories that the operator interface offers, kept in the registry.
class HistoryList {
public:
    /// Appends an entry. Its number is the stored number of the last entry plus 1, even when that number is
    /// negative. An entry that is already in the list is appended again. Raises Overflow when the new number
    /// does not fit in 32 bits, and the errors of RegEntry, with the cause and the location of the registry.
    static void Append(const std::string& directory, const std::string& title);

    /// Appends the history of a part. Does nothing when the part has no history.
    static void Register(const MenuItem& item);

private:
    static void Append(RegEntry& entry, const std::string& directory, const std::string& title);
};

} // namespace nesk
