#include "platform/TypeAhead.h"

#include "platform/TextEncoding.h"
#include "platform/TreeNode.h"

namespace nesk::platform {

namespace {

bool IsAscii(char byte) {
    return static_cast<unsigned char>(byte) < 0x80;
}

char AsciiUpper(char byte) {
    return byte >= 'a' && byte <= 'z' ? static_cast<char>(byte - 'a' + 'A') : byte;
}

// True when a text begins with `capitals`, which is upper-case already.
bool BeginsWith(std::string_view text, std::string_view capitals) {
    // Most rows differ in the first character. If both characters are ASCII, they are compared without
    // conversion.
    if (text.empty()) return false;
    if (IsAscii(text.front()) && IsAscii(capitals.front()) && AsciiUpper(text.front()) != capitals.front())
        return false;
    // The upper-case and lower-case forms of a letter may differ in their number of bytes, but rarely by more
    // than a factor of two.
    return ToUpper(text.substr(0, 4 * capitals.size())).starts_with(capitals);
}

// The first row at or after `first` that begins with a text, wrapping around at the end; null when no row
// matches.
TreeNode* Find(std::string_view text, TreeNode& root, TreeNode* first) {
    const std::string capitals = ToUpper(text);
    for (TreeNode* row = first; row != nullptr; row = row->NextRow())
        if (BeginsWith(row->Text(), capitals)) return row;
    for (TreeNode* row = &root; row != nullptr && row != first; row = row->NextRow())
        if (BeginsWith(row->Text(), capitals)) return row;
    return nullptr;
}

// True when a text is a repetition of one character.
bool IsRepeated(std::string_view text, std::string_view character) {
    if (character.empty() || text.size() % character.size() != 0) return false;
    for (std::size_t i = 0; i < text.size(); i += character.size())
        if (text.substr(i, character.size()) != character) return false;
    return true;
}

} // namespace

TreeNode* TypeAhead::Type(std::string_view characters, TreeNode& root, TreeNode* current,
                          Clock::time_point now) {
    if (!IsTyping(now)) m_typed.clear();
    if (m_typed.empty() && characters == " ") return nullptr;
    m_last = now;
    TreeNode* const found = Search(characters, root, current);
    m_missed = found == nullptr;
    return found;
}

TreeNode* TypeAhead::Search(std::string_view characters, TreeNode& root, TreeNode* current) {
    const bool begins = m_typed.empty();
    m_typed += characters;
    TreeNode* const next = current != nullptr ? current->NextRow() : nullptr;
    TreeNode* const after = next != nullptr ? next : &root;
    if (begins) return Find(m_typed, root, current != nullptr ? after : &root);
    if (TreeNode* row = Find(m_typed, root, current != nullptr ? current : &root)) return row;
    return IsRepeated(m_typed, characters) ? Find(characters, root, after) : nullptr;
}

} // namespace nesk::platform
