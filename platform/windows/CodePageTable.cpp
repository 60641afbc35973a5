#include "platform/common/CodePageTable.h"

#include <map>
#include <memory>
#include <mutex>
#include <windows.h>

namespace nesk::platform::common {

namespace {

// The system decodes bytes that a code page leaves undefined to control characters, or to characters at the
// end of the private use area that have no meaning in other programs. The start of that area belongs to the
// user.
bool IsPlaceholder(wchar_t character) {
    return character >= 0xF880 && character <= 0xF8FF;
}

// The character encoded by the whole of `bytes`; 0 when they do not encode one character.
char16_t DecodeWhole(UINT codePage, std::string_view bytes) {
    std::array<wchar_t, 4> characters{};
    const int count =
        MultiByteToWideChar(codePage, MB_ERR_INVALID_CHARS, bytes.data(), static_cast<int>(bytes.size()),
                            characters.data(), static_cast<int>(characters.size()));
    if (count != 1 || characters[0] < 0x80 || IsPlaceholder(characters[0])) return 0;
    return static_cast<char16_t>(characters[0]);
}

// The exact code of a character, without best-fit replacements; 0 when it has none.
std::uint16_t EncodeOne(UINT codePage, char16_t character) {
    const auto wide = static_cast<wchar_t>(character);
    std::array<char, 4> bytes{};
    BOOL replaced = FALSE;
    const int count = WideCharToMultiByte(codePage, WC_NO_BEST_FIT_CHARS, &wide, 1, bytes.data(),
                                          static_cast<int>(bytes.size()), nullptr, &replaced);
    if (count < 1 || count > 2 || replaced != FALSE) return 0;
    const auto first = static_cast<unsigned char>(bytes[0]);
    const auto second = static_cast<unsigned char>(bytes[1]);
    return static_cast<std::uint16_t>(count == 1 ? first : first * 256U + second);
}

} // namespace

CodePageTable::CodePageTable(int codePage) : m_codePage(codePage), m_codes(0x10000) {
    const auto number = static_cast<UINT>(codePage);
    CPINFO info{};
    // UTF-8 is encoded without a table. With an empty table, no byte from 0x80 up can be decoded.
    if (codePage == Utf8 || GetCPInfo(number, &info) == 0 || info.MaxCharSize > 2) return;
    const bool hasDoubles = info.MaxCharSize > 1;
    if (hasDoubles) m_doubles.resize(std::size_t{128} * 256);

    const auto add = [&](char16_t character, unsigned code) {
        if (character == 0 || m_codes[character] != 0) return;
        const std::uint16_t preferred = EncodeOne(number, character);
        m_codes[character] = preferred != 0 ? preferred : static_cast<std::uint16_t>(code);
    };
    for (unsigned first = 0x80; first < 0x100; ++first) {
        std::array<char, 2> bytes{static_cast<char>(first), '\0'};
        const bool isLead = hasDoubles && IsDBCSLeadByteEx(number, static_cast<BYTE>(first)) != 0;
        if (!isLead) {
            m_singles[first] = DecodeWhole(number, {bytes.data(), 1});
            add(m_singles[first], first);
            continue;
        }
        for (unsigned second = 0; second < 0x100; ++second) {
            bytes[1] = static_cast<char>(second);
            char16_t& character = m_doubles[(first - 0x80) * std::size_t{256} + second];
            character = DecodeWhole(number, {bytes.data(), 2});
            add(character, first * 256 + second);
        }
    }
}

const CodePageTable& CodePageTable::Get(int codePage) {
    static std::mutex mutex;
    static std::map<int, std::unique_ptr<const CodePageTable>> tables;
    const int known = IsValidCodePage(static_cast<UINT>(codePage)) != 0 ? codePage : 1252;
    const std::lock_guard lock(mutex);
    std::unique_ptr<const CodePageTable>& table = tables[known];
    if (!table) table.reset(new CodePageTable(known));
    return *table;
}

} // namespace nesk::platform::common
