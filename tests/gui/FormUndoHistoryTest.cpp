#include "shell/FormUndoHistory.h"

#include "base/Messages.h"
#include "gui/ModalDriver.h"
#include "gui/UiDriver.h"
#include "shell/Startup.h"
#include "unit/CoreFixture.h"

#include <wx/button.h>
#include <wx/listbox.h>
#include <wx/stattext.h>

namespace nesk::testing {
namespace {

class FormUndoHistoryTest : public CoreTest {
protected:
    FormUndoHistoryTest() { Startup::InitLanguage(); }

    // Shows three changes, runs an action on the dialog, and returns how many of them to undo.
    static std::size_t Choose(const std::function<void(FormUndoHistory&)>& act) {
        FormUndoHistory dialog(nullptr);
        const ModalDriver driver(dialog, [&] {
            EXPECT_TRUE(dialog.lstChanges->HasFocus());
            act(dialog);
            EXPECT_TRUE(WaitUntil([&] { return !IsOpen(dialog); }));
        });
        return dialog.Choose({{Message::ChangeCaption, {std::string(200, 'x')}},
                              {Message::ChangeMove, {"Housing"}},
                              {Message::ChangeAdd, {"Lid"}}});
    }
};

TEST_F(FormUndoHistoryTest, TheLastChangeIsSelectedFirst) {
    const std::size_t count = Choose([](FormUndoHistory& dialog) {
        ASSERT_EQ(dialog.lstChanges->GetCount(), 3u);
        EXPECT_EQ(dialog.lstChanges->GetString(0), "rename of \"" + std::string(60, 'x') + "...\"");
        EXPECT_EQ(dialog.lstChanges->GetString(1), "move of \"Housing\"");
        EXPECT_EQ(TextOf(dialog.lblCount), "Changes to be undone: 1");
        EXPECT_EQ(TextOf(dialog.cmdOK), "Undo");
        Press(WXK_RETURN);
    });
    EXPECT_EQ(count, 1u);
}

TEST_F(FormUndoHistoryTest, AllChangesDownToTheSelectedOneAreUndone) {
    const std::size_t count = Choose([](FormUndoHistory& dialog) {
        Press(WXK_DOWN);
        EXPECT_EQ(dialog.lstChanges->GetSelection(), 1);
        Press(WXK_DOWN);
        EXPECT_TRUE(WaitUntil([&] { return TextOf(dialog.lblCount) == "Changes to be undone: 3"; }));
        Click(dialog.cmdOK);
    });
    EXPECT_EQ(count, 3u);
}

TEST_F(FormUndoHistoryTest, CancelUndoesNothing) {
    EXPECT_EQ(Choose([](FormUndoHistory&) { Press(WXK_ESCAPE); }), 0u);
}

} // namespace
} // namespace nesk::testing
