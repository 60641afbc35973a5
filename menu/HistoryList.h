#pragma once

#include <string>

namespace nesk {

/// The list of measurement histories that the operator interface offers, kept in the registry.
class HistoryList {
public:
    /// Appends an entry. An entry that is listed already is appended again. Raises the errors of RegEntry.
    static void Append(const std::string& directory, const std::string& title);
};

} // namespace nesk
