#pragma once

#include "partedit/FoundParts.h"

#include <memory>
#include <optional>
#include <string>

namespace nesk {

/// A search for part programs that runs in a thread of its own, so that a share that answers late holds up no
/// window. The thread gets a path and returns values; it touches neither the menu nor a window.
class PartSearch {
public:
    /// Starts a search.
    /// @param folder  as for FindParts
    explicit PartSearch(const std::string& folder);

    /// Stops the search. Waits only a moment for it: a thread that the system does not let go ends by itself
    /// later, and its result is dropped.
    ~PartSearch();
    PartSearch(const PartSearch&) = delete;
    PartSearch& operator=(const PartSearch&) = delete;

    /// Asks the search to stop. It ends before the next folder.
    void Stop();

    PartSearchProgress Progress() const;

    /// What was found, once, when the search has ended; nothing before and afterwards.
    std::optional<FoundParts> Take();

private:
    struct Shared;
    static void Run(const std::string& folder, Shared& shared);

    std::shared_ptr<Shared> m_shared;
};

} // namespace nesk
