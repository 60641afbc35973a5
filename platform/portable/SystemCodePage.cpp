#include "platform/common/SystemCodePage.h"

#include "platform/common/CodePageTable.h"

#include <array>
#include <unicode/ucnv.h>
#include <utility>

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

class ConverterPage final : public SystemCodePage {
public:
    explicit ConverterPage(Converter converter) : m_converter(std::move(converter)) {}

    bool HasDoubles() const override { return ucnv_getMaxCharSize(m_converter.get()) > 1; }

    // The converter does not tell its lead bytes. They are those that are no character of their own.
    bool IsLead(unsigned char byte) const override {
        const char c = static_cast<char>(byte);
        return Decode({&c, 1}) == 0;
    }

    char16_t Decode(std::string_view bytes) const override {
        UErrorCode error = U_ZERO_ERROR;
        const char* at = bytes.data();
        const char* const end = at + bytes.size();
        ucnv_resetToUnicode(m_converter.get());
        const UChar32 character = ucnv_getNextUChar(m_converter.get(), &at, end, &error);
        if (U_FAILURE(error) || at != end || character < 0x80 || character > 0xFFFF) return 0;
        return static_cast<char16_t>(character);
    }

    std::uint16_t Encode(char16_t character) const override {
        UErrorCode error = U_ZERO_ERROR;
        std::array<char, 4> bytes{};
        const std::int32_t count = ucnv_fromUChars(
            m_converter.get(), bytes.data(), static_cast<std::int32_t>(bytes.size()), &character, 1, &error);
        if (U_FAILURE(error)) return 0;
        return CodeOf({bytes.data(), static_cast<std::size_t>(count)});
    }

private:
    Converter m_converter;
};

} // namespace

bool SystemCodePage::IsKnown(int codePage) {
    return ConverterName(codePage) != nullptr;
}

std::unique_ptr<SystemCodePage> SystemCodePage::Open(int codePage) {
    UErrorCode error = U_ZERO_ERROR;
    Converter converter(ucnv_open(ConverterName(codePage), &error));
    // Characters without an exact counterpart must be reported, not replaced by similar ones.
    ucnv_setToUCallBack(converter.get(), UCNV_TO_U_CALLBACK_STOP, nullptr, nullptr, nullptr, &error);
    ucnv_setFromUCallBack(converter.get(), UCNV_FROM_U_CALLBACK_STOP, nullptr, nullptr, nullptr, &error);
    if (U_FAILURE(error)) return nullptr;
    ucnv_setFallback(converter.get(), 0);
    return std::make_unique<ConverterPage>(std::move(converter));
}

} // namespace nesk::platform::common
