#pragma once

#include "platform/UiFileTarget.h"

#include <memory>
#include <string>
#include <vector>

#include <wx/dataobj.h>
#include <wx/dnd.h>

class wxWindow;

namespace nesk::platform::windows {

/// A drop target for files and, in derived classes, for other data.
class FileDropTarget : public wxDropTarget {
public:
    /// @param window  the window of the target, which owns it
    /// @param events  without `over`, no files are taken
    /// @param other   the other data that is accepted; null for none. The target takes it over
    FileDropTarget(wxWindow& window, FileDragEvents events, wxDataObjectSimple* other = nullptr);
    ~FileDropTarget() override;

    wxDragResult OnEnter(wxCoord x, wxCoord y, wxDragResult result) final;
    wxDragResult OnDragOver(wxCoord x, wxCoord y, wxDragResult result) final;
    void OnLeave() final;
    wxDragResult OnData(wxCoord x, wxCoord y, wxDragResult result) final;

protected:
    // Drags of the other data.
    virtual wxDragResult OnOtherOver(wxPoint point, wxDragResult result);
    virtual void OnOtherLeave() {}
    virtual wxDragResult OnOtherData(wxPoint point, wxDragResult result);

private:
    void ReadPaths();
    wxDragResult OnFilesOver(wxPoint point);
    wxDragResult OnFilesDropped(wxPoint point);

    wxWindow& m_window;
    FileDragEvents m_events;
    wxFileDataObject* m_files; // owned by the data object of the target
    bool m_isFiles = false;    // the drag brings files
    bool m_isOver = false;     // the owner knows of them
    std::vector<std::string> m_paths;
    std::shared_ptr<bool> m_isAlive = std::make_shared<bool>(true);
};

} // namespace nesk::platform::windows
