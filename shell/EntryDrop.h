#pragma once

#include <string>

namespace nesk {

/// Where entries are dropped, in the tree or in the preview: before or after an entry, or to the end of the
/// entries in it (On).
struct EntryDrop {
    enum class Where { Before, On, After };

    std::string id; ///< of the entry; "" for no place
    Where where = Where::On;
    bool copies = false; ///< copies are made and the dragged entries stay

    bool operator==(const EntryDrop&) const = default;
};

} // namespace nesk
