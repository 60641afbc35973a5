#include "platform/UiEntryDrag.h"

#include "platform/windows/UiEntryData.h"
#include "platform/windows/UiFileDropTarget.h"

#include <utility>

#include <wx/dnd.h>
#include <wx/window.h>

namespace nesk::platform {

namespace {

class EntryDropTarget final : public windows::FileDropTarget {
public:
    EntryDropTarget(wxWindow& window, const EntryDragEvents& events)
        : EntryDropTarget(window, events, new wxCustomDataObject(windows::EntryFormat())) {}

private:
    EntryDropTarget(wxWindow& window, const EntryDragEvents& events, wxCustomDataObject* data)
        : FileDropTarget(window, events.files, data), m_events(events), m_data(*data) {}

    // The system's result is "copy" when Ctrl is held.
    wxDragResult OnOtherOver(wxPoint point, wxDragResult result) override {
        return m_events.over(point, result == wxDragCopy) ? result : wxDragNone;
    }
    void OnOtherLeave() override { m_events.left(); }
    wxDragResult OnOtherData(wxPoint point, wxDragResult result) override {
        const bool copies = result == wxDragCopy;
        if (m_events.isKnown()) {
            m_events.dropped(point, copies);
            // The program moves the entries itself, so nothing has to be removed where they come from.
            return wxDragCopy;
        }
        if (!GetData()) return wxDragNone;
        const std::string text(static_cast<const char*>(m_data.GetData()), m_data.GetSize());
        return m_events.droppedText(point, copies, text) ? result : wxDragNone;
    }

    const EntryDragEvents& m_events;
    const wxCustomDataObject& m_data;
};

class SystemEntryDrag final : public EntryDrag {
public:
    SystemEntryDrag(wxWindow& window, EntryDragEvents events)
        : m_window(window), m_events(std::move(events)) {
        m_window.SetDropTarget(new EntryDropTarget(m_window, m_events));
    }
    ~SystemEntryDrag() override { m_window.SetDropTarget(nullptr); }

    void Begin() override {
        windows::EntryData data([this] { return m_events.text(); });
        wxDropSource source(data, &m_window);
        if (source.DoDragDrop(wxDrag_AllowMove) == wxDragMove) m_events.taken();
        m_events.ended();
    }

private:
    wxWindow& m_window;
    EntryDragEvents m_events;
};

} // namespace

std::unique_ptr<EntryDrag> EntryDrag::Create(wxWindow& window, EntryDragEvents events) {
    return std::make_unique<SystemEntryDrag>(window, std::move(events));
}

} // namespace nesk::platform
