#pragma once

#include "menu/PartFields.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <string>

namespace nesk {

class Arena;
class Menu;
class MenuItem;

/// One thing that happened to the tree, for whoever shows it.
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

    /// Of an entry that moved to another parent: its id until now. The ids below it changed with it. "" when
    /// the id is the same.
    std::string formerId;
};

/// Hears of what a change does, each event when it has just happened: the tree is as the event leaves it.
using MenuEventHandler = std::function<void(const MenuEvent&)>;

/// One change of a menu, which can be made and taken back any number of times, in turns. Entries are named by
/// their ids, which stay valid when an entry is removed and put back.
class MenuChange {
public:
    virtual ~MenuChange() = default;

    /// Makes the change. False when it is not possible; then nothing has changed and nothing is to be taken
    /// back. When it raises, nothing has changed either.
    virtual bool Apply(Menu& menu, const MenuEventHandler& report) = 0;

    /// Takes the change back. Results as for Apply.
    virtual bool Revert(Menu& menu, const MenuEventHandler& report) = 0;

    /// About how much memory the change keeps, in bytes.
    virtual std::size_t Bytes() const = 0;
};

/// A change that is one event.
class SingleChange : public MenuChange {
public:
    bool Apply(Menu& menu, const MenuEventHandler& report) final;
    bool Revert(Menu& menu, const MenuEventHandler& report) final;

protected:
    /// Kind::None when the change is not possible.
    virtual MenuEvent Do(Menu& menu) = 0;
    virtual MenuEvent Undo(Menu& menu) = 0;
};

/// Appends a new entry to the children of an entry.
class AddChange final : public SingleChange {
public:
    AddChange(std::string parentId, std::string caption, std::string menuType);
    ~AddChange() override;
    std::size_t Bytes() const override;

protected:
    MenuEvent Do(Menu& menu) override;
    MenuEvent Undo(Menu& menu) override;

private:
    std::string m_parentId;
    std::string m_caption;
    std::string m_menuType;
    std::string m_id;
    std::shared_ptr<Arena> m_memory;     // in which the entry lies
    std::unique_ptr<MenuItem> m_removed; // the entry while the change is taken back
};

/// Removes an entry with everything below it.
class RemoveChange final : public SingleChange {
public:
    explicit RemoveChange(std::string id);
    ~RemoveChange() override;
    std::size_t Bytes() const override;

protected:
    MenuEvent Do(Menu& menu) override;
    MenuEvent Undo(Menu& menu) override;

private:
    std::string m_id;
    std::string m_parentId;
    int m_position = 0;
    std::shared_ptr<Arena> m_memory;
    std::unique_ptr<MenuItem> m_removed;
};

/// Moves an entry one position among its siblings.
class MoveChange final : public SingleChange {
public:
    enum class Direction { Up, Down };
    MoveChange(std::string id, Direction direction);
    std::size_t Bytes() const override;

protected:
    MenuEvent Do(Menu& menu) override;
    MenuEvent Undo(Menu& menu) override;

private:
    MenuEvent Move(Menu& menu, Direction direction) const;

    std::string m_id;
    Direction m_direction;
};

/// Gives an entry another caption.
class CaptionChange final : public SingleChange {
public:
    CaptionChange(std::string id, std::string caption);
    std::size_t Bytes() const override;

protected:
    MenuEvent Do(Menu& menu) override;
    MenuEvent Undo(Menu& menu) override;

private:
    MenuEvent Exchange(Menu& menu);

    std::string m_id;
    std::string m_other; // the caption that the entry does not have at the moment
};

/// Gives an entry another picture.
class GraphicChange final : public SingleChange {
public:
    GraphicChange(std::string id, std::string graphic);
    std::size_t Bytes() const override;

protected:
    MenuEvent Do(Menu& menu) override;
    MenuEvent Undo(Menu& menu) override;

private:
    MenuEvent Exchange(Menu& menu);

    std::string m_id;
    std::string m_other;
};

/// Gives a part button other fields.
class PartChange final : public SingleChange {
public:
    PartChange(std::string id, PartFields fields);
    std::size_t Bytes() const override;

protected:
    MenuEvent Do(Menu& menu) override;
    MenuEvent Undo(Menu& menu) override;

private:
    MenuEvent Exchange(Menu& menu);

    std::string m_id;
    PartFields m_other;
};

} // namespace nesk
