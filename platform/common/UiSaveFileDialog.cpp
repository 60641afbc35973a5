#include "platform/SaveFileDialog.h"

#include "platform/common/NativePath.h"

#include <system_error>
#include <utility>

#include <wx/filedlg.h>

namespace nesk::platform {

namespace {

OpenFileDialogFunction& Replacement() {
    static OpenFileDialogFunction function;
    return function;
}

// The native folder of a Windows path; empty when that folder does not exist or cannot be reached, so that
// the system proposes one.
wxString NativeFolder(const std::string& folder) {
    const std::filesystem::path native = common::ToNativePath(folder);
    std::error_code error;
    return std::filesystem::is_directory(native, error) ? wxString(native.c_str(), wxConvFile) : wxString();
}

} // namespace

std::string ShowSaveFileDialog(wxWindow* parent, const OpenFileRequest& request) {
    if (Replacement()) return Replacement()(parent, request);
    const std::string name = request.file.substr(request.file.find_last_of('\\') + 1);
    wxFileDialog dialog(parent, wxString::FromUTF8(request.title), NativeFolder(request.folder),
                        wxString::FromUTF8(name), wxString::FromUTF8(request.filter),
                        wxFD_SAVE | wxFD_OVERWRITE_PROMPT);
    if (dialog.ShowModal() != wxID_OK) return "";
    const wxString chosen = dialog.GetPath();
    const std::filesystem::path::value_type* const native = chosen.fn_str();
    return common::FromNativePath(native);
}

OpenFileDialogFunction SetSaveFileDialog(OpenFileDialogFunction dialog) {
    return std::exchange(Replacement(), std::move(dialog));
}

} // namespace nesk::platform
