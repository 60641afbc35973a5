#pragma once

namespace nesk {

class MenuItem;

/// What the picture of an entry says besides its kind.
enum class EntryMark {
    None,
    NoProgram ///< a part button that starts no program
};

/// The mark of an entry.
EntryMark EntryMarkOf(const MenuItem& item);

} // namespace nesk
