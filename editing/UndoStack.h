#pragma once

#include "editing/MenuChange.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace nesk {

/// What a change is called: the number of a text and what fills its placeholders.
struct ChangeName {
    int textId = 0;
    std::vector<std::string> arguments;

    bool operator==(const ChangeName&) const = default;
};

/// The changes of a menu in the order in which they were made, and how many of them are in effect. It makes
/// and takes back nothing itself.
///
/// It keeps a mark at the state that is on disk. A bound on memory drops the oldest changes; the newest one
/// always stays.
class UndoStack {
public:
    static constexpr std::size_t UsualLimit = std::size_t{64} << 20;

    /// @param limit  bytes that the changes may keep, by MenuChange::Bytes
    explicit UndoStack(std::size_t limit = UsualLimit) : m_limit(limit) {}

    /// Adds a change that has just been made. The changes that were taken back are dropped.
    void Push(std::unique_ptr<MenuChange> change, ChangeName name);

    /// Drops all changes. The state is the one on disk.
    void Clear();

    /// The change to take back next, and the one to make again next; null when there is none.
    MenuChange* ToUndo() const { return m_done > 0 ? m_steps[m_done - 1].change.get() : nullptr; }
    MenuChange* ToRedo() const { return m_done < m_steps.size() ? m_steps[m_done].change.get() : nullptr; }

    /// Notes that ToUndo was taken back, or ToRedo made.
    void Undone() { --m_done; }
    void Redone() { ++m_done; }

    /// Names of the changes that can be taken back, and of those that can be made again, the next one first.
    std::vector<ChangeName> UndoNames() const;
    std::vector<ChangeName> RedoNames() const;

    /// Marks the state at hand as the one on disk.
    void MarkSaved() { m_saved = m_done; }

    /// Whether the state at hand is the one on disk.
    bool IsAtSaved() const { return m_saved == m_done; }

    /// Bytes that all changes kept when they were added.
    std::size_t Bytes() const { return m_bytes; }

private:
    struct Step {
        std::unique_ptr<MenuChange> change;
        ChangeName name;
        std::size_t bytes; // when it was added: to count a large removed submenu takes long
    };

    void DropRedo();
    void DropOldest();

    std::size_t m_limit;
    std::size_t m_bytes = 0;
    std::vector<Step> m_steps;
    std::size_t m_done = 0; // how many of the steps are in effect
    // How many were in effect in the state on disk; nothing when no undo or redo leads there any more.
    std::optional<std::size_t> m_saved = 0;
};

} // namespace nesk
