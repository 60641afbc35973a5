#include "shell/UiStationFolder.h"

#include "widgets/UiUtilities.h"

#include <utility>

#include <wx/dirdlg.h>
#include <wx/filefn.h>

namespace nesk {

namespace {

StationFolderChooser& Replacement() {
    static StationFolderChooser chooser;
    return chooser;
}

} // namespace

std::string ChooseStationFolder(wxWindow* parent, int promptId, const std::string& folder) {
    if (Replacement()) return Replacement()(parent, promptId, folder);
    // When the folder does not exist, start at the nearest existing folder above it.
    wxString begin = modUtilities::ToWx(folder);
    while (!begin.empty() && !wxDirExists(begin))
        begin = wxPathOnly(begin);
    wxDirDialog dialog(parent, modUtilities::ResText(promptId), begin);
    return dialog.ShowModal() == wxID_OK ? modUtilities::FromWx(dialog.GetPath()) : "";
}

StationFolderChooser SetStationFolderChooser(StationFolderChooser chooser) {
    return std::exchange(Replacement(), std::move(chooser));
}

} // namespace nesk
