#include "platform/DefaultFont.h"

#include "platform/windows/WideText.h"

#include <array>
#include <windows.h>

namespace nesk::platform {

namespace {

// Size of the buffer for the face name, its terminating zero included.
constexpr int FaceSize = 80;

} // namespace

std::string DefaultGuiFontFace() {
    const HDC screen = ::GetDC(nullptr);
    const HGDIOBJ before = ::SelectObject(screen, ::GetStockObject(DEFAULT_GUI_FONT));
    std::array<wchar_t, FaceSize> face{};
    ::GetTextFaceW(screen, FaceSize, face.data());
    ::SelectObject(screen, before);
    ::ReleaseDC(nullptr, screen);
    return windows::FromWide(face.data());
}

// The system knows its fonts.
void PrepareFonts() {}

} // namespace nesk::platform
