#pragma once

#include "versions/MenuMerge.h"

#include <string>

namespace nesk {

/// Texts of a conflict of a merge.
namespace ConflictText {

/// Where the entry is: the captions of its submenus and its own.
std::string Place(const MergeConflict& conflict);

/// What the conflict is about: the name of a field, or of something like it.
std::string Subject(const MergeConflict& conflict);

/// What the base and each side have; that of the base is "" for an entry that the base has not.
std::string BaseValue(const MergeConflict& conflict);
std::string Value(const MergeConflict& conflict, Side side);

} // namespace ConflictText
} // namespace nesk
