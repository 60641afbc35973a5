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

/// A parser for block-structured text files. It reads line by line and classifies each line: the start of a
/// block, the end of a block, a key with a value, or the end of the file. Blank lines and lines that begin
/// with ";" are skipped. The texts of a line are valid until the next call of GetToken that returns a token
/// of the same kind.
///
/// Call OpenFile, then GetToken until it returns TokenEndFile, then CloseFile.
class BlockParser {
public:
    static constexpr std::int16_t TokenStartBlock = 0;
    static constexpr std::int16_t TokenEndBlock = 1;
    static constexpr std::int16_t TokenKeyValue = 2;
    static constexpr std::int16_t TokenEndFile = 3;

    /// The index of a key that was not given to the parser.
    static constexpr std::size_t UnknownKey = static_cast<std::size_t>(-1);

    BlockParser() = default;

    /// Creates a parser that reports the index of each known key. Lines are read faster when their keys are
    /// in this order.
    /// @param keys  upper case, without spaces; they must outlive the parser
    explicit BlockParser(std::span<const LineScan::Key> keys) : m_keys(keys) {}

    /// Opens a file and starts counting its lines. A file that is already open is closed first. Raises 5000
    /// when `bWrite` is true, and a run-time error when the file cannot be opened.
    void OpenFile(const std::string& sFile, bool bWrite,
                  platform::FileSystem& files = platform::StationFiles());

    /// Does the same as OpenFile for any source of bytes.
    void Open(std::unique_ptr<ByteSource> source);

    /// Closes the source. Closing twice does nothing.
    void CloseFile();

    /// Reads up to the next line that is neither blank nor a comment, and returns its token. Raises 5000 with
    /// the line number for a line that is not a valid token, Overflow after 2,147,483,647 lines, and the
    /// run-time error of a failed read. After an error, reading can continue with the next line.
    std::int16_t GetToken() {
        // Nearly all lines of the files that this program writes have the expected key. GetAnyToken reads
        // them with the same result, but more slowly.
        return NextIsExpected() ? TokenKeyValue : GetAnyToken();
    }

    /// The name of the source in messages, for example the path of a file; "" when no source is open.
    const std::string& SourceName() const;

    /// Key of the last key/value line, upper case.
    std::string_view Key() const { return m_key; }
    /// Index of that key among the keys given to the parser, from 0; UnknownKey when it was not given.
    std::size_t KeyIndex() const { return m_keyIndex; }
    /// Value of the last key/value line.
    std::string_view Value() const { return m_value; }
    /// Name of the last block started; "" when it has none.
    const std::string& BlockName() const { return m_blockName; }
    /// Type of the last block started, upper case; "" when it has none.
    const std::string& BlockType() const { return m_blockType; }
    /// Number of lines read so far. After a token, this is the 1-based number of the token's line.
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
    std::optional<std::int16_t> ReadCommonLine();
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
    // Views into the reader's block, or into m_keyText and m_valueText when the text had to be converted or
    // copied.
    std::string_view m_key;
    std::string_view m_value;
    std::string m_keyText;
    std::string m_valueText;
    std::string m_blockLine;                         // m_blockName and m_blockType are parts of this line
    std::optional<LineScan::LineStart> m_blockStart; // m_blockLine and its line end
    std::string m_blockName;
    std::string m_blockType;

protected:
    // Protected so that a test can start near LastLine: a file with that many lines takes too long.
    std::int32_t m_currentLine = 0;
};

} // namespace nesk
