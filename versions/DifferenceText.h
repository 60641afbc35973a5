#pragma once

#include "versions/MenuDiff.h"

#include <string>

namespace nesk {

/// Texts of the difference of two menus.
namespace DifferenceText {

/// The numbers of affected entries in one line, for example "3 added, 1 removed"; or that there is no
/// difference.
std::string Summary(const MenuDiff& difference);

/// What happened to the entry of a node; only its caption when nothing did.
std::string Of(const MenuDiff::Node& node);

/// A field with its old and its new value.
std::string Of(const FieldDifference& difference);

/// The name of a field.
std::string FieldName(MenuKey field);

/// A value of a field: long texts are shortened, and an empty one gets a word of its own.
std::string Value(const std::string& value);

} // namespace DifferenceText
} // namespace nesk
