#include "platform/OpenFileDialog.h"

#include "platform/common/FileFilter.h"
#include "platform/common/NativePath.h"

#include <utility>

#include <wx/filedlg.h>

namespace nesk::platform {

namespace {

wxString ToWx(const std::string& text) {
    return wxString::FromUTF8(text.data(), text.size());
}

// The native folder of a Windows path; the station's C: when that folder does not exist.
wxString NativeFolder(const std::string& folder) {
    const std::filesystem::path native = common::ToNativePath(folder);
    std::error_code error;
    const bool exists = std::filesystem::is_directory(native, error);
    return wxString((exists ? native : common::ToNativePath("C:\\")).c_str(), wxConvFile);
}

OpenFileDialogFunction& Replacement() {
    static OpenFileDialogFunction function;
    return function;
}

} // namespace

std::string ShowOpenFileDialog(wxWindow* parent, const OpenFileRequest& request) {
    if (Replacement()) return Replacement()(parent, request);
    const std::string name = request.file.substr(request.file.find_last_of('\\') + 1);
    const wxString filter = request.filter.empty() ? wxString(wxFileSelectorDefaultWildcardStr)
                                                   : ToWx(common::NativeFilter(request.filter));
    wxFileDialog dialog(parent, ToWx(request.title), NativeFolder(request.folder), ToWx(name), filter,
                        wxFD_OPEN | wxFD_FILE_MUST_EXIST);
    if (dialog.ShowModal() != wxID_OK) return "";
    const wxString chosen = dialog.GetPath();
    const std::filesystem::path::value_type* const native = chosen.fn_str();
    return common::FromNativePath(native);
}

OpenFileDialogFunction SetOpenFileDialog(OpenFileDialogFunction dialog) {
    return std::exchange(Replacement(), std::move(dialog));
}

} // namespace nesk::platform
