#pragma once

#include <functional>

class wxDialog;
class wxStaticText;
class wxWindow;

namespace nesk {

/// Makes the access key of a label move the focus to a tree. Not every system does this itself, because a
/// tree consists of several windows and the outer window handles no keys.
void BindAccessKey(wxDialog& dialog, const wxStaticText& label, wxWindow& tree);

/// Calls `act` when Enter is pressed in a tree. Otherwise the tree would handle the key itself.
void BindEnter(wxWindow& tree, std::function<void()> act);

} // namespace nesk
