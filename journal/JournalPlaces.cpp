#include "journal/JournalPlaces.h"

#include "platform/TextEncoding.h"

#include <cstdint>

namespace nesk::JournalPlaces {

namespace {

constexpr int Places = 9; // more editors of one menu have no place

// The 64-bit FNV-1a hash of a text, in hexadecimal digits.
std::string HashOf(const std::string& text) {
    std::uint64_t hash = 0xCBF29CE484222325;
    for (const char c : text)
        hash = (hash ^ static_cast<unsigned char>(c)) * 0x100000001B3;
    std::string digits;
    for (int shift = 60; shift >= 0; shift -= 4)
        digits += "0123456789abcdef"[hash >> shift & 15U];
    return digits;
}

std::vector<std::string> Numbered(const std::string& stem) {
    std::vector<std::string> paths{stem};
    for (int number = 2; number <= Places; ++number)
        paths.push_back(std::string(stem).append("-").append(std::to_string(number)));
    return paths;
}

} // namespace

std::vector<std::string> Beside(const std::string& menuPath) {
    return Numbered(menuPath + ".unsaved");
}

std::vector<std::string> InFolder(const std::string& folder, const std::string& menuPath) {
    if (folder.empty()) return {};
    std::string stem = folder;
    stem.append("\\menu-").append(HashOf(platform::ToUpper(menuPath))).append(".unsaved");
    return Numbered(stem);
}

std::string BaseOf(const std::string& journalPath) {
    return journalPath + ".base";
}

} // namespace nesk::JournalPlaces
