#pragma once

#include "shell/FormIcons.h"

#include <cstring>
#include <string_view>

#include <wx/bitmap.h>
#include <wx/image.h>
#include <wx/treectrl.h>

namespace nesk::testing {

/// Whether a node has the picture of this key (FormIcons.h).
inline bool HasIcon(const wxTreeCtrl& tree, const wxTreeItemId& node, std::string_view key) {
    const wxImage shown = tree.GetImageBitmapFor(&tree, tree.GetItemImage(node)).ConvertToImage();
    const wxSize size = shown.GetSize();
    const wxImage expected = IconBundle(key, size).GetBitmap(size).ConvertToImage();
    if (!shown.IsOk() || !expected.IsOk() || expected.GetSize() != size) return false;
    const auto pixels =
        static_cast<std::size_t>(size.GetWidth()) * static_cast<std::size_t>(size.GetHeight());
    return std::memcmp(shown.GetData(), expected.GetData(), pixels * 3) == 0;
}

} // namespace nesk::testing
