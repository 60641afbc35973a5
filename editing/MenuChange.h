#pragma once

#include "menu/PartFields.h"

#include <memory>
#include <string>

namespace nesk {

class Arena;
class Menu;
class MenuItem;

/// What a change did to the tree, for whoever shows it.
struct MenuEvent {
    enum class Kind {
        None,    ///< nothing changed
        Added,   ///< the entry `id` is new, at `position` among the children of `parentId`
        Removed, ///< the entry `id` and everything below it is gone
        Moved,   ///< the entry `id` now stands at `position` among the children of `parentId`
        Edited   ///< a field of the entry `id` has another value
    };

    Kind kind = Kind::None;
    std::string id;
    std::string parentId;
    int position = 0; ///< 1-based
};

/// One change of a menu, which can be made and taken back any number of times, in turns. Entries are named by
/// their ids, which stay valid when an entry is removed and put back.
class MenuChange {
public:
    virtual ~MenuChange() = default;

    /// Makes the change. Kind::None when it is not possible, and then nothing is to be taken back.
    virtual MenuEvent Apply(Menu& menu) = 0;

    /// Takes the change back.
    virtual MenuEvent Revert(Menu& menu) = 0;
};

/// Appends a new entry to the children of an entry.
class AddChange final : public MenuChange {
public:
    AddChange(std::string parentId, std::string caption, std::string menuType);
    ~AddChange() override;
    MenuEvent Apply(Menu& menu) override;
    MenuEvent Revert(Menu& menu) override;

private:
    std::string m_parentId;
    std::string m_caption;
    std::string m_menuType;
    std::string m_id;
    std::shared_ptr<Arena> m_memory;     // in which the entry lies
    std::unique_ptr<MenuItem> m_removed; // the entry while the change is taken back
};

/// Removes an entry with everything below it.
class RemoveChange final : public MenuChange {
public:
    explicit RemoveChange(std::string id);
    ~RemoveChange() override;
    MenuEvent Apply(Menu& menu) override;
    MenuEvent Revert(Menu& menu) override;

private:
    std::string m_id;
    std::string m_parentId;
    int m_position = 0;
    std::shared_ptr<Arena> m_memory;
    std::unique_ptr<MenuItem> m_removed;
};

/// Moves an entry one position among its siblings.
class MoveChange final : public MenuChange {
public:
    enum class Direction { Up, Down };
    MoveChange(std::string id, Direction direction);
    MenuEvent Apply(Menu& menu) override;
    MenuEvent Revert(Menu& menu) override;

private:
    MenuEvent Move(Menu& menu, Direction direction) const;

    std::string m_id;
    Direction m_direction;
};

/// Gives an entry another caption.
class CaptionChange final : public MenuChange {
public:
    CaptionChange(std::string id, std::string caption);
    MenuEvent Apply(Menu& menu) override;
    MenuEvent Revert(Menu& menu) override;

private:
    MenuEvent Exchange(Menu& menu);

    std::string m_id;
    std::string m_other; // the caption that the entry does not have at the moment
};

/// Gives an entry another picture.
class GraphicChange final : public MenuChange {
public:
    GraphicChange(std::string id, std::string graphic);
    MenuEvent Apply(Menu& menu) override;
    MenuEvent Revert(Menu& menu) override;

private:
    MenuEvent Exchange(Menu& menu);

    std::string m_id;
    std::string m_other;
};

/// Gives a part button other fields.
class PartChange final : public MenuChange {
public:
    PartChange(std::string id, PartFields fields);
    MenuEvent Apply(Menu& menu) override;
    MenuEvent Revert(Menu& menu) override;

private:
    MenuEvent Exchange(Menu& menu);

    std::string m_id;
    PartFields m_other;
};

} // namespace nesk
