#include "menu/BlockParser.h"

#include "platform/TextEncoding.h"
#include "shell/Messages.h"
#include "shell/NeskError.h"

#include <algorithm>
#include <limits>

namespace nesk {

namespace {

std::string_view TrimLeft(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
    return text;
}

std::string_view TrimRight(std::string_view text) {
    return text.substr(0, text.find_last_not_of(' ') + 1);
}

// Takes the first word off `text` and what separates it from the next.
std::string_view TakeWord(std::string_view& text) {
    const std::string_view word = text.substr(0, text.find(' '));
    text = TrimLeft(text.substr(word.size()));
    return word;
}

// ASCII bytes never stand for anything else in a line before its "=", so words of the grammar need no
// decoding.
bool EqualsWord(std::string_view text, std::string_view upperWord) {
    return std::equal(text.begin(), text.end(), upperWord.begin(), upperWord.end(), [](char c, char upper) {
        return (c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c) == upper;
    });
}

} // namespace

void BlockParser::OpenFile(const std::string& sFile, bool bWrite) {
    if (bWrite) throw NeskError(5000, "BlockParser.Open", Message::NotImplementedAtThisTime);
    CloseFile();
    m_reader = std::make_unique<LineReader>(sFile);
    m_currentLine = 0;
}

void BlockParser::CloseFile() {
    m_reader.reset();
}

void BlockParser::ExpandTabs(std::string& line) {
    std::replace(line.begin(), line.end(), '\t', ' ');
}

void BlockParser::CountLine() {
    if (m_currentLine == std::numeric_limits<std::int32_t>::max())
        throw NeskError(RuntimeError::Overflow, "BlockParse.GetToken", Message::CounterOverflow,
                        {std::to_string(m_currentLine)});
    ++m_currentLine;
}

std::int16_t BlockParser::GetToken() {
    std::string_view line;
    while (line.empty()) {
        if (!m_reader || !m_reader->ReadLine(m_line)) return TokenEndFile;
        CountLine();
        ExpandTabs(m_line);
        line = TrimLeft(TrimRight(m_line));
        if (line.starts_with(';')) line = {};
    }
    if (ParseKeyValue(line)) return TokenKeyValue;
    if (ParseEnd(line)) return TokenEndBlock;
    if (ParseBlock(line)) return TokenStartBlock;
    throw NeskError(5000, "BlockParse.GetToken", Message::BlockSyntax, {std::to_string(m_currentLine)});
}

bool BlockParser::ParseKeyValue(std::string_view line) {
    const std::size_t equals = line.find('=');
    if (equals == std::string_view::npos) return false;
    m_key = platform::ToUpper(platform::FromAnsi(TrimRight(line.substr(0, equals))));
    m_value = platform::FromAnsi(TrimLeft(line.substr(equals + 1)));
    return true;
}

bool BlockParser::ParseEnd(std::string_view line) {
    return EqualsWord(line, "END");
}

bool BlockParser::ParseBlock(std::string_view line) {
    if (!EqualsWord(TakeWord(line), "BLOCK")) return false;
    m_blockType = platform::ToUpper(platform::FromAnsi(TakeWord(line)));
    m_blockName = platform::FromAnsi(TakeWord(line));
    return true;
}

} // namespace nesk
