#include "checking/EntryPlace.h"

#include "menu/MenuItem.h"

namespace nesk {

namespace {

constexpr int MostNamed = 8;
constexpr const char* Between = " > ";

} // namespace

std::string EntryPlace(const MenuEntry& entry) {
    const MenuEntry* above = entry.ParentMenu();
    if (above == nullptr) return "";
    std::string place(above->Caption());
    // The main menu is above everything, so it is named only when there is nothing else to name.
    if (above->ParentMenu() == nullptr) return place;
    int named = 1;
    for (above = above->ParentMenu(); above->ParentMenu() != nullptr; above = above->ParentMenu()) {
        if (named++ == MostNamed) return "..." + (Between + place);
        place.insert(0, std::string(above->Caption()) + Between);
    }
    return place;
}

} // namespace nesk
