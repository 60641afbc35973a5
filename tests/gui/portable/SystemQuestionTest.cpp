#include "platform/SystemQuestion.h"

#include "gui/NextDialog.h"
#include "gui/SettingsDialogFixture.h"

namespace nesk::testing {
namespace {

class SystemQuestionTest : public SettingsDialogTest {
protected:
    // Asks the question and runs an action on the message box.
    static std::optional<bool> Ask(const std::function<void(wxDialog&)>& act) {
        const NextDialog<wxDialog> next([&](wxDialog& box) {
            act(box);
            EXPECT_FALSE(IsOpen(box));
            if (IsOpen(box)) box.EndModal(wxID_NO);
        });
        return platform::AskYesOrNo(nullptr, "Do you want to save?", "Please confirm");
    }
};

TEST_F(SystemQuestionTest, NeitherEscapeNorTheCloseBoxTakesItAway) {
    const auto answer = Ask([](wxDialog& box) {
        EXPECT_EQ(box.GetTitle(), "Please confirm");
        Press(WXK_ESCAPE);
        EXPECT_TRUE(IsOpen(box)) << "Escape";
        box.Close();
        Settle();
        EXPECT_TRUE(IsOpen(box)) << "the close box";
        Press(WXK_RETURN);
        EXPECT_TRUE(WaitUntil([&] { return !IsOpen(box); }));
    });
    EXPECT_EQ(answer, true) << "Yes is the default";
}

TEST_F(SystemQuestionTest, NoIsAnAnswer) {
    const auto answer = Ask([](wxDialog& box) { Click(box.FindWindow(wxID_NO)); });
    EXPECT_EQ(answer, false);
}

} // namespace
} // namespace nesk::testing
