#pragma once

#include <array>
#include <cstddef>

#include <wx/splitter.h>

namespace nesk {

class WindowMemory;

/// The tree of the main window with a pane beside it and a pane below both. A pane is shown or not; the user
/// drags the sashes between them. The sizes of the panes are kept while they are hidden.
class FormPanes : public wxSplitterWindow {
public:
    enum class Side { Beside, Below };

    /// @param smallest  smallest width and height of the tree and of each pane, in pixels
    FormPanes(wxWindow* parent, int smallest);

    /// The window that must be the parent of the tree and of a pane beside it. The parent of a pane below is
    /// this window.
    wxWindow* Inner() { return m_inner; }

    /// Sets the tree, before any pane is shown.
    void SetTree(wxWindow& tree);

    /// Shows a pane, with the size that it had when it was last shown, or a share of the room.
    void ShowPane(Side side, wxWindow& pane);
    void HidePane(Side side);
    bool IsPaneShown(Side side) const { return SplitterOf(side)->IsSplit(); }

    /// Sets the sizes that are remembered, and stores the present ones.
    void Restore(const WindowMemory& memory);
    void Remember(WindowMemory& memory);

private:
    // The share of the room that the panes get at first, in percent.
    static constexpr std::array Shares{55, 30};

    wxSplitterWindow* SplitterOf(Side side) { return side == Side::Beside ? m_inner : this; }
    const wxSplitterWindow* SplitterOf(Side side) const { return side == Side::Beside ? m_inner : this; }
    int LengthOf(Side side) const;
    int SizeOf(Side side) const;
    void FitPane(Side side);

    wxSplitterWindow* m_inner;
    wxWindow* m_tree = nullptr;
    // The sizes that the user has given the panes by side, in device-independent pixels; 0 for none. In a
    // small window a pane is smaller.
    std::array<int, 2> m_sizes{};
    std::array<bool, 2> m_isDragged{}; // the user moves the line, by side
};

} // namespace nesk
