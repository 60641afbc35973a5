#pragma once

#include <string_view>
#include <wx/bmpbndl.h>

namespace nesk {

/// Returns a picture of the program that is sharp at every size and screen resolution.
/// @param key   "folder" and "part" of the trees, "app" of the program, "edit" and "remove" of the tool bar;
/// "Critical",
///              "Question", "Exclamation" and "Information" of the message box. A key and an overlay, "add"
///              or "warning", make a picture with a smaller one in its corner: "part+warning"
/// @param size  size in pixels of a screen at normal resolution
/// @return an empty bundle for an unknown key
wxBitmapBundle IconBundle(std::string_view key, wxSize size);

} // namespace nesk
