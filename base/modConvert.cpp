#include "base/modConvert.h"

#include "base/Messages.h"
#include "base/NeskError.h"

#include <charconv>
#include <cmath>
#include <limits>
#include <optional>
#include <string>

namespace nesk::modConvert {

namespace {

bool IsBlank(char c) {
    return c == ' ' || c == '\t';
}

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

bool IsExponent(char c) {
    return c == 'e' || c == 'E' || c == 'd' || c == 'D';
}

std::string_view Trimmed(std::string_view text) {
    while (!text.empty() && IsBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && IsBlank(text.back()))
        text.remove_suffix(1);
    return text;
}

[[noreturn]] void RaiseOverflow(const char* source) {
    throw NeskError(RuntimeError::Overflow, source, Message::Overflow);
}

[[noreturn]] void RaiseTypeMismatch(const char* source, std::string_view text) {
    throw NeskError(RuntimeError::TypeMismatch, source, Message::TypeMismatch, {std::string(text)});
}

// Length of the decimal number at the start of `text`; 0 when `text` does not start with a number.
std::size_t DecimalLength(std::string_view text) {
    std::size_t at = 0;
    const auto peek = [&](std::size_t i) { return i < text.size() ? text[i] : '\0'; };
    if (peek(at) == '+' || peek(at) == '-') ++at;
    std::size_t digits = 0;
    for (; IsDigit(peek(at)); ++at)
        ++digits;
    if (peek(at) == '.') {
        ++at;
        for (; IsDigit(peek(at)); ++at)
            ++digits;
    }
    if (digits == 0) return 0;
    if (IsExponent(peek(at))) {
        std::size_t end = at + 1;
        if (peek(end) == '+' || peek(end) == '-') ++end;
        if (IsDigit(peek(end))) {
            while (IsDigit(peek(end)))
                ++end;
            at = end;
        }
    }
    return at;
}

// Value of a text that is, as DecimalLength has confirmed, a decimal number as a whole.
double DecimalValue(std::string_view text, const char* source) {
    if (text.front() == '+') text.remove_prefix(1);
    std::string plain(text);
    for (char& c : plain)
        if (IsExponent(c)) c = 'e';
    double value = 0;
    const auto [end, error] = std::from_chars(plain.data(), plain.data() + plain.size(), value);
    if (error == std::errc::result_out_of_range) {
        // Underflow gives zero, overflow is an error; from_chars reports both the same way.
        const std::size_t exponent = plain.find('e');
        const bool tiny = exponent != std::string::npos ? plain[exponent + 1] == '-' : plain.find('.') < 300;
        if (!tiny) RaiseOverflow(source);
        return 0;
    }
    return value;
}

struct RadixNumber {
    std::uint64_t value = 0;
    std::size_t length = 0; // characters used, including the prefix
    bool isLong = false;    // a trailing "&" asks for 32 bits
};

// The "&H..." or "&O..." number at the start of `text`; nothing when there is no such number. Raises Overflow
// above 32 bits.
std::optional<RadixNumber> ParseRadix(std::string_view text, const char* source) {
    if (text.size() < 2 || text[0] != '&') return std::nullopt;
    const bool hex = text[1] == 'H' || text[1] == 'h';
    if (!hex && text[1] != 'O' && text[1] != 'o') return std::nullopt;
    RadixNumber number;
    const char* first = text.data() + 2;
    const char* last = text.data() + text.size();
    const auto [end, error] = std::from_chars(first, last, number.value, hex ? 16 : 8);
    if (end == first) return std::nullopt;
    if (error != std::errc() || number.value > std::numeric_limits<std::uint32_t>::max())
        RaiseOverflow(source);
    number.length = static_cast<std::size_t>(end - text.data());
    if (number.length < text.size() && text[number.length] == '&') {
        number.isLong = true;
        ++number.length;
    }
    return number;
}

template <typename Integer, typename Unsigned>
Integer ConvertWhole(std::string_view text, const char* source) {
    const std::string_view plain = Trimmed(text);
    if (const auto radix = ParseRadix(plain, source)) {
        if (radix->length != plain.size()) RaiseTypeMismatch(source, text);
        if (radix->value > std::numeric_limits<Unsigned>::max()) RaiseOverflow(source);
        // The digits are the bit pattern: &HFFFF is -1 in 16 bits.
        return static_cast<Integer>(static_cast<Unsigned>(radix->value));
    }
    if (plain.empty() || DecimalLength(plain) != plain.size()) RaiseTypeMismatch(source, text);
    const double value = std::nearbyint(DecimalValue(plain, source));
    if (!(value >= std::numeric_limits<Integer>::min() && value <= std::numeric_limits<Integer>::max()))
        RaiseOverflow(source);
    return static_cast<Integer>(value);
}

} // namespace

std::int16_t CInt(std::string_view text) {
    return ConvertWhole<std::int16_t, std::uint16_t>(text, "CInt");
}

std::int32_t CLng(std::string_view text) {
    // Fast path: a menu file has one number per entry, nearly always a few plain digits.
    std::int32_t value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error == std::errc() && end == text.data() + text.size()) return value;
    return ConvertWhole<std::int32_t, std::uint32_t>(text, "CLng");
}

std::int16_t CInt(double value) {
    const double whole = std::nearbyint(value);
    if (!(whole >= std::numeric_limits<std::int16_t>::min() &&
          whole <= std::numeric_limits<std::int16_t>::max()))
        RaiseOverflow("CInt");
    return static_cast<std::int16_t>(whole);
}

double Val(std::string_view text) {
    std::string plain;
    plain.reserve(text.size());
    for (const char c : text)
        if (!IsBlank(c) && c != '\n') plain += c;
    if (const auto radix = ParseRadix(plain, "Val")) {
        const bool wide = radix->isLong || radix->value > std::numeric_limits<std::uint16_t>::max();
        return wide
                   ? static_cast<double>(static_cast<std::int32_t>(static_cast<std::uint32_t>(radix->value)))
                   : static_cast<double>(static_cast<std::int16_t>(static_cast<std::uint16_t>(radix->value)));
    }
    const std::size_t length = DecimalLength(plain);
    return length == 0 ? 0 : DecimalValue(std::string_view(plain).substr(0, length), "Val");
}

} // namespace nesk::modConvert
