#include "unit/menu/MenuModelTexts.h"

#include "base/Messages.h"

#include <algorithm>

namespace nesk::testing {

namespace {

using Texts = std::vector<std::string>;

// Pieces that every code page can encode, including the words and signs of the file format.
const Texts CommonPieces = {
    "a",    "Part 7",        " ",        "   ",     "\t",     "\t \t",       "=",    "==", "\"", "'",
    ";",    "END",           "end",      "BLOCK",   "MENU",   "CAPTION=",    "&",    "|",  "0",  "%0%",
    "C:\\", "BLOCK SUBMENU", "part.bmp", "\\..\\x", "@x.ini", "HELPTOPIC=x", "\x01", "/",  "\v", "\x7F"};

TextRules RulesOf(int languageId, const Texts& pieces, const Texts& notEncodable,
                  std::vector<std::pair<std::string, std::string>> readBack) {
    TextRules rules;
    rules.languageId = languageId;
    rules.pieces = CommonPieces;
    rules.pieces.push_back("\x1A");
    rules.pieces.push_back(std::string(2000, 'x'));
    rules.pieces.insert(rules.pieces.end(), pieces.begin(), pieces.end());
    for (const auto& [given, read] : readBack)
        rules.pieces.push_back(given);
    rules.lineBreaks = {"\n", "\r", "\r\n", std::string(1, '\0')};
    rules.notEncodable = {"\xFF", "\xED\xA0\x80", "😀", "\U0010FE41"};
    rules.notEncodable.insert(rules.notEncodable.end(), notEncodable.begin(), notEncodable.end());
    rules.readBack = std::move(readBack);
    return rules;
}

bool HoldsOneOf(std::string_view text, const Texts& pieces) {
    return std::any_of(pieces.begin(), pieces.end(),
                       [&](const std::string& piece) { return text.find(piece) != std::string_view::npos; });
}

} // namespace

int TextRules::Refusal(std::string_view text) const {
    if (HoldsOneOf(text, lineBreaks)) return Message::LineBreakInText;
    return HoldsOneOf(text, notEncodable) ? Message::NotEncodable : 0;
}

std::string TextRules::AfterFile(std::string text) const {
    std::replace(text.begin(), text.end(), '\t', ' ');
    for (const auto& [given, read] : readBack)
        for (std::size_t at = text.find(given); at != std::string::npos; at = text.find(given))
            text.replace(at, given.size(), read);
    const std::size_t first = text.find_first_not_of(' ');
    if (first == std::string::npos) return "";
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::string TextRules::Make(Random& random) const {
    std::string text;
    for (std::size_t count = random.Below(5); count > 0; --count)
        text += random.Of(pieces);
    if (random.OneIn(20)) text += random.OneIn(2) ? random.Of(lineBreaks) : random.Of(notEncodable);
    return text;
}

TextRules WesternTexts() {
    return RulesOf(1033, {"Prüfung", "Ä", "ß", "€", "é", "\u00A0"}, {"日", "Ω"}, {{"\U0010FEE4", "ä"}});
}

TextRules GreekTexts() {
    return RulesOf(1032, {"Αθήνα", "ώ", "€", "\U0010FED2", "\U0010FEFF"}, {"ü", "日"}, {{"\U0010FEE4", "δ"}});
}

TextRules JapaneseTexts() {
    // The second byte of two of these is a "\". The single byte is the first byte of a two-byte character,
    // which the space does not complete.
    return RulesOf(1041, {"日本", "ソ", "表示", "ｱ", "\U0010FE81 "}, {"ä", "한"}, {{"\U0010FEB1", "ｱ"}});
}

} // namespace nesk::testing
