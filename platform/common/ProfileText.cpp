#include "platform/common/ProfileText.h"

#include "platform/ErrorCode.h"
#include "platform/TextEncoding.h"
#include "platform/Utf8.h"

#include <algorithm>

namespace nesk::platform::common {

namespace {

// The byte that old editors write at the end of a file.
constexpr char32_t EndMark = 0x1A;

bool IsBlank(char32_t character) {
    return character == ' ' || character == '\t' || character == '\v';
}

bool IsLineEnd(char32_t character) {
    return character == '\n' || character == '\r';
}

} // namespace

void ProfileField::Clear(std::size_t limit) {
    m_limit = limit;
    m_kept.clear();
    m_count = m_length = 0;
    m_last = 0;
}

void ProfileField::Add(char32_t character) {
    const bool blank = IsBlank(character);
    if (blank && m_count == 0) return;
    ++m_count;
    if (m_kept.size() < m_limit) m_kept += character;
    if (blank) return;
    m_length = m_count;
    m_last = character;
}

std::u32string_view ProfileField::Kept() const {
    return std::u32string_view(m_kept).substr(0, std::min(m_length, m_kept.size()));
}

bool ProfileLine::NameIs(std::string_view text) const {
    const std::u32string_view kept = name.Kept();
    if (kept.size() < name.Length()) return false;
    std::string utf8;
    for (const char32_t character : kept)
        Utf8Append(utf8, character);
    return EqualNoCase(utf8, text);
}

std::string ProfileLine::Value(std::size_t longest) const {
    std::u32string_view content = value.Kept();
    const char32_t last = value.Last();
    if (value.Length() >= 2 && content.front() == last && (last == '"' || last == '\'')) {
        if (content.size() == value.Length()) content.remove_suffix(1);
        content.remove_prefix(1);
    }
    // A zero ends the value for callers in C.
    content = content.substr(0, content.find(U'\0'));

    const common::CodePageTable& codePage = common::CodePageTable::Get(CodePage());
    std::string text;
    std::size_t bytes = 0;
    for (char32_t character : content) {
        const bool single = character < 0x80 || character >= EscapeBase;
        const std::uint16_t code = single ? std::uint16_t{1} : codePage.Encode(character);
        if (code == 0) character = '?';
        bytes += code > 0xFF ? 2 : 1;
        if (bytes > longest) break;
        Utf8Append(text, character);
    }
    return text;
}

ProfileReader::ProfileReader(FileReader& file, std::size_t maxNameLength, std::size_t maxValueLength)
    : m_file(file)
    , m_codePage(common::CodePageTable::Get(CodePage()))
    , m_maxNameLength(maxNameLength)
    , m_maxValueLength(maxValueLength) {
    m_wide = Require(2) && m_buffer[0] == '\xFF' && m_buffer[1] == '\xFE';
    if (m_wide) m_at = 2;
}

// Makes `count` bytes available in the buffer. Returns false when the file ends before that.
bool ProfileReader::Require(std::size_t count) {
    while (m_end - m_at < count) {
        std::copy(m_buffer.begin() + static_cast<std::ptrdiff_t>(m_at),
                  m_buffer.begin() + static_cast<std::ptrdiff_t>(m_end), m_buffer.begin());
        m_end -= m_at;
        m_at = 0;
        const std::size_t size = std::min(m_buffer.size() - m_end, m_left);
        std::size_t got = 0;
        if (size == 0 || m_file.Read(m_buffer.data() + m_end, size, got) != ErrorCode::Success || got == 0)
            return false;
        m_end += got;
        m_left -= got;
    }
    return true;
}

bool ProfileReader::NextCharacter(char32_t& character) {
    if (m_wide) {
        if (!Require(2)) return false;
        const auto low = static_cast<unsigned char>(m_buffer[m_at]);
        const auto high = static_cast<unsigned char>(m_buffer[m_at + 1]);
        character = high * 256U + low;
        // Every character of the code pages takes only one UTF-16 unit, so surrogates cannot be encoded.
        if (character >= 0xD800 && character < 0xE000) character = 0xFFFD;
        m_at += 2;
        return true;
    }
    if (!Require(1)) return false;
    const auto byte = static_cast<unsigned char>(m_buffer[m_at]);
    character = byte;
    std::size_t length = 1;
    if (byte >= 0x80) {
        // A two-byte character may cross the end of the buffer. At the end of the file a single byte is
        // decoded.
        Require(2);
        character = m_codePage.Decode({m_buffer.data() + m_at, m_end - m_at}, length);
        if (character == 0) character = EscapeBase + byte;
    }
    m_at += length;
    return true;
}

bool ProfileReader::Next(ProfileLine& line) {
    line.kind = ProfileLine::Kind::Other;
    line.name.Clear(m_maxNameLength + 1);
    // One more character than the value, for its opening quote.
    line.value.Clear(m_maxValueLength + 1);
    enum class Part { Start, Header, Name, Value, Ignored } part = Part::Start;
    bool any = false;
    for (char32_t character = 0; !m_ended && NextCharacter(character);) {
        any = true;
        m_ended = character == EndMark;
        if (m_ended || IsLineEnd(character)) break;
        switch (part) {
        case Part::Start:
            if (IsBlank(character)) break;
            if (character == ';') {
                part = Part::Ignored;
            } else if (character == '[') {
                part = Part::Header;
                line.kind = ProfileLine::Kind::Header;
            } else if (character == '=') {
                part = Part::Value;
                line.kind = ProfileLine::Kind::Entry;
            } else {
                part = Part::Name;
                line.name.Add(character);
            }
            break;
        case Part::Header:
            if (character == ']')
                part = Part::Ignored;
            else
                line.name.Add(character);
            break;
        case Part::Name:
            if (character == '=') {
                part = Part::Value;
                line.kind = ProfileLine::Kind::Entry;
            } else {
                line.name.Add(character);
            }
            break;
        case Part::Value: line.value.Add(character); break;
        case Part::Ignored: break;
        }
    }
    return any;
}

} // namespace nesk::platform::common
