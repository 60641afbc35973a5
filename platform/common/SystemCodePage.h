#pragma once

#include <cstdint>
#include <memory>
#include <string_view>

namespace nesk::platform::common {

/// One ANSI code page as the system knows it. CodePageTable reads it once, character by character.
class SystemCodePage {
public:
    /// True for the number of a code page that the system has a table or a function for.
    static bool IsKnown(int codePage);

    /// Opens a known code page. Null when its characters take more than two bytes, or when the system cannot
    /// open it.
    static std::unique_ptr<SystemCodePage> Open(int codePage);

    virtual ~SystemCodePage() = default;

    /// True when some characters take two bytes.
    virtual bool HasDoubles() const = 0;

    /// True when this byte, of 0x80 or above, begins a character of two bytes.
    virtual bool IsLead(unsigned char byte) const = 0;

    /// The character encoded by the whole of `bytes`; 0 when they do not encode one character of 0x80 or
    /// above.
    virtual char16_t Decode(std::string_view bytes) const = 0;

    /// The exact code of a character, without similar replacements; 0 when it has none. A two-byte code is
    /// first * 256 + second.
    virtual std::uint16_t Encode(char16_t character) const = 0;
};

} // namespace nesk::platform::common
