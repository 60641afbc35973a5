#include "versions/ChildCount.h"

#include "base/NeskError.h"
#include "base/VersionMessages.h"
#include "menu/MenuEntry.h"
#include "menu/MenuItemCollection.h"

#include <string>

namespace nesk {

void CheckChildCount(const MenuEntry& parent, std::size_t count, const char* source) {
    if (count > static_cast<std::size_t>(MenuItemCollection::MaxCount))
        throw NeskError(RuntimeError::Overflow, source, Message::MergeTooManyChildren,
                        {std::string(parent.Caption()), std::to_string(MenuItemCollection::MaxCount)});
}

} // namespace nesk
