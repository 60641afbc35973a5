#pragma once

#include "platform/FileSystem.h"
#include "platform/common/CodePageTable.h"

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

/// A reader for the lines of profile (.ini) files. Its memory use is bounded, regardless of the size of the
/// file and its lines.
namespace nesk::platform::common {

/// A text without surrounding white space; only its first characters, up to a limit, are kept.
class ProfileField {
public:
    /// Empties the field and sets the number of characters to keep.
    void Clear(std::size_t limit);
    void Add(char32_t character);

    /// Number of characters, including those not kept.
    std::size_t Length() const { return m_length; }
    /// The kept characters without trailing white space.
    std::u32string_view Kept() const;
    /// The last character; 0 when the field is empty.
    char32_t Last() const { return m_last; }

private:
    std::size_t m_limit = 0;
    std::u32string m_kept;
    std::size_t m_count = 0;
    std::size_t m_length = 0;
    char32_t m_last = 0;
};

/// One line of a profile file.
struct ProfileLine {
    enum class Kind {
        Other,  ///< empty, a comment, or a line without "="
        Header, ///< header of the section `name`
        Entry   ///< `name` = `value`
    };
    Kind kind = Kind::Other;
    ProfileField name;
    ProfileField value;

    /// True when the name equals a UTF-8 text, compared without regard to case.
    bool NameIs(std::string_view text) const;

    /// The value in UTF-8 without its surrounding pair of quotes, truncated at a character boundary to
    /// `longest` bytes of the code page. Characters that the code page lacks become "?", as in the ANSI
    /// functions.
    std::string Value(std::size_t longest) const;
};

/// Reads a profile file line by line, up to LargestText bytes. The text is in the code page, or in UTF-16
/// when the file begins with the bytes FF FE. Other byte order marks are not recognised: they become part of
/// the first line, which then is not a header.
class ProfileReader {
public:
    /// The maximum number of bytes read from a file. With a longer search the program would seem to hang.
    static constexpr std::size_t LargestText = std::size_t{64} << 20;

    /// @param maxNameLength   length of the longest name to be compared
    /// @param maxValueLength  length of the longest value to be read
    ProfileReader(FileReader& file, std::size_t maxNameLength, std::size_t maxValueLength);

    /// Reads the next line. Returns false at the end of the text: the end of the file, a byte 26 (the end
    /// mark of old editors), a read error, or LargestText.
    bool Next(ProfileLine& line);

private:
    bool NextCharacter(char32_t& character);
    bool Require(std::size_t count);

    FileReader& m_file;
    const common::CodePageTable& m_codePage;
    std::size_t m_maxNameLength;
    std::size_t m_maxValueLength;
    std::array<char, 16384> m_buffer{};
    std::size_t m_at = 0;
    std::size_t m_end = 0;
    std::size_t m_left = LargestText;
    bool m_wide = false;
    bool m_ended = false;
};

} // namespace nesk::platform::common
