#include "platform/windows/DialogNote.h"

namespace nesk::platform::windows {

namespace {

// The style also breaks long words, such as the path of a network printer.
constexpr DWORD LabelStyle = WS_CHILD | WS_VISIBLE | SS_LEFT | SS_NOPREFIX | SS_EDITCONTROL;
constexpr UINT TextFormat = DT_CALCRECT | DT_WORDBREAK | DT_NOPREFIX | DT_EDITCONTROL;

int HeightOf(HWND dialog, HFONT font, const std::wstring& text, int width) {
    const HDC screen = ::GetDC(dialog);
    const HGDIOBJ before = ::SelectObject(screen, font);
    RECT place{0, 0, width, 0};
    ::DrawTextW(screen, text.c_str(), -1, &place, TextFormat);
    ::SelectObject(screen, before);
    ::ReleaseDC(dialog, screen);
    return place.bottom;
}

void MoveDown(HWND dialog, int distance) {
    for (HWND child = ::GetWindow(dialog, GW_CHILD); child != nullptr;
         child = ::GetWindow(child, GW_HWNDNEXT)) {
        RECT place{};
        ::GetWindowRect(child, &place);
        POINT corner{place.left, place.top};
        ::ScreenToClient(dialog, &corner);
        ::SetWindowPos(child, nullptr, corner.x, corner.y + distance, 0, 0,
                       SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    }
}

void Grow(HWND dialog, int distance) {
    RECT place{};
    ::GetWindowRect(dialog, &place);
    ::SetWindowPos(dialog, nullptr, 0, 0, place.right - place.left, place.bottom - place.top + distance,
                   SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

} // namespace

void AddDialogNote(HWND dialog, const std::wstring& text) {
    // The usual margin of a dialog, in the units of its font.
    RECT margin{7, 7, 0, 0};
    ::MapDialogRect(dialog, &margin);
    RECT client{};
    ::GetClientRect(dialog, &client);
    const int width = client.right - 2 * margin.left;
    auto font = reinterpret_cast<HFONT>(::SendMessageW(dialog, WM_GETFONT, 0, 0));
    if (font == nullptr) font = static_cast<HFONT>(::GetStockObject(DEFAULT_GUI_FONT));
    const int height = HeightOf(dialog, font, text, width);
    MoveDown(dialog, height + margin.top);
    Grow(dialog, height + margin.top);
    const HWND label = ::CreateWindowExW(0, L"STATIC", text.c_str(), LabelStyle, margin.left, margin.top,
                                         width, height, dialog, nullptr, nullptr, nullptr);
    ::SendMessageW(label, WM_SETFONT, reinterpret_cast<WPARAM>(font), FALSE);
    // First in the tab order, so that a screen reader reads it first.
    ::SetWindowPos(label, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
}

} // namespace nesk::platform::windows
