#include "editing/EntryMark.h"

#include "menu/MenuItem.h"

namespace nesk {

EntryMark EntryMarkOf(const MenuItem& item) {
    return item.IsPart() && item.ProgramID().empty() ? EntryMark::NoProgram : EntryMark::None;
}

} // namespace nesk
