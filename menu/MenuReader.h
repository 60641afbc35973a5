#pragma once

#include <functional>
#include <memory>
#include <vector>

namespace nesk {

class BlockParser;
class Menu;
class MenuEntry;
class MenuItem;

/// Builds menus and items from the tokens of a block parser, which must know the keys of a menu (MenuKeys).
/// It registers nothing and shows nothing.
///
/// Raises 5000 for text that is no menu or is damaged, TypeMismatch for a help topic that is no number, and
/// the errors of the source. Each carries the line at which reading stopped. Nesting costs no machine stack.
class MenuReader {
public:
    /// Called for each item at the end of its block, in the order of these ends.
    using ItemHandler = std::function<void(const MenuItem&)>;

    explicit MenuReader(BlockParser& parser, ItemHandler onItemEnd = {})
        : m_parser(parser), m_onItemEnd(std::move(onItemEnd)) {}

    /// Reads a whole menu into a root, which should be fresh: children that it has already stay. After an
    /// error the items completed by then are in it.
    /// @return false when the source ended before the root's block did; a cut-off file reads without an error
    bool ReadMenu(Menu& menu);

    /// Reads blocks of items up to the end of the source, as the clipboard holds them.
    /// @param parent  gives the items their counters and their memory; they are not its children yet
    /// @return the items in their order; an error gives none of them
    std::vector<std::unique_ptr<MenuItem>> ReadItems(MenuEntry& parent);

    /// Reads one item and everything below it; the parser has just returned the start of its block. A block
    /// that the source does not end is accepted.
    /// @return false when the source ended before the item's block did
    bool ReadItem(MenuItem& item);

private:
    bool ReadRoot(Menu& menu);
    void SetField(MenuItem& item) const;
    void CheckSubmenuBlock() const;

    BlockParser& m_parser;
    ItemHandler m_onItemEnd;
};

} // namespace nesk
