#include "shell/UiWindowPlace.h"

#include <vector>

#include <wx/display.h>
#include <wx/event.h>
#include <wx/toplevel.h>

namespace nesk {

namespace {

constexpr const char* Maximized = "Maximized";
constexpr int SettlingMilliseconds = 200;

std::vector<ScreenArea> Screens() {
    std::vector<ScreenArea> screens;
    for (unsigned i = 0; i < wxDisplay::GetCount(); ++i) {
        const wxDisplay display(i);
        const wxRect area = display.GetClientArea();
        const ScreenArea screen{area.x, area.y, area.width, area.height};
        screens.insert(display.IsPrimary() ? screens.begin() : screens.end(), screen);
    }
    return screens;
}

} // namespace

UiWindowPlace::UiWindowPlace(wxTopLevelWindow& window, WindowMemory& memory)
    : m_window(window), m_memory(memory) {
    m_settling.Bind(wxEVT_TIMER, [this](wxTimerEvent&) { OnSettled(); });
    m_window.Bind(wxEVT_SIZE, &UiWindowPlace::OnSize, this);
    m_window.Bind(wxEVT_MOVE, &UiWindowPlace::OnMove, this);
}

// The window may send events while it is being destroyed.
UiWindowPlace::~UiWindowPlace() {
    m_window.Unbind(wxEVT_SIZE, &UiWindowPlace::OnSize, this);
    m_window.Unbind(wxEVT_MOVE, &UiWindowPlace::OnMove, this);
}

void UiWindowPlace::OnSize(wxSizeEvent& event) {
    event.Skip();
    m_settling.StartOnce(SettlingMilliseconds);
}

void UiWindowPlace::OnMove(wxMoveEvent& event) {
    event.Skip();
    m_settling.StartOnce(SettlingMilliseconds);
}

bool UiWindowPlace::Restore() {
    const std::optional<WindowPlace> place = WindowPlace::In(m_memory);
    const std::vector<ScreenArea> screens = Screens();
    if (!place || screens.empty()) return false;
    const wxSize size = m_window.FromDIP(wxSize(place->width, place->height));
    const ScreenArea area = FitToScreens({place->x, place->y, size.x, size.y}, screens);
    m_window.SetSize(area.x, area.y, area.width, area.height);
    return true;
}

bool UiWindowPlace::WasMaximized() const {
    return m_memory.Flag(Maximized, false);
}

bool UiWindowPlace::IsNormal() const {
    return m_window.IsShown() && !m_window.IsMaximized() && !m_window.IsIconized() &&
           !m_window.IsFullScreen();
}

void UiWindowPlace::OnSettled() {
    if (!IsNormal()) return;
    m_normal = m_window.GetRect();
    if (!m_placed) m_placed = m_normal;
}

void UiWindowPlace::Remember() {
    if (IsNormal() && m_placed) m_normal = m_window.GetRect();
    if (!m_window.IsIconized()) m_memory.SetFlag(Maximized, m_window.IsMaximized(), false);
    if (!m_normal || m_normal == m_placed) return;
    const wxSize size = m_window.ToDIP(m_normal->GetSize());
    WindowPlace{m_normal->x, m_normal->y, size.x, size.y}.PutInto(m_memory);
}

} // namespace nesk
