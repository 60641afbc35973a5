#include "gui/FileSource.h"

#include "gui/MouseDrag.h"
#include "gui/UiDriver.h"
#include "unit/platform/TempStation.h"

#include <gtest/gtest.h>

#include <wx/dataobj.h>
#include <wx/log.h>
#include <wx/utils.h>
#include <wx/window.h>

namespace nesk::testing {

namespace {

constexpr int Side = 24;

} // namespace

FileSource::FileSource(wxWindow& in)
    : m_window(new wxWindow(&in, wxID_ANY, wxPoint(0, 0), wxSize(Side, Side))) {
    m_window->Raise();
    // The drag blocks. It must not begin in a step of MouseDrag, whose next steps would have to wait.
    m_window->Bind(wxEVT_LEFT_DOWN, [this](wxMouseEvent&) { OnPressed(); });
}

FileSource::~FileSource() {
    m_window->Destroy();
}

void FileSource::OnPressed() {
    // A drag that begins after the button has come up does not end.
    if (!wxGetMouseState().LeftIsDown()) return;
    m_isBegun = true;
    wxFileDataObject files;
    for (const std::string& path : m_paths)
        files.AddFile(wxString(TempStation::Host(path).c_str(), wxConvFile));
    wxDropSource source(files, m_window);
    // The toolkit does not free what it writes into its trace, so it must not write one.
    const wxLogLevel level = wxLog::GetLogLevel();
    wxLog::SetLogLevel(wxLOG_Info);
    m_result = source.DoDragDrop(wxDrag_AllowMove);
    wxLog::SetLogLevel(level);
    m_isOver = true;
}

wxDragResult FileSource::Drag(const std::vector<std::string>& paths, wxPoint to,
                              const std::function<void()>& held) {
    return DragAlong(paths, [&](MouseDrag& drag) {
        drag.To(to);
        if (held) drag.Do(held);
    });
}

wxDragResult FileSource::DragAlong(const std::vector<std::string>& paths,
                                   const std::function<void(MouseDrag&)>& way) {
    m_paths = paths;
    m_isBegun = m_isOver = false;
    m_result = wxDragNone;
    MouseDrag drag(m_window->ClientToScreen(wxPoint(Side / 2, Side / 2)));
    drag.RestUntil([this] { return m_isBegun; });
    way(drag);
    drag.Make([this] { return m_isOver; });
    Settle();
    return m_result;
}

void ExpectRefused([[maybe_unused]] wxDragResult result) {
#ifndef NESK_PORTABLE_STATION
    EXPECT_EQ(result, wxDragNone);
#endif
}

} // namespace nesk::testing
