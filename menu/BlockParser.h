#pragma once

#include "menu/LineReader.h"

#include <cstdint>
#include <limits>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace nesk {

/// Reads a block-structured text file line by line and tells of each line what it is: the start of a block,
/// the end of one, a key with a value, or the end of the file. Blank lines and lines that begin with ";" are
/// skipped. The texts of a line are valid until the next call of GetToken that returns a token of the same
/// kind.
///
/// Call OpenFile, then GetToken until it returns TokenEndFile, then CloseFile.
class BlockParser {
public:
    static constexpr std::int16_t TokenStartBlock = 0;
    static constexpr std::int16_t TokenEndBlock = 1;
    static constexpr std::int16_t TokenKeyValue = 2;
    static constexpr std::int16_t TokenEndFile = 3;

    /// No key of those that were given to the parser.
    static constexpr std::size_t UnknownKey = static_cast<std::size_t>(-1);

    BlockParser() = default;

    /// A parser that tells which of some keys it has met, and reads lines the faster that have them in this
    /// order.
    /// @param keys  upper case, without blanks; they must outlive the parser
    explicit BlockParser(std::span<const LineScan::Key> keys) : m_keys(keys) {}

    /// Opens a file and starts counting its lines; a file that is open is closed first. Raises 5000 when
    /// `bWrite` is true, and the run-time error of a file that cannot be opened.
    void OpenFile(const std::string& sFile, bool bWrite,
                  platform::FileSystem& files = platform::StationFiles());

    /// The same for any source of bytes.
    void Open(std::unique_ptr<ByteSource> source);

    /// Closes the source. Closing twice does nothing.
    void CloseFile();

    /// Reads on to the next line that says something and returns its token. Raises 5000 with the line number
    /// for a line that is none of the tokens, Overflow after 2,147,483,647 lines, and the run-time error of a
    /// failed read. Afterwards reading can go on behind the offending line.
    std::int16_t GetToken() {
        // Nearly all lines of the files that this program writes are what is expected here. The general way
        // reads the same in them.
        return NextIsExpected() ? TokenKeyValue : GetAnyToken();
    }

    /// What a message calls the source, a file's path for example; "" when none is open.
    const std::string& SourceName() const;

    /// Key of the last key/value line, upper case.
    std::string_view Key() const { return m_key; }
    /// Place of that key among those given to the parser, from 0; UnknownKey when it is none of them.
    std::size_t KeyIndex() const { return m_keyIndex; }
    /// Value of the last key/value line.
    std::string_view Value() const { return m_value; }
    /// Name of the last block started; "" when it has none.
    const std::string& BlockName() const { return m_blockName; }
    /// Type of the last block started, upper case; "" when it has none.
    const std::string& BlockType() const { return m_blockType; }
    /// Number of lines read so far: after a token the 1-based number of its line.
    std::int32_t CurrentLine() const { return m_currentLine; }

private:
    bool NextIsExpected() {
        if (m_expected >= m_keys.size() || m_currentLine == LastLine || !m_reader ||
            !m_reader->NextValueInBlock(m_keys[m_expected], m_value))
            return false;
        ++m_currentLine;
        m_key = m_keys[m_expected].Name();
        m_keyIndex = m_expected++;
        return true;
    }

    static constexpr std::int32_t LastLine = std::numeric_limits<std::int32_t>::max();

    std::int16_t GetAnyToken();
    std::optional<std::int16_t> NextIsUsual();
    static std::string ExpandTabs(std::string_view source);
    bool ParseKeyValue(const LineReader::Line& line);
    static bool ParseEnd(std::string_view line);
    bool ParseBlock(std::string_view line);
    bool ReadLine(LineReader::Line& line);
    void FindKeyIndex();
    void KeepTexts();

    std::span<const LineScan::Key> m_keys;
    std::size_t m_expected = 0; // the key that the next line should have
    std::size_t m_keyIndex = UnknownKey;
    std::unique_ptr<LineReader> m_reader;
    // Views into the reader's block where the text stands there as it is meant, and else into what is beside
    // them.
    std::string_view m_key;
    std::string_view m_value;
    std::string m_keyText;
    std::string m_valueText;
    std::string m_blockLine;                         // of which the next two are parts
    std::optional<LineScan::LineStart> m_blockStart; // that line and its end
    std::string m_blockName;
    std::string m_blockType;

protected:
    // So that a test can begin near LastLine: a file of so many lines takes too long.
    std::int32_t m_currentLine = 0;
};

} // namespace nesk
