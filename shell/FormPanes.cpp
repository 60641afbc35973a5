#include "shell/FormPanes.h"

#include "settings/WindowMemory.h"

#include <algorithm>

namespace nesk {

namespace {

constexpr std::array Names{"PaneBeside", "PaneBelow"};

// A remembered size beyond this is a mistake.
constexpr int LargestSize = 10000;

constexpr std::size_t IndexOf(FormPanes::Side side) {
    return static_cast<std::size_t>(side);
}

wxSplitterWindow* MakeSplitter(wxWindow* parent) {
    return new wxSplitterWindow(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize,
                                wxSP_LIVE_UPDATE | wxSP_NOBORDER, "spBeside");
}

} // namespace

FormPanes::FormPanes(wxWindow* parent, int smallest)
    : wxSplitterWindow(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxSP_LIVE_UPDATE | wxSP_NOBORDER,
                       "spBelow")
    , m_inner(MakeSplitter(this)) {
    for (wxSplitterWindow* splitter : {static_cast<wxSplitterWindow*>(this), m_inner}) {
        splitter->SetMinimumPaneSize(smallest);
        // A larger window gives its room to the tree, so that the panes keep their size.
        splitter->SetSashGravity(1);
        // A double click on the sash would hide a pane behind the back of the commands.
        splitter->Bind(wxEVT_SPLITTER_DOUBLECLICKED, [](wxSplitterEvent& event) { event.Veto(); });
    }
    Initialize(m_inner);
    for (const Side side : {Side::Beside, Side::Below}) {
        wxSplitterWindow& splitter = *SplitterOf(side);
        splitter.Bind(wxEVT_SPLITTER_SASH_POS_CHANGING, [this, side](wxSplitterEvent& event) {
            event.Skip();
            if (event.GetEventObject() == SplitterOf(side)) m_isDragged[IndexOf(side)] = true;
        });
        splitter.Bind(wxEVT_SPLITTER_SASH_POS_CHANGED, [this, side](wxSplitterEvent& event) {
            event.Skip();
            if (event.GetEventObject() != SplitterOf(side)) return; // of a splitter in a pane
            // Otherwise the splitter itself has moved the line, because there was no room.
            if (!m_isDragged[IndexOf(side)]) return;
            // The position is set after this event.
            CallAfter([this, side] {
                if (IsPaneShown(side)) m_sizes[IndexOf(side)] = ToDIP(SizeOf(side));
            });
        });
        splitter.Bind(wxEVT_SIZE, [this, side](wxSizeEvent& event) {
            event.Skip();
            m_isDragged[IndexOf(side)] = false;
            // After the splitter has arranged its windows.
            CallAfter([this, side] { FitPane(side); });
        });
    }
}

void FormPanes::SetTree(wxWindow& tree) {
    m_tree = &tree;
    m_inner->Initialize(&tree);
}

int FormPanes::LengthOf(Side side) const {
    const wxSize size = SplitterOf(side)->GetClientSize();
    return side == Side::Beside ? size.x : size.y;
}

void FormPanes::ShowPane(Side side, wxWindow& pane) {
    wxSplitterWindow& splitter = *SplitterOf(side);
    if (splitter.IsSplit()) return;
    int size = FromDIP(m_sizes[IndexOf(side)]);
    if (size <= 0) {
        size = LengthOf(side) * Shares[IndexOf(side)] / 100;
        m_sizes[IndexOf(side)] = ToDIP(size);
    }
    // A negative position counts from the right or the bottom.
    const int position = -(size + splitter.GetSashSize());
    if (side == Side::Beside)
        splitter.SplitVertically(m_tree, &pane, position);
    else
        splitter.SplitHorizontally(m_inner, &pane, position);
}

void FormPanes::HidePane(Side side) {
    SplitterOf(side)->Unsplit();
}

int FormPanes::SizeOf(Side side) const {
    const wxSize size = SplitterOf(side)->GetWindow2()->GetSize();
    return side == Side::Beside ? size.x : size.y;
}

// Gives a pane that a small window had made smaller its size back.
void FormPanes::FitPane(Side side) {
    wxSplitterWindow& splitter = *SplitterOf(side);
    const int size = FromDIP(m_sizes[IndexOf(side)]);
    if (!splitter.IsSplit() || size <= 0 || SizeOf(side) >= size) return;
    splitter.SetSashPosition(-(size + splitter.GetSashSize()));
}

void FormPanes::Restore(const WindowMemory& memory) {
    for (const Side side : {Side::Beside, Side::Below}) {
        const int size = memory.Number(Names[IndexOf(side)]).value_or(0);
        m_sizes[IndexOf(side)] = std::clamp(size, 0, LargestSize);
    }
}

void FormPanes::Remember(WindowMemory& memory) {
    for (const Side side : {Side::Beside, Side::Below}) {
        if (m_sizes[IndexOf(side)] > 0) memory.SetNumber(Names[IndexOf(side)], m_sizes[IndexOf(side)]);
    }
}

} // namespace nesk
