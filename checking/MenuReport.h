#pragma once

#include <functional>
#include <string>

namespace nesk {

class Menu;
class MenuCheck;

/// What a report needs besides the menu.
struct ReportOptions {
    std::string menuPath; ///< path of the menu file; "" for a menu without one
    std::string date;     ///< date and time as the user writes them

    /// Returns the address of a small picture of a picture file, for "src"; "" when it cannot be shown. Empty
    /// for a report without pictures.
    std::function<std::string(const std::string& path)> pictureAddress;

    /// True for a report on paper: without links, and with spaces in long paths, so that lines can end there.
    bool isForPaper = false;

    bool isUnsaved = false; ///< the menu has changes that are not in the file
};

/// Makes a page about a menu: a table of contents, the problems, and for each submenu its entries with their
/// fields and problems. It is plain HTML, which browsers and the toolkit's printing understand.
/// @param check  of the same menu; what it has not found yet is missing
std::string MenuReport(const Menu& menu, const MenuCheck& check, const ReportOptions& options);

} // namespace nesk
