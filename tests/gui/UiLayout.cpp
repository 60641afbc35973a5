#include "gui/UiLayout.h"

#include "widgets/UiUtilities.h"

#include <cstddef>

#include <wx/button.h>
#include <wx/checkbox.h>
#include <wx/listctrl.h>
#include <wx/panel.h>
#include <wx/radiobut.h>
#include <wx/splitter.h>
#include <wx/statbox.h>
#include <wx/stattext.h>
#include <wx/statusbr.h>
#include <wx/toolbar.h>
#include <wx/toplevel.h>

namespace nesk::testing {

namespace {

using modUtilities::FromWx;

// Native controls round their sizes.
constexpr int Tolerance = 1;

std::string TextOf(const wxRect& rect) {
    return std::to_string(rect.x) + "," + std::to_string(rect.y) + " " + std::to_string(rect.width) + "x" +
           std::to_string(rect.height);
}

class Inspection {
public:
    std::vector<std::string> problems;

    void Look(const wxWindow& parent) {
        std::vector<const wxWindow*> children;
        for (const wxWindow* child : parent.GetChildren())
            if (child->IsShown() && !child->IsTopLevel() && !IsBar(*child)) children.push_back(child);
        for (std::size_t i = 0; i < children.size(); ++i) {
            const wxWindow& child = *children[i];
            CheckPlace(parent, child);
            CheckText(child);
            for (std::size_t other = 0; other < i; ++other)
                CheckOverlap(child, *children[other]);
            if (HoldsControls(child)) Look(child);
        }
    }

private:
    void Add(const wxWindow& window, const std::string& what) {
        problems.push_back(FromWx(window.GetName()) + " \"" + FromWx(window.GetLabel()) + "\" " + what);
    }

    // Other windows with children are native controls.
    static bool HoldsControls(const wxWindow& window) {
        return dynamic_cast<const wxPanel*>(&window) != nullptr ||
               dynamic_cast<const wxStaticBox*>(&window) != nullptr ||
               dynamic_cast<const wxSplitterWindow*>(&window) != nullptr;
    }

    // The bars of a frame are outside of what it counts as its own area.
    static bool IsBar(const wxWindow& window) {
        return dynamic_cast<const wxStatusBar*>(&window) != nullptr ||
               dynamic_cast<const wxToolBar*>(&window) != nullptr;
    }

    void CheckPlace(const wxWindow& parent, const wxWindow& child) {
        wxRect inside(parent.GetClientSize());
        // A box counts its frame as its own area.
        if (dynamic_cast<const wxStaticBox*>(&parent) != nullptr) inside = wxRect(parent.GetSize());
        const wxRect place = child.GetRect();
        wxRect room = inside;
        room.Inflate(Tolerance);
        if (!room.Contains(place)) Add(child, "at " + TextOf(place) + " is not inside " + TextOf(inside));
    }

    void CheckOverlap(const wxWindow& one, const wxWindow& other) {
        // A box may be drawn around its siblings.
        if (dynamic_cast<const wxStaticBox*>(&one) != nullptr ||
            dynamic_cast<const wxStaticBox*>(&other) != nullptr)
            return;
        const wxRect common = one.GetRect().Intersect(other.GetRect());
        if (common.width > Tolerance && common.height > Tolerance)
            Add(one, "overlaps " + FromWx(other.GetName()));
    }

    void CheckText(const wxWindow& control) {
        if (const auto* list = dynamic_cast<const wxListCtrl*>(&control)) return CheckHeadings(*list);
        const bool isText = dynamic_cast<const wxStaticText*>(&control) != nullptr;
        const bool hasCaption = isText || dynamic_cast<const wxButton*>(&control) != nullptr ||
                                dynamic_cast<const wxCheckBox*>(&control) != nullptr ||
                                dynamic_cast<const wxRadioButton*>(&control) != nullptr;
        constexpr long shortened = wxST_ELLIPSIZE_START | wxST_ELLIPSIZE_MIDDLE | wxST_ELLIPSIZE_END;
        if (!hasCaption || control.GetLabel().empty() || (isText && control.HasFlag(shortened))) return;
        const wxSize best = control.GetBestSize();
        const wxSize size = control.GetSize();
        if (size.x + Tolerance < best.x || size.y + Tolerance < best.y)
            Add(control, "is cut: " + TextOf(wxRect(size)) + " instead of " + TextOf(wxRect(best)));
    }

    void CheckHeadings(const wxListCtrl& list) {
        for (int column = 0; column < list.GetColumnCount(); ++column) {
            wxListItem item;
            item.SetMask(wxLIST_MASK_TEXT);
            list.GetColumn(column, item);
            const int text = list.GetTextExtent(item.GetText()).x;
            const int width = list.GetColumnWidth(column);
            if (text > width)
                Add(list, "the heading \"" + FromWx(item.GetText()) + "\" is cut: " + std::to_string(width) +
                              " instead of " + std::to_string(text));
        }
    }
};

} // namespace

std::vector<std::string> LayoutProblems(const wxWindow& window) {
    Inspection inspection;
    inspection.Look(window);
    return std::move(inspection.problems);
}

} // namespace nesk::testing
