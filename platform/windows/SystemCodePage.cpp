#include "platform/common/SystemCodePage.h"

#include "platform/common/CodePageTable.h"

#include <array>
#include <windows.h>

namespace nesk::platform::common {

namespace {

// The system decodes bytes that a code page leaves undefined to control characters, or to characters at the
// end of the private use area that have no meaning in other programs. The start of that area belongs to the
// user.
bool IsPlaceholder(wchar_t character) {
    return character >= 0xF880 && character <= 0xF8FF;
}

class WindowsPage final : public SystemCodePage {
public:
    WindowsPage(UINT number, bool hasDoubles) : m_number(number), m_hasDoubles(hasDoubles) {}

    bool HasDoubles() const override { return m_hasDoubles; }

    bool IsLead(unsigned char byte) const override { return ::IsDBCSLeadByteEx(m_number, byte) != 0; }

    char16_t Decode(std::string_view bytes) const override {
        std::array<wchar_t, 4> characters{};
        const int count = ::MultiByteToWideChar(m_number, MB_ERR_INVALID_CHARS, bytes.data(),
                                                static_cast<int>(bytes.size()), characters.data(),
                                                static_cast<int>(characters.size()));
        if (count != 1 || characters[0] < 0x80 || IsPlaceholder(characters[0])) return 0;
        return static_cast<char16_t>(characters[0]);
    }

    std::uint16_t Encode(char16_t character) const override {
        const auto wide = static_cast<wchar_t>(character);
        std::array<char, 4> bytes{};
        BOOL replaced = FALSE;
        const int count = ::WideCharToMultiByte(m_number, WC_NO_BEST_FIT_CHARS, &wide, 1, bytes.data(),
                                                static_cast<int>(bytes.size()), nullptr, &replaced);
        if (replaced != FALSE) return 0;
        return CodeOf({bytes.data(), static_cast<std::size_t>(count)});
    }

private:
    UINT m_number;
    bool m_hasDoubles;
};

} // namespace

bool SystemCodePage::IsKnown(int codePage) {
    return ::IsValidCodePage(static_cast<UINT>(codePage)) != 0;
}

std::unique_ptr<SystemCodePage> SystemCodePage::Open(int codePage) {
    const auto number = static_cast<UINT>(codePage);
    CPINFO info{};
    // UTF-8 is encoded without a table.
    if (codePage == CodePageTable::Utf8 || ::GetCPInfo(number, &info) == 0 || info.MaxCharSize > 2)
        return nullptr;
    return std::make_unique<WindowsPage>(number, info.MaxCharSize > 1);
}

} // namespace nesk::platform::common
