#pragma once

#include <functional>

class wxDialog;
class wxStaticText;
class wxWindow;

namespace nesk {

/// Lets the access key of a label lead to a tree. Not every system does that by itself: a tree consists of
/// several windows, and the outer one handles no keys.
void BindAccessKey(wxDialog& dialog, const wxStaticText& label, wxWindow& tree);

/// Calls `act` when Enter is pressed in a tree, which would take the key for itself.
void BindEnter(wxWindow& tree, std::function<void()> act);

} // namespace nesk
