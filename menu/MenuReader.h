#pragma once

#include <functional>
#include <memory>
#include <vector>

namespace nesk {

class BlockParser;
class Menu;
class MenuEntry;
class MenuItem;

/// Builds menus and items from the tokens of a block parser. The parser must have been created with MenuKeys.
/// The reader registers no histories and shows no messages.
///
/// Raises 5000 for text that is not a menu or is damaged, TypeMismatch for a help topic that is not a number,
/// and the errors of the source. Each error has the line at which reading stopped. Nesting does not use the
/// machine stack.
class MenuReader {
public:
    /// Called for each item at the end of its block.
    using ItemHandler = std::function<void(const MenuItem&)>;

    explicit MenuReader(BlockParser& parser, ItemHandler onItemEnd = {})
        : m_parser(parser), m_onItemEnd(std::move(onItemEnd)) {}

    /// Reads a whole menu into a root. The root should be empty, because existing children stay. After an
    /// error, the items completed before it are in the root.
    /// @return false when the source ended before the root's block did; a truncated file is read without an
    ///         error
    bool ReadMenu(Menu& menu);

    /// Reads blocks of items up to the end of the source. The clipboard contains such blocks.
    /// @param parent  provides the counters and the memory of the items; they are not yet its children
    /// @return the items in their order; none of them after an error
    std::vector<std::unique_ptr<MenuItem>> ReadItems(MenuEntry& parent);

    /// Reads one item and everything below it. The parser must just have returned the start of the item's
    /// block. A block without an end is accepted.
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
