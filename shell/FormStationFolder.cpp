#include "shell/FormStationFolder.h"

#include "shell/FormUtilities.h"

#include <utility>

#include <wx/dirdlg.h>

namespace nesk {

namespace {

StationFolderChooser& Replacement() {
    static StationFolderChooser chooser;
    return chooser;
}

} // namespace

std::string ChooseStationFolder(wxWindow* parent, int promptId, const std::string& folder) {
    if (Replacement()) return Replacement()(parent, promptId, folder);
    wxDirDialog dialog(parent, modUtilities::ResText(promptId), modUtilities::ToWx(folder));
    return dialog.ShowModal() == wxID_OK ? modUtilities::FromWx(dialog.GetPath()) : "";
}

StationFolderChooser SetStationFolderChooser(StationFolderChooser chooser) {
    return std::exchange(Replacement(), std::move(chooser));
}

} // namespace nesk
