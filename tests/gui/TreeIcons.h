#pragma once

#include "platform/UiTreeView.h"

#include <string_view>

class wxImage;
class wxWindow;

namespace nesk::testing {

/// A picture of a control and its children as they are drawn.
wxImage Drawn(wxWindow& window);

/// Returns whether the picture with this key (UiIcons.h) is drawn in the row of a node. The row must be
/// visible and not selected.
bool HasIcon(platform::TreeView& tree, const platform::TreeNode& node, std::string_view key);

} // namespace nesk::testing
