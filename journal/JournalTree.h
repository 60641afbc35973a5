#pragma once

#include "journal/JournalCode.h"

#include <memory>
#include <string>
#include <string_view>

/// Entries of a menu in a journal. All readers raise JournalDamage for what cannot be part of a menu: texts
/// that no menu file can store, too many children, and counters that are no counters or occur twice. They
/// walk trees of any depth in loops.
namespace nesk {

class Menu;
class MenuEntry;
class MenuItem;

namespace JournalTree {

/// An id, as the counters from the root down.
void AppendId(JournalEncoder& out, std::string_view id);

/// The entry with the id that follows, or null.
MenuEntry* ReadId(JournalDecoder& in, Menu& menu);

/// The fields of an entry without its children: of the root, caption and picture.
void AppendFields(JournalEncoder& out, const MenuEntry& entry);
void ReadFields(JournalDecoder& in, MenuEntry& entry);

/// An item and everything below it, with the counters.
void AppendItem(JournalEncoder& out, const MenuItem& item);

/// Reads what AppendItem wrote. The item has the counter that it had, and is not yet a child of `parent`.
std::unique_ptr<MenuItem> ReadItem(JournalDecoder& in, MenuEntry& parent);

/// A whole menu.
void AppendMenu(JournalEncoder& out, const Menu& menu);

/// Replaces the contents of `menu` by what AppendMenu wrote.
void ReadMenu(JournalDecoder& in, Menu& menu);

/// Reads a counter that none of the children of `parent` has.
/// @param but  a child that may have it; may be null
std::int32_t ReadCounter(JournalDecoder& in, MenuEntry& parent, const MenuItem* but = nullptr);

} // namespace JournalTree

/// The counters of a tree. A menu that was saved keeps its ids, but whoever reads the file counts its entries
/// anew, from 1 for each parent. So these counters are stored with the journal.
namespace JournalCounters {

/// The counters of all entries; short for entries that a reader would count in the same way.
std::string Of(const Menu& menu);

/// Gives the entries of `menu` the counters that the menu with the same entries had.
/// @param counters  from Of. "" for those of a menu that was just read
void Restore(Menu& menu, std::string_view counters);

} // namespace JournalCounters

} // namespace nesk
