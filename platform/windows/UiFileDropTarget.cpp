#include "platform/windows/UiFileDropTarget.h"

#include "platform/common/NativePath.h"

#include <utility>

#include <wx/msw/private.h>
#include <wx/window.h>

namespace nesk::platform {

namespace windows {

namespace {

// A modal dialog disables the other windows of the program. The system sends drags to them all the same.
bool IsBlocked(wxWindow& window) {
    const auto top = static_cast<HWND>(wxGetTopLevelParent(&window)->GetHandle());
    return ::IsWindowEnabled(top) == 0 || ::IsWindowEnabled(static_cast<HWND>(window.GetHandle())) == 0;
}

} // namespace

FileDropTarget::FileDropTarget(wxWindow& window, FileDragEvents events, wxDataObjectSimple* other)
    : m_window(window), m_events(std::move(events)), m_files(new wxFileDataObject) {
    auto* const data = new wxDataObjectComposite;
    if (other != nullptr) data->Add(other, true);
    data->Add(m_files);
    SetDataObject(data);
}

FileDropTarget::~FileDropTarget() {
    *m_isAlive = false;
}

wxDragResult FileDropTarget::OnEnter(wxCoord x, wxCoord y, wxDragResult result) {
    m_isFiles = GetMatchingPair() == wxDataFormat(wxDF_FILENAME);
    if (m_isFiles) ReadPaths();
    return OnDragOver(x, y, result);
}

void FileDropTarget::ReadPaths() {
    m_paths.clear();
    if (!GetData()) return;
    for (const wxString& name : m_files->GetFilenames())
        m_paths.push_back(common::FromNativePath(std::filesystem::path(name.wc_str())));
}

wxDragResult FileDropTarget::OnDragOver(wxCoord x, wxCoord y, wxDragResult result) {
    const wxPoint point(x, y);
    return m_isFiles ? OnFilesOver(point) : OnOtherOver(point, result);
}

// Copying leaves the files where they are.
wxDragResult FileDropTarget::OnFilesOver(wxPoint point) {
    if (!m_events.over || IsBlocked(m_window)) return wxDragNone;
    m_isOver = true;
    return m_events.over(m_paths, point) ? wxDragCopy : wxDragNone;
}

void FileDropTarget::OnLeave() {
    if (!m_isFiles) return OnOtherLeave();
    if (std::exchange(m_isOver, false)) m_events.left();
}

wxDragResult FileDropTarget::OnData(wxCoord x, wxCoord y, wxDragResult result) {
    const wxPoint point(x, y);
    return m_isFiles ? OnFilesDropped(point) : OnOtherData(point, result);
}

wxDragResult FileDropTarget::OnFilesDropped(wxPoint point) {
    ReadPaths();
    const wxDragResult result = OnFilesOver(point);
    OnLeave();
    // The other program waits until the drag has ended.
    if (result == wxDragCopy)
        m_window.CallAfter([this, paths = m_paths, point, isAlive = m_isAlive] {
            if (*isAlive) m_events.dropped(paths, point);
        });
    return result;
}

wxDragResult FileDropTarget::OnOtherOver(wxPoint, wxDragResult) {
    return wxDragNone;
}

wxDragResult FileDropTarget::OnOtherData(wxPoint, wxDragResult) {
    return wxDragNone;
}

namespace {

class SystemFileTarget final : public FileTarget {
public:
    SystemFileTarget(wxWindow& window, FileDragEvents events) : m_window(window) {
        m_window.SetDropTarget(new FileDropTarget(window, std::move(events)));
    }
    ~SystemFileTarget() override { m_window.SetDropTarget(nullptr); }

private:
    wxWindow& m_window;
};

} // namespace

} // namespace windows

std::unique_ptr<FileTarget> FileTarget::Create(wxWindow& window, FileDragEvents events) {
    return std::make_unique<windows::SystemFileTarget>(window, std::move(events));
}

} // namespace nesk::platform
