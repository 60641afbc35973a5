#pragma once

#include "platform/UiTreeView.h"

#include <string_view>

class wxImage;
class wxWindow;

namespace nesk::testing {

/// What a control draws, with its children.
wxImage Drawn(wxWindow& window);

/// Whether the picture of this key (FormIcons.h) is drawn in the row of a node, which must be in view and not
/// selected.
bool HasIcon(platform::TreeView& tree, const platform::TreeNode& node, std::string_view key);

} // namespace nesk::testing
