#include "platform/OpenFileDialog.h"

#include "platform/portable/Station.h"

#include <utility>

#include <wx/filedlg.h>

namespace nesk::platform {

namespace {

wxString ToWx(const std::string& text) {
    return wxString::FromUTF8(text.data(), text.size());
}

// The folder that stands for a Windows path; the station's C: when there is none.
std::string HostFolder(const std::string& folder) {
    const std::filesystem::path host = portable::ToHostPath(folder);
    std::error_code error;
    return std::filesystem::is_directory(host, error) ? host.string() : portable::ToHostPath("C:\\").string();
}

OpenFileDialogFunction& Replacement() {
    static OpenFileDialogFunction function;
    return function;
}

} // namespace

std::string ShowOpenFileDialog(wxWindow* parent, const OpenFileRequest& request) {
    if (Replacement()) return Replacement()(parent, request);
    const std::string name = request.file.substr(request.file.find_last_of('\\') + 1);
    const wxString filter =
        request.filter.empty() ? wxString(wxFileSelectorDefaultWildcardStr) : ToWx(request.filter);
    wxFileDialog dialog(parent, ToWx(request.title), wxString(HostFolder(request.folder).c_str(), wxConvFile),
                        ToWx(name), filter, wxFD_OPEN | wxFD_FILE_MUST_EXIST);
    if (dialog.ShowModal() != wxID_OK) return "";
    return portable::ToWindowsPath(std::filesystem::path(dialog.GetPath().fn_str().data()));
}

OpenFileDialogFunction SetOpenFileDialog(OpenFileDialogFunction dialog) {
    return std::exchange(Replacement(), std::move(dialog));
}

} // namespace nesk::platform
