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

/// An event: what happened to one entry of the tree. Views use it to update themselves.
struct MenuEvent {
    enum class Kind {
        None,     ///< nothing changed
        Added,    ///< the entry `id` was added, at `position` among the children of `parentId`
        Removed,  ///< the entry `id` and everything below it were removed
        Moved,    ///< the entry `id` was moved to `position` among the children of `parentId`
        Edited,   ///< a field of the entry `id` has a new value
        Reordered ///< the children of the entry `id` have another order
    };

    Kind kind = Kind::None;
    std::string id;
    std::string parentId;
    int position = 0; ///< 1-based

    /// The former id of an entry that moved to another parent. The ids of the entries below changed with it.
    /// "" when the id is unchanged.
    std::string formerId;
};

/// Called for each event of a change, directly after the event and before the next one.
using MenuEventHandler = std::function<void(const MenuEvent&)>;

/// One change of a menu. It can be made and undone repeatedly, in turns. It refers to entries by their ids,
/// which stay valid when an entry is removed and put back.
class MenuChange {
public:
    virtual ~MenuChange() = default;

    /// Makes the change. Returns false when it is not possible; nothing has then changed, and there is
    /// nothing to undo. Nothing has changed either when an error is raised.
    virtual bool Apply(Menu& menu, const MenuEventHandler& report) = 0;

    /// Undoes the change. The results are the same as for Apply.
    virtual bool Revert(Menu& menu, const MenuEventHandler& report) = 0;

    /// Number of events that making or undoing the change reports.
    virtual std::size_t EventCount() const = 0;

    /// Approximate memory that the change uses, in bytes.
    virtual std::size_t Bytes() const = 0;
};

/// A change that consists of one event.
class SingleChange : public MenuChange {
public:
    bool Apply(Menu& menu, const MenuEventHandler& report) final;
    bool Revert(Menu& menu, const MenuEventHandler& report) final;
    std::size_t EventCount() const final { return 1; }

protected:
    /// Return Kind::None when the change is not possible.
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
    std::shared_ptr<Arena> m_memory;     // the arena that contains the entry
    std::unique_ptr<MenuItem> m_removed; // the entry while the change is undone
};

/// Removes an entry and everything below it.
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

/// Changes the caption of an entry.
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
    std::string m_other; // the new caption before the change is made, the old one afterwards
};

/// Changes the picture of an entry.
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

/// Changes the fields of a part button.
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
