#pragma once

#include "menu/LineReader.h"

#include <cstdint>
#include <memory>
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

    /// Opens a file and starts counting its lines; a file that is open is closed first. Raises 5000 when
    /// `bWrite` is true, and the run-time error of a file that cannot be opened.
    void OpenFile(const std::string& sFile, bool bWrite);

    /// Closes the file. Closing twice does nothing.
    void CloseFile();

    /// Reads on to the next line that says something and returns its token. Raises 5000 with the line number
    /// for a line that is none of the tokens, Overflow after 2,147,483,647 lines, and the run-time error of a
    /// failed read. Afterwards reading can go on behind the offending line.
    std::int16_t GetToken();

    /// Key of the last key/value line, upper case.
    std::string_view Key() const { return m_key; }
    /// Value of the last key/value line.
    std::string_view Value() const { return m_value; }
    /// Name of the last block started; "" when it has none.
    const std::string& BlockName() const { return m_blockName; }
    /// Type of the last block started, upper case; "" when it has none.
    const std::string& BlockType() const { return m_blockType; }
    /// Number of lines read so far: after a token the 1-based number of its line.
    std::int32_t CurrentLine() const { return m_currentLine; }

private:
    static std::string ExpandTabs(std::string_view source);
    bool ParseKeyValue(const LineReader::Line& line);
    static bool ParseEnd(std::string_view line);
    bool ParseBlock(std::string_view line);
    bool ReadLine(LineReader::Line& line);
    void KeepTexts();

    std::unique_ptr<LineReader> m_reader;
    // Views into the reader's block where the text stands there as it is meant, and else into what is beside
    // them.
    std::string_view m_key;
    std::string_view m_value;
    std::string m_keyText;
    std::string m_valueText;
    std::string m_blockLine; // of which the next two are parts
    std::string m_blockName;
    std::string m_blockType;
    std::int32_t m_currentLine = 0;
};

} // namespace nesk
