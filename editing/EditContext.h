#pragma once

#include <cstddef>
#include <functional>
#include <memory>

namespace nesk {

/// What a view showed before a change: selection and scroll position. Undo brings it back. It stays valid as
/// long as the change, because undoing returns to the same ids.
class EditContext {
public:
    virtual ~EditContext() = default;

    /// Shows the same again.
    virtual void Restore() = 0;

    /// Approximate memory that the context uses, in bytes.
    virtual std::size_t Bytes() const = 0;
};

/// Returns the current context, or null while no menu is open.
using EditContextSource = std::function<std::unique_ptr<EditContext>()>;

} // namespace nesk
