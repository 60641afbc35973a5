#pragma once

#include "editing/EditContext.h"
#include "editing/MenuChange.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace nesk {

/// The name of a change: the number of a text, and the arguments for its placeholders.
struct ChangeName {
    int textId = 0;
    std::vector<std::string> arguments;

    bool operator==(const ChangeName&) const = default;
};

/// The changes of a menu in the order in which they were made, and the number of them that are in effect. The
/// stack does not make or undo changes itself.
///
/// It marks the state that is on disk. When the memory limit is exceeded, the oldest changes are dropped; the
/// newest change always stays.
class UndoStack {
public:
    static constexpr std::size_t DefaultLimit = std::size_t{64} << 20;
    static constexpr std::size_t NoLimit = static_cast<std::size_t>(-1);

    /// @param limit  maximum sum of MenuChange::Bytes, in bytes
    explicit UndoStack(std::size_t limit = DefaultLimit) : m_limit(limit) {}

    /// Adds a change that has just been made. Drops the changes that were undone.
    /// @param before  what the view showed before the change; may be null
    void Push(std::unique_ptr<MenuChange> change, ChangeName name,
              std::unique_ptr<EditContext> before = nullptr);

    /// Drops all changes and marks the state as the one on disk.
    void Clear();

    /// The change to undo next, and the change to redo next; null when there is no such change.
    MenuChange* ToUndo() const { return m_done > 0 ? m_steps[m_done - 1].change.get() : nullptr; }
    MenuChange* ToRedo() const { return m_done < m_steps.size() ? m_steps[m_done].change.get() : nullptr; }

    /// Records that ToUndo was undone, or that ToRedo was redone.
    /// @return what the view showed before the change; may be null
    EditContext* Undone() { return m_steps[--m_done].before.get(); }
    void Redone() { ++m_done; }

    /// Makes the last two changes one, unless the state between them is the one on disk.
    void MergeLastTwo(ChangeName name);

    /// Names of the changes that can be undone or redone, the next one first.
    /// @param most  the greatest number of names to return
    std::vector<ChangeName> UndoNames(std::size_t most = NoLimit) const;
    std::vector<ChangeName> RedoNames(std::size_t most = NoLimit) const;

    /// Marks the current state as the one on disk.
    void MarkSaved() { m_saved = m_done; }

    /// Forgets which state is on disk: no state is.
    void ForgetSaved() { m_saved.reset(); }

    /// True when the current state is the one on disk.
    bool IsAtSaved() const { return m_saved == m_done; }

    /// The number of changes between the state on disk and the current state, in either direction; nothing
    /// when undo and redo can no longer reach the state on disk.
    std::optional<std::size_t> StepsFromSaved() const;

    /// Total memory of all changes and their names, measured when they were added, in bytes.
    std::size_t Bytes() const { return m_bytes; }

private:
    struct Step {
        std::unique_ptr<MenuChange> change;
        ChangeName name;
        // Measured when the change was added, because counting a large removed submenu is slow.
        std::size_t bytes;
        std::unique_ptr<EditContext> before;
    };

    static std::size_t BytesOf(const Step& step);
    void DropRedo();
    void DropOldest();

    std::size_t m_limit;
    std::size_t m_bytes = 0;
    std::vector<Step> m_steps;
    std::size_t m_done = 0; // number of steps in effect
    // Number of steps in effect in the state on disk; nothing when undo and redo can no longer reach it.
    std::optional<std::size_t> m_saved = 0;
};

} // namespace nesk
