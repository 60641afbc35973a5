#pragma once

#include "gui/UiDriver.h"
#include "shell/FormMain.h"
#include "shell/FormMenuTree.h"
#include "unit/platform/TempStation.h"

#include <deque>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

#include <wx/gdicmn.h>
#include <wx/modalhook.h>

class wxDialog;

namespace nesk::testing {

/// A modal dialog that was shown.
struct ShownDialog {
    std::string title;
    std::string text;
    long style = 0;
};

/// Answers modal dialogs with the answers that the test announced, in that order, and records the dialogs. A
/// dialog that was not announced fails the test and is cancelled.
class DialogScript : public wxModalDialogHook {
public:
    DialogScript() { Register(); }
    ~DialogScript() override;

    /// Announces a dialog and the answer to it.
    void Answer(int answer) { m_answers.push_back(answer); }

    std::vector<ShownDialog> shown;

protected:
    int Enter(wxDialog* dialog) override;

private:
    std::deque<int> m_answers;
};

/// A main window on a fresh station whose menu root is C:\Neskroot.
class MainWindowTest : public ::testing::Test {
protected:
    MainWindowTest();
    ~MainWindowTest() override;

    /// Writes the menu file.
    void WriteMenu(const std::string& bytes) { station.Write("C:\\Neskroot\\menu.cfg", bytes); }

    /// Contents of the menu file on disk; "" if it is missing.
    std::string MenuOnDisk() const;

    /// Opens the main window.
    void OpenWindow();

    /// Selects an entry by its id.
    void Select(const std::string& id);

    /// The captions in the tree view, one per line, indented by level. Queries the view for each of them.
    std::string TreeText() const;

    /// The captions of the selected rows, from top to bottom, separated by spaces.
    std::string SelectedText() const;

    /// The tree view.
    platform::TreeView& Tree() const { return window->tvMain->View(); }

    /// The row of an entry, by its id.
    platform::TreeNode& Row(const std::string& id) const;

    /// Clicks the row of an entry.
    /// @param key  key that is held down meanwhile, for example WXK_SHIFT; 0 for none
    void ClickRow(const std::string& id, int button = wxMOUSE_BTN_LEFT, int key = 0);
    void DoubleClickRow(const std::string& id);

    /// Returns true if a bar with a text is shown above the tree.
    static bool IsShown(const FormMain::InfoBar& bar);

    /// The middle of a visible row, in screen coordinates.
    wxPoint MiddleOf(const std::string& id) const { return PointIn(id, 0.5); }

    /// A point of a visible row, in screen coordinates.
    /// @param part  0 is the upper edge of the row, 1 the lower one
    wxPoint PointIn(const std::string& id, double part) const;

    TempStation station;
    DialogScript dialogs;
    FormMain* window = nullptr;
};

/// A menu file with a root and three entries: two parts around a submenu that holds one part.
extern const std::string SmallMenu;

} // namespace nesk::testing
