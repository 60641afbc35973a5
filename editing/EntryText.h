#pragma once

#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace nesk {

class MenuEntry;
class MenuItem;

/// Entries as text, in the block format of a menu file. Such a text travels through the clipboard to other
/// editors and to text editors.
namespace EntryText {

/// Writes entries and everything below them. Raises 5000 for an entry whose text cannot be stored.
/// @return UTF-8 text with CR LF at the end of each line
std::string Write(std::span<const MenuItem* const> items);

/// Reads entries from UTF-8 text. Raises 5000 with the line number when the text consists of anything but
/// blocks of entries, contains a character that is not in the station's code page, or is empty.
/// @param parent  provides the counters and the memory of the items; they are not yet its children
std::vector<std::unique_ptr<MenuItem>> Read(std::string_view text, MenuEntry& parent);

} // namespace EntryText

} // namespace nesk
