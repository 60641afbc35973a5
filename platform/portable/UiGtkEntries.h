#pragma once

#include <string>

#include <gtk/gtk.h>

/// What all drags of menu entries have in common on GTK.
namespace nesk::platform::portable {

/// The format of dragged entries. No other program accepts it: it would then own what the user meant to move.
GtkTargetEntry EntryTarget();

/// True when Ctrl is held during a drag.
bool DragCopies(GdkDragContext* context);

void SetDragText(GtkSelectionData& data, const std::string& text);

/// The text that another window sent; "" for none.
std::string DragText(const GtkSelectionData& data);

} // namespace nesk::platform::portable
