#include "shell/WindowPlace.h"

#include <algorithm>
#include <cstdint>

namespace nesk {

namespace {

// Names of the values.
constexpr const char* Left = "Left";
constexpr const char* Top = "Top";
constexpr const char* Width = "Width";
constexpr const char* Height = "Height";

// Sizes that a window can have, in device-independent pixels, and coordinates that window systems can use.
constexpr int SmallestSide = 100;
constexpr int LargestSide = 16000;
constexpr int LargestCoordinate = 30000;

// Part of the title bar that must be on a screen, in pixels.
constexpr int ReachableWidth = 100;
constexpr int ReachableHeight = 20;
// Windows draws the frame of a window at the edge of the screen a few pixels outside.
constexpr int Overhang = 16;

int Common(int first, int firstLength, int second, int secondLength) {
    return std::min(first + firstLength, second + secondLength) - std::max(first, second);
}

std::int64_t CommonArea(const ScreenArea& one, const ScreenArea& other) {
    const std::int64_t width = Common(one.x, one.width, other.x, other.width);
    const std::int64_t height = Common(one.y, one.height, other.y, other.height);
    return width > 0 && height > 0 ? width * height : 0;
}

// The gap between two rectangles; 0 or less when they touch.
int Gap(const ScreenArea& one, const ScreenArea& other) {
    return std::max(-Common(one.x, one.width, other.x, other.width),
                    -Common(one.y, one.height, other.y, other.height));
}

// The screen with the largest part of the window, otherwise the nearest one.
const ScreenArea& ScreenOf(const ScreenArea& window, std::span<const ScreenArea> screens) {
    const ScreenArea* best = screens.data();
    for (const ScreenArea& screen : screens) {
        const std::int64_t common = CommonArea(window, screen), most = CommonArea(window, *best);
        if (common > most || (common == most && Gap(window, screen) < Gap(window, *best))) best = &screen;
    }
    return *best;
}

bool IsReachable(const ScreenArea& window, const ScreenArea& screen) {
    return Common(window.x, window.width, screen.x, screen.width) >= std::min(ReachableWidth, window.width) &&
           window.y >= screen.y - Overhang && window.y + ReachableHeight <= screen.y + screen.height;
}

} // namespace

std::optional<WindowPlace> WindowPlace::In(const WindowMemory& memory) {
    const auto x = memory.Number(Left), y = memory.Number(Top);
    const auto width = memory.Number(Width), height = memory.Number(Height);
    if (!x || !y || !width || !height) return std::nullopt;
    const auto isSide = [](int side) { return side >= SmallestSide && side <= LargestSide; };
    const auto isCoordinate = [](int at) { return at >= -LargestCoordinate && at <= LargestCoordinate; };
    if (!isSide(*width) || !isSide(*height) || !isCoordinate(*x) || !isCoordinate(*y)) return std::nullopt;
    return WindowPlace{*x, *y, *width, *height};
}

void WindowPlace::PutInto(WindowMemory& memory) const {
    memory.SetNumber(Left, x);
    memory.SetNumber(Top, y);
    memory.SetNumber(Width, width);
    memory.SetNumber(Height, height);
}

ScreenArea FitToScreens(const ScreenArea& wanted, std::span<const ScreenArea> screens) {
    const ScreenArea& screen = ScreenOf(wanted, screens);
    ScreenArea place = wanted;
    place.width = std::min(place.width, screen.width + Overhang);
    place.height = std::min(place.height, screen.height + Overhang);
    if (IsReachable(place, screen)) return place;
    place.width = std::min(place.width, screen.width);
    place.height = std::min(place.height, screen.height);
    place.x = std::clamp(place.x, screen.x, screen.x + screen.width - place.width);
    place.y = std::clamp(place.y, screen.y, screen.y + screen.height - place.height);
    return place;
}

} // namespace nesk
