#include "journal/JournalCode.h"

#include <algorithm>
#include <bit>
#include <cstddef>

namespace nesk {

namespace {

constexpr unsigned BitsOfByte = 7; // of a number; the eighth says that more bytes follow
constexpr unsigned char MoreFollows = 0x80;

// A frame begins with its length, the checksum of its payload, and the checksum of these two.
constexpr std::size_t WordSize = 8;
constexpr std::size_t HeadSize = 3 * WordSize;

// The same on every machine, whatever its byte order.
std::uint64_t WordAt(std::string_view bytes) {
    std::uint64_t word = 0;
    for (std::size_t i = 0; i < std::min(bytes.size(), WordSize); ++i)
        word |= std::uint64_t{static_cast<unsigned char>(bytes[i])} << (8 * i);
    return word;
}

void AppendWord(std::string& bytes, std::uint64_t word) {
    for (std::size_t i = 0; i < WordSize; ++i)
        bytes += static_cast<char>(word >> (8 * i) & 0xFF);
}

// Every bit of the bytes affects the sum. Zeros do not sum up to zero.
std::uint64_t Checksum(std::string_view bytes) {
    std::uint64_t sum = 0x9E3779B97F4A7C15 ^ bytes.size();
    for (; !bytes.empty(); bytes.remove_prefix(std::min(bytes.size(), WordSize)))
        sum = std::rotl((sum ^ WordAt(bytes)) * 0xD6E8FEB86659FD93, 32);
    return (sum ^ sum >> 29U) * 0x9E3779B97F4A7C15;
}

} // namespace

void JournalEncoder::Number(std::uint64_t number) {
    for (; number >= MoreFollows; number >>= BitsOfByte)
        m_bytes += static_cast<char>((number & (MoreFollows - 1U)) | MoreFollows);
    m_bytes += static_cast<char>(number);
}

// The sign is the lowest bit, so small negative numbers are short, too.
void JournalEncoder::SignedNumber(std::int64_t number) {
    const auto bits = static_cast<std::uint64_t>(number);
    Number(number < 0 ? ~(bits << 1U) : bits << 1U);
}

void JournalEncoder::Text(std::string_view text) {
    Number(text.size());
    m_bytes += text;
}

std::uint64_t JournalDecoder::Number() {
    std::uint64_t number = 0;
    for (unsigned shift = 0; shift < 64; shift += BitsOfByte) {
        if (m_rest.empty()) throw JournalDamage("a number is cut off");
        const auto byte = static_cast<unsigned char>(m_rest.front());
        m_rest.remove_prefix(1);
        number |= std::uint64_t{byte & (MoreFollows - 1U)} << shift;
        if (byte < MoreFollows) return number;
    }
    throw JournalDamage("a number is too long");
}

std::int64_t JournalDecoder::SignedNumber() {
    const std::uint64_t bits = Number();
    return static_cast<std::int64_t>((bits & 1U) != 0 ? ~(bits >> 1U) : bits >> 1U);
}

std::string_view JournalDecoder::Text() {
    const std::uint64_t length = Number();
    if (length > m_rest.size()) throw JournalDamage("a text is cut off");
    const std::string_view text = m_rest.substr(0, static_cast<std::size_t>(length));
    m_rest.remove_prefix(text.size());
    return text;
}

int JournalDecoder::NumberFrom(int least, int most) {
    const std::uint64_t number = Number();
    if (number > static_cast<std::uint64_t>(most) || static_cast<int>(number) < least)
        throw JournalDamage("a number is out of range");
    return static_cast<int>(number);
}

void JournalFrame::Append(std::string& bytes, std::string_view payload) {
    std::string head;
    AppendWord(head, payload.size());
    AppendWord(head, Checksum(payload));
    AppendWord(head, Checksum(head));
    bytes.append(head).append(payload);
}

JournalFrame::State JournalFrame::Take(std::string_view& rest, std::string_view& payload) {
    if (rest.empty()) return State::End;
    // After a power cut, the end of a file may consist of zeros: its length was stored, its last bytes were
    // not.
    if (rest.front() == '\0' && std::all_of(rest.begin(), rest.end(), [](char c) { return c == '\0'; }))
        return State::Torn;
    if (rest.size() < HeadSize) return State::Torn;
    const std::string_view head = rest.substr(0, HeadSize);
    if (WordAt(head.substr(2 * WordSize)) != Checksum(head.substr(0, 2 * WordSize))) return State::Damaged;
    const std::uint64_t length = WordAt(head);
    if (length > rest.size() - HeadSize) return State::Torn;
    const std::string_view found = rest.substr(HeadSize, static_cast<std::size_t>(length));
    if (WordAt(head.substr(WordSize)) != Checksum(found)) return State::Damaged;
    payload = found;
    rest.remove_prefix(HeadSize + found.size());
    return State::Whole;
}

} // namespace nesk
