#include "shell/ScreenRes.h"

#include "base/Messages.h"
#include "base/NeskError.h"

#include <limits>

namespace nesk {

void ScreenRes::Initialize(const std::int16_t& iScreenWidth, const std::int16_t& iScreenTwips) {
    constexpr const char* source = "ScreenRes.Initialize";
    if (iScreenTwips == 0) throw NeskError(RuntimeError::DivisionByZero, source, Message::DivisionByZero);
    const int width = iScreenWidth / iScreenTwips;
    if (width > std::numeric_limits<std::int16_t>::max())
        throw NeskError(RuntimeError::Overflow, source, Message::Overflow);
    m_screenWidthPix = static_cast<std::int16_t>(width);
    m_sizes = SizesFor(m_screenWidthPix);
}

ScreenRes::Sizes ScreenRes::SizesFor(std::int16_t width) {
    switch (width) {
    case 640: return {840, 2400, 540, 825, 8, 10, 18};
    // 1.3 times the sizes of 640; a button width of 1072.5 rounds to the even 1072.
    case 800: return {1092, 3120, 702, 1072, 12, 10, 24};
    // 1.6 times the sizes of 640.
    default: return {1344, 3840, 864, 1320, 14, 12, 24};
    }
}

} // namespace nesk
