#include "shell/UiCommandIcons.h"

#include "widgets/UiIcons.h"

#include <algorithm>
#include <string_view>

#include <wx/artprov.h>
#include <wx/defs.h>
#include <wx/window.h>

namespace nesk {

namespace {

// The program's own pictures. The toolkit has one for removing too, but on Windows it is a sheet of paper.
struct OwnPicture {
    std::string_view icon;
    std::string_view key; // of UiIcons.h
};

constexpr OwnPicture OwnPictures[] = {
    {"add-part", "part+add"}, {"add-submenu", "folder+add"}, {"edit", "edit"}, {"remove", "remove"}};

// The toolkit's own commands.
struct StockCommand {
    std::string_view icon;
    int id = wxID_NONE;
    const char* art = nullptr; // null for a command without a button
};

constexpr StockCommand StockCommands[] = {
    {"open", wxID_OPEN, wxART_FILE_OPEN},
    {"save", wxID_SAVE, wxART_FILE_SAVE},
    {"save-as", wxID_SAVEAS},
    {"close", wxID_CLOSE},
    {"exit", wxID_EXIT},
    {"undo", wxID_UNDO, wxART_UNDO},
    {"redo", wxID_REDO, wxART_REDO},
    {"cut", wxID_CUT, wxART_CUT},
    {"copy", wxID_COPY, wxART_COPY},
    {"paste", wxID_PASTE, wxART_PASTE},
    {"duplicate", wxID_DUPLICATE},
    {"select-all", wxID_SELECTALL},
    {"find", wxID_FIND, wxART_FIND},
    {"replace", wxID_REPLACE, wxART_FIND_AND_REPLACE},
    {"up", wxID_UP, wxART_GO_UP},
    {"down", wxID_DOWN, wxART_GO_DOWN},
    {"remove", wxID_REMOVE},
    {"preferences", wxID_PREFERENCES},
    {"help", wxID_HELP_CONTENTS},
    {"about", wxID_ABOUT},
};

constexpr int FirstCommandId = wxID_HIGHEST + 1;

const StockCommand* StockOf(const char* icon) {
    if (icon == nullptr) return nullptr;
    const auto* found = std::find_if(std::begin(StockCommands), std::end(StockCommands),
                                     [icon](const StockCommand& stock) { return stock.icon == icon; });
    return found != std::end(StockCommands) ? found : nullptr;
}

} // namespace

int CommandId(MainCommand command) {
    const StockCommand* stock = StockOf(InfoOf(command).places.icon);
    return stock != nullptr ? stock->id : FirstCommandId + static_cast<int>(command);
}

std::optional<MainCommand> CommandOf(int id) {
    for (const MainCommandInfo& info : MainCommandTable())
        if (CommandId(info.command) == id) return info.command;
    return std::nullopt;
}

wxBitmapBundle CommandIcon(const char* icon) {
    // The program's own pictures get the size of the system's beside them.
    const wxSize size = wxArtProvider::GetDIPSizeHint(wxART_TOOLBAR);
    for (const OwnPicture& own : OwnPictures)
        if (icon != nullptr && own.icon == icon) return IconBundle(own.key, size);
    const StockCommand* stock = StockOf(icon);
    if (stock == nullptr || stock->art == nullptr) return {};
    return wxArtProvider::GetBitmapBundle(stock->art, wxART_TOOLBAR, size);
}

} // namespace nesk
