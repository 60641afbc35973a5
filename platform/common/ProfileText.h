#pragma once

#include "platform/FileSystem.h"
#include "platform/common/CodePageTable.h"

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

/// The lines of a profile (.ini) file. However large the file and its lines are, the memory used is bounded.
namespace nesk::platform::common {

/// Text without the white space around it, of which only a beginning is kept.
class ProfileField {
public:
    /// Empties the field; it keeps up to `limit` characters from now on.
    void Clear(std::size_t limit);
    void Add(char32_t character);

    /// Number of characters, those that were not kept included.
    std::size_t Length() const { return m_length; }
    /// The characters that were kept, without white space at the end.
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
        Other,  ///< blank, a comment, or a line without "="
        Header, ///< of the section `name`
        Entry   ///< `name` = `value`
    };
    Kind kind = Kind::Other;
    ProfileField name;
    ProfileField value;

    /// True when the name equals a text in UTF-8 apart from case.
    bool NameIs(std::string_view text) const;

    /// The value in UTF-8 without a pair of quotes around it, cut at a character boundary to `longest` bytes
    /// of the code page. What the code page cannot hold is "?", as the ANSI functions answer.
    std::string Value(std::size_t longest) const;
};

/// Reads a profile file line by line, up to LargestText of it: in the code page, or in UTF-16 when it begins
/// with the bytes FF FE. No other byte order mark is known: it belongs to the first line, which then is no
/// header.
class ProfileReader {
public:
    /// What is read of a file, in bytes: whoever waits for an answer would take a longer search for a program
    /// that hangs.
    static constexpr std::size_t LargestText = std::size_t{64} << 20;

    /// @param longestName   length of the longest name that will be compared
    /// @param longestValue  length of the longest value that will be asked for
    ProfileReader(FileReader& file, std::size_t longestName, std::size_t longestValue);

    /// Reads the next line. False at the end of the text, which is the end of the file, a byte 26 (the end
    /// mark of old editors), a place that cannot be read, or the largest text.
    bool Next(ProfileLine& line);

private:
    bool NextCharacter(char32_t& character);
    bool Require(std::size_t count);

    FileReader& m_file;
    const common::CodePageTable& m_codePage;
    std::size_t m_longestName;
    std::size_t m_longestValue;
    std::array<char, 16384> m_buffer{};
    std::size_t m_at = 0;
    std::size_t m_end = 0;
    std::size_t m_left = LargestText;
    bool m_wide = false;
    bool m_ended = false;
};

} // namespace nesk::platform::common
