#include "platform/DefaultFont.h"

#include "platform/windows/WideText.h"

#include <array>
#include <windows.h>

namespace nesk::platform {

namespace {

// Size of the buffer for the face name, including the terminating zero.
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

// The system has the list of fonts ready.
void PrepareFonts() {}

} // namespace nesk::platform
