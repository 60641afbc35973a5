#include "menu/BlockParser.h"

#include "base/Messages.h"
#include "base/NeskError.h"
#include "menu/MenuText.h"
#include "platform/TextEncoding.h"

#include <algorithm>
#include <utility>

namespace nesk {

namespace {

// The line end that this program writes.
constexpr std::string_view LineEnd = "\r\n";

// A tab counts as a space.
bool IsBlank(char c) {
    return c == ' ' || c == '\t';
}

std::string_view TrimLeft(std::string_view text) {
    while (!text.empty() && IsBlank(text.front()))
        text.remove_prefix(1);
    return text;
}

std::string_view TrimRight(std::string_view text) {
    while (!text.empty() && IsBlank(text.back()))
        text.remove_suffix(1);
    return text;
}

// Removes the first word and the spaces after it from `text`, and returns the word.
std::string_view TakeWord(std::string_view& text) {
    const auto end = std::find_if(text.begin(), text.end(), IsBlank);
    const std::string_view word = text.substr(0, static_cast<std::size_t>(end - text.begin()));
    text = TrimLeft(text.substr(word.size()));
    return word;
}

bool PointsInto(std::string_view text, const std::string& holder) {
    return text.data() >= holder.data() && text.data() <= holder.data() + holder.size();
}

// Before the "=" of a line, an ASCII byte always stands for the ASCII character, so the words of the grammar
// need no decoding.
bool EqualsWord(std::string_view text, std::string_view upperWord) {
    return std::equal(text.begin(), text.end(), upperWord.begin(), upperWord.end(), [](char c, char upper) {
        return (c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c) == upper;
    });
}

} // namespace

void BlockParser::OpenFile(const std::string& sFile, bool bWrite, platform::FileSystem& files) {
    if (bWrite) throw NeskError(5000, "BlockParser.Open", Message::NotImplementedAtThisTime);
    CloseFile();
    try {
        Open(std::make_unique<FileSource>(sFile, files));
    } catch (NeskError& error) {
        error.source = "BlockParser.Open";
        throw;
    }
}

void BlockParser::Open(std::unique_ptr<ByteSource> source) {
    CloseFile();
    m_reader = std::make_unique<LineReader>(std::move(source));
    m_currentLine = 0;
}

const std::string& BlockParser::SourceName() const {
    static const std::string none;
    return m_reader ? m_reader->Source().Name() : none;
}

void BlockParser::CloseFile() {
    KeepTexts();
    m_reader.reset();
}

std::string BlockParser::ExpandTabs(std::string_view source) {
    std::string result(source);
    std::replace(result.begin(), result.end(), '\t', ' ');
    return result;
}

// Reading on replaces the reader's block, so Key and Value must be copied if they point into it.
void BlockParser::KeepTexts() {
    if (!PointsInto(m_key, m_keyText)) m_keyText = m_key;
    if (!PointsInto(m_value, m_valueText)) m_valueText = m_value;
    m_key = m_keyText;
    m_value = m_valueText;
}

bool BlockParser::ReadLine(LineReader::Line& line) {
    if (!m_reader) return false;
    if (m_reader->NextInBlock(line)) return true;
    KeepTexts();
    try {
        return m_reader->Next(line);
    } catch (NeskError& error) {
        error.source = "BlockParser.GetToken";
        // The error belongs to the next line, which cannot be read.
        if (m_currentLine != LastLine) ++m_currentLine;
        throw;
    }
}

// Returns the token of the next line when no parsing is needed: the line is the end of a block, or the same
// block start as the last one.
std::optional<std::int16_t> BlockParser::ReadCommonLine() {
    static constexpr LineScan::LineStart end("END", LineEnd);
    if (!m_reader || m_currentLine == LastLine) return std::nullopt;
    std::optional<std::int16_t> token;
    if (m_reader->SkipInBlock(end)) {
        token = TokenEndBlock;
    } else if (m_blockStart && m_reader->SkipInBlock(*m_blockStart)) {
        token = TokenStartBlock;
        m_expected = 0;
    }
    if (token) ++m_currentLine;
    return token;
}

std::int16_t BlockParser::GetAnyToken() {
    if (const auto token = ReadCommonLine()) return *token;
    LineReader::Line line{};
    do {
        if (!ReadLine(line)) return TokenEndFile;
        if (m_currentLine == LastLine)
            throw NeskError(RuntimeError::Overflow, "BlockParse.GetToken", Message::CounterOverflow,
                            {std::to_string(m_currentLine)});
        ++m_currentLine;
    } while (line.first == line.last || *line.first == ';');
    if (ParseKeyValue(line)) return TokenKeyValue;
    const std::string_view text(line.first, static_cast<std::size_t>(line.last - line.first));
    if (ParseEnd(text)) return TokenEndBlock;
    if (ParseBlock(text)) return TokenStartBlock;
    throw NeskError(5000, "BlockParse.GetToken", Message::BlockSyntax, {std::to_string(m_currentLine)});
}

bool BlockParser::ParseKeyValue(const LineReader::Line& line) {
    if (line.equals == line.last) return false;
    m_key = TrimRight({line.first, static_cast<std::size_t>(line.equals - line.first)});
    m_value = TrimLeft({line.equals + 1, static_cast<std::size_t>(line.last - line.equals - 1)});
    // Nearly all lines that this program writes skip these conversions.
    if (m_key.size() > LineScan::MaxStartLength || LineScan::HasLowerCase(m_key.data(), m_key.size()) ||
        !(line.isPlain || MenuText::IsPlain(m_key))) {
        m_keyText = platform::ToUpper(platform::FromAnsi(ExpandTabs(m_key)));
        m_key = m_keyText;
    }
    if (!line.isPlain && !MenuText::IsPlain(m_value)) {
        m_valueText = platform::FromAnsi(ExpandTabs(m_value));
        m_value = m_valueText;
    }
    FindKeyIndex();
    return true;
}

void BlockParser::FindKeyIndex() {
    const auto found = std::find_if(m_keys.begin(), m_keys.end(),
                                    [this](const LineScan::Key& key) { return key.Name() == m_key; });
    m_keyIndex = found != m_keys.end() ? static_cast<std::size_t>(found - m_keys.begin()) : UnknownKey;
    m_expected = m_keyIndex + 1;
}

bool BlockParser::ParseEnd(std::string_view line) {
    return EqualsWord(line, "END");
}

bool BlockParser::ParseBlock(std::string_view line) {
    m_expected = 0;
    // Most blocks begin with the same line as the previous block.
    if (line == m_blockLine) return true;
    std::string_view rest = line;
    if (!EqualsWord(TakeWord(rest), "BLOCK")) return false;
    m_blockType = platform::ToUpper(platform::FromAnsi(TakeWord(rest)));
    m_blockName = platform::FromAnsi(TakeWord(rest));
    m_blockLine = line;
    m_blockStart.reset();
    if (line.size() + LineEnd.size() <= LineScan::MaxStartLength) m_blockStart.emplace(line, LineEnd);
    return true;
}

} // namespace nesk
