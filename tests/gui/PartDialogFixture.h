#pragma once

#include "gui/ModalDriver.h"
#include "platform/OpenFileDialog.h"
#include "unit/CoreFixture.h"

#include <deque>
#include <functional>
#include <gtest/gtest.h>
#include <string>
#include <utility>
#include <vector>

#include <wx/dialog.h>
#include <wx/modalhook.h>
#include <wx/timer.h>

class wxButton;
class wxChoice;

namespace nesk::testing {

/// A message box of the system that came up.
struct SystemBox {
    std::string title;
    std::string text;
};

/// Drives real modal dialogs on a fresh station, also those that open another: what is to be done with each
/// is announced before it comes up. The boxes of the system are answered without being shown; the program's
/// own messages go to the recorder of CoreTest. A dialog that nobody announced fails the test and is
/// cancelled.
class PartDialogTest : public CoreTest {
protected:
    PartDialogTest();
    ~PartDialogTest() override;

    /// Announces what is done with the next dialog of a class, as soon as it is there and active, and ready
    /// where that is asked for. A dialog that it opens in turn is announced after it.
    template <typename Form>
    void WhenShown(const std::string& name, std::function<void(Form&)> act,
                   std::function<bool(const Form&)> ready = nullptr) {
        m_steps.push_back({name,
                           [act = std::move(act)](wxDialog& dialog) {
                               auto* form = dynamic_cast<Form*>(&dialog);
                               ASSERT_NE(form, nullptr);
                               act(*form);
                           },
                           [ready = std::move(ready)](const wxDialog& dialog) {
                               const auto* form = dynamic_cast<const Form*>(&dialog);
                               return !ready || form == nullptr || ready(*form);
                           }});
    }

    /// Announces a message box of the system and the answer to it.
    void ExpectSystemBox(int answer = wxID_OK) { m_boxAnswers.push_back(answer); }

    /// Announces a file dialog and the Windows path chosen in it; "" when it is cancelled.
    void ChooseFile(const std::string& path) { m_files.push_back(path); }

    /// Presses a button as a click does. One that is missing, hidden or disabled fails the test.
    static void Click(wxButton* button);

    /// Clicks with the mouse into a control, near its right end, and handles what follows.
    static void ClickInto(const wxWindow& control);

    /// Types a text, or presses a key, into the control that has the focus.
    static void Type(const std::string& text);
    static void Press(int key, int modifiers = 0);

    /// Pastes a text into the control that has the focus.
    static void Paste(const std::string& text);

    /// Handles events until a condition holds; false when it did not within five seconds.
    static bool WaitUntil(const std::function<bool()>& condition);

    /// Handles the events that are there.
    static void Settle();

    /// Names of the controls in the order in which Tab visits them, one blank between them, starting at the
    /// control that has the focus and ending before it comes again.
    static std::string TabOrder();

    /// What TabOrder calls a drop-down list: "-" where the list keeps from the toolkit that it has the focus.
    static std::string FocusName(const wxChoice& list);

    std::vector<SystemBox> boxes;         ///< message boxes of the system that came up
    std::vector<std::string> fileDialogs; ///< "title|folder|name|filter" of each file dialog that came up

private:
    struct Step {
        std::string name;
        std::function<void(wxDialog&)> act;
        std::function<bool(const wxDialog&)> ready;
    };

    class Hook : public wxModalDialogHook {
    public:
        explicit Hook(PartDialogTest& test) : m_test(test) { Register(); }
        ~Hook() override { Unregister(); }
        Hook(const Hook&) = delete;
        Hook& operator=(const Hook&) = delete;

    protected:
        int Enter(wxDialog* dialog) override { return m_test.Answer(dialog); }

    private:
        PartDialogTest& m_test;
    };

    int Answer(wxDialog* dialog);
    std::string AnswerFile(const platform::OpenFileRequest& request);
    void Watch();

    std::deque<Step> m_steps;
    std::deque<std::string> m_files;
    std::deque<int> m_boxAnswers;
    int m_idleTicks = 0;
    platform::OpenFileDialogFunction m_fileDialog; // what was there before
    wxTimer m_timer;
    Hook m_hook{*this};
};

} // namespace nesk::testing
