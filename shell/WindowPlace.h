#pragma once

#include "settings/WindowMemory.h"

#include <optional>
#include <span>

namespace nesk {

/// A rectangle on the screens, in pixels. The origin is the upper left corner of the primary screen, so a
/// coordinate on another screen may be negative.
struct ScreenArea {
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;

    bool operator==(const ScreenArea&) const = default;
};

/// Where a window was: the upper left corner in pixels of the screens, the size in device-independent pixels.
struct WindowPlace {
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;

    bool operator==(const WindowPlace&) const = default;

    /// The remembered place; nothing when a value is missing or makes no sense.
    static std::optional<WindowPlace> In(const WindowMemory& memory);

    /// Remembers the place.
    void PutInto(WindowMemory& memory) const;
};

/// Where to show a window so that the user can reach it. A window stays where it is wanted, even partly
/// outside, while enough of its title bar is on a screen to drag it. Otherwise it moves completely onto the
/// nearest screen. It never becomes larger than its screen.
/// @param screens  the usable areas of the screens, the primary one first; not empty
ScreenArea FitToScreens(const ScreenArea& wanted, std::span<const ScreenArea> screens);

} // namespace nesk
