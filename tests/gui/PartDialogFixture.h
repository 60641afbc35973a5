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

class wxChoice;

namespace nesk::testing {

/// A system message box that was shown.
struct SystemBox {
    std::string title;
    std::string text;
};

/// Drives real modal dialogs on a fresh station, including dialogs that open others. The test announces the
/// action for each dialog before it is shown. System message boxes are answered without being shown. The
/// program's own messages go to the recorder of CoreTest. A dialog that was not announced fails the test and
/// is cancelled.
class PartDialogTest : public CoreTest {
protected:
    PartDialogTest();
    ~PartDialogTest() override;

    /// Announces the action for the next dialog of a class. It runs as soon as the dialog is active and, if
    /// given, `ready` returns true. Announce a dialog that the action opens after this one.
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

    /// Announces a system message box and the answer to it.
    void ExpectSystemBox(int answer = wxID_OK) { m_boxAnswers.push_back(answer); }

    /// Announces a file dialog and the Windows path chosen in it; "" to cancel it.
    void ChooseFile(const std::string& path) { m_files.push_back(path); }

    /// Names of the controls in the order in which Tab visits them, separated by spaces. The list starts at
    /// the control that has the focus and ends before that control is visited again.
    static std::string TabOrder();

    /// The name that TabOrder uses for a drop-down list: "-" if the list does not report its focus to
    /// wxWidgets.
    static std::string FocusName(const wxChoice& list);

    std::vector<SystemBox> boxes;         ///< system message boxes that were shown
    std::vector<std::string> fileDialogs; ///< "title|folder|name|filter" of each file dialog that was shown

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
    platform::OpenFileDialogFunction m_fileDialog; // function that was set before
    wxTimer m_timer;
    Hook m_hook{*this};
};

} // namespace nesk::testing
