#include "platform/common/CodePageTable.h"

#include <map>
#include <memory>
#include <mutex>
#include <unicode/ucnv.h>

namespace nesk::platform::common {

namespace {

struct ConverterCloser {
    void operator()(UConverter* converter) const { ucnv_close(converter); }
};
using Converter = std::unique_ptr<UConverter, ConverterCloser>;

// The name of the converter with the same table as Windows; null for an unknown code page.
const char* ConverterName(int codePage) {
    switch (codePage) {
    case 874: return "windows-874-2000";
    case 932: return "ibm-943_P15A-2003";
    case 936: return "windows-936-2000";
    case 949: return "windows-949-2000";
    case 950: return "windows-950-2000";
    case 1250: return "ibm-5346_P100-1998";
    case 1251: return "ibm-5347_P100-1998";
    case 1252: return "ibm-5348_P100-1997";
    case 1253: return "ibm-5349_P100-1998";
    case 1254: return "ibm-5350_P100-1998";
    case 1255: return "ibm-9447_P100-2002";
    case 1256: return "ibm-9448_X100-2005";
    case 1257: return "ibm-9449_P100-2002";
    case 1258: return "ibm-5354_P100-1998";
    default: return nullptr;
    }
}

Converter OpenConverter(int codePage) {
    UErrorCode error = U_ZERO_ERROR;
    Converter converter(ucnv_open(ConverterName(codePage), &error));
    // Characters without an exact counterpart must be reported, not replaced by similar ones.
    ucnv_setToUCallBack(converter.get(), UCNV_TO_U_CALLBACK_STOP, nullptr, nullptr, nullptr, &error);
    ucnv_setFromUCallBack(converter.get(), UCNV_FROM_U_CALLBACK_STOP, nullptr, nullptr, nullptr, &error);
    if (U_FAILURE(error)) return nullptr;
    ucnv_setFallback(converter.get(), 0);
    return converter;
}

// The character encoded by the whole of `bytes`; 0 when they do not encode one character.
char16_t DecodeWhole(UConverter* converter, std::string_view bytes) {
    UErrorCode error = U_ZERO_ERROR;
    const char* at = bytes.data();
    const char* const end = at + bytes.size();
    ucnv_resetToUnicode(converter);
    const UChar32 character = ucnv_getNextUChar(converter, &at, end, &error);
    if (U_FAILURE(error) || at != end || character < 0x80 || character > 0xFFFF) return 0;
    return static_cast<char16_t>(character);
}

// The code of a character in the converter's code page; 0 when it has none.
std::uint16_t EncodeOne(UConverter* converter, char16_t character) {
    UErrorCode error = U_ZERO_ERROR;
    std::array<char, 4> bytes{};
    const std::int32_t count = ucnv_fromUChars(
        converter, bytes.data(), static_cast<std::int32_t>(bytes.size()), &character, 1, &error);
    if (U_FAILURE(error) || count < 1 || count > 2) return 0;
    const auto first = static_cast<unsigned char>(bytes[0]);
    const auto second = static_cast<unsigned char>(bytes[1]);
    return static_cast<std::uint16_t>(count == 1 ? first : first * 256U + second);
}

} // namespace

CodePageTable::CodePageTable(int codePage) : m_codePage(codePage), m_codes(0x10000) {
    const Converter converter = OpenConverter(codePage);
    // Without a converter, no byte from 0x80 up can be decoded. Such bytes are escaped, so nothing is lost.
    if (!converter) return;
    const bool hasDoubles = ucnv_getMaxCharSize(converter.get()) > 1;
    if (hasDoubles) m_doubles.resize(std::size_t{128} * 256);

    const auto add = [&](char16_t character, unsigned code) {
        if (character == 0 || m_codes[character] != 0) return;
        const std::uint16_t preferred = EncodeOne(converter.get(), character);
        m_codes[character] = preferred != 0 ? preferred : static_cast<std::uint16_t>(code);
    };
    for (unsigned first = 0x80; first < 0x100; ++first) {
        std::array<char, 2> bytes{static_cast<char>(first), '\0'};
        m_singles[first] = DecodeWhole(converter.get(), {bytes.data(), 1});
        add(m_singles[first], first);
        if (!hasDoubles || m_singles[first] != 0) continue;
        for (unsigned second = 0; second < 0x100; ++second) {
            bytes[1] = static_cast<char>(second);
            char16_t& character = m_doubles[(first - 0x80) * std::size_t{256} + second];
            character = DecodeWhole(converter.get(), {bytes.data(), 2});
            add(character, first * 256 + second);
        }
    }
}

const CodePageTable& CodePageTable::Get(int codePage) {
    static std::mutex mutex;
    static std::map<int, std::unique_ptr<const CodePageTable>> tables;
    const int known = ConverterName(codePage) != nullptr ? codePage : 1252;
    const std::lock_guard lock(mutex);
    std::unique_ptr<const CodePageTable>& table = tables[known];
    if (!table) table.reset(new CodePageTable(known));
    return *table;
}

} // namespace nesk::platform::common
