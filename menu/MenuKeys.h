#pragma once

#include "menu/LineScan.h"

#include <array>
#include <cstddef>

namespace nesk {

/// The keys of an entry's block in a menu file, in the order in which they are written. The root has only the
/// first two.
enum class MenuKey : std::size_t {
    Caption,
    Graphic,
    Preview,
    HelpFile,
    HelpTopic,
    MenuType,
    ProgramId,
    HistoryDir,
    HistoryTitle,
};

/// The names of the keys in the file, indexed by MenuKey.
inline constexpr std::array MenuKeys{
    LineScan::Key("CAPTION"),   LineScan::Key("GRAPHIC"),     LineScan::Key("PREVIEW"),
    LineScan::Key("HELPFILE"),  LineScan::Key("HELPTOPIC"),   LineScan::Key("MENUTYPE"),
    LineScan::Key("PROGRAMID"), LineScan::Key("HISTORY_DIR"), LineScan::Key("HISTORY_TITLE"),
};

} // namespace nesk
