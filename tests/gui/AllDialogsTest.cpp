// Checks of every dialog: its help topic, its access keys, its default button.

#include "gui/AllDialogs.h"
#include "gui/Recorders.h"
#include "gui/UiDriver.h"
#include "unit/CoreFixture.h"

#include "settings/RegEntry.h"
#include "shell/Startup.h"
#include "shell/modHelp.h"
#include "widgets/UiUtilities.h"

#include <cctype>
#include <map>
#include <memory>

#include <wx/button.h>

namespace nesk::testing {
namespace {

using modUtilities::FromWx;

class AllDialogsTest : public CoreTest, public ::testing::WithParamInterface<DialogCase> {
protected:
    AllDialogsTest() {
        Startup::InitLanguage();
        // The lists that two of the dialogs show; every installation has both.
        RegEntry lists;
        lists.CreateKey("Machines\\M1");
        lists.CreateKey("Users\\U1");
        modHelp::SetHelpFile(1033, "OV");
    }

    HelpRecorder help{station};
};

// Collects the access keys of a dialog's visible controls, with the names of the controls.
void CollectAccessKeys(const wxWindow& window, std::multimap<char, std::string>& keys) {
    for (const wxWindow* child : window.GetChildren()) {
        if (!child->IsShown()) continue;
        const std::string label = FromWx(child->GetLabel());
        const std::size_t at = label.find('&');
        if (at != std::string::npos && at + 1 < label.size() && label[at + 1] != '&') {
            const auto key = static_cast<unsigned char>(label[at + 1]);
            keys.emplace(static_cast<char>(std::tolower(key)), FromWx(child->GetName()));
        }
        CollectAccessKeys(*child, keys);
    }
}

TEST_P(AllDialogsTest, HelpShowsItsTopic) {
    const std::unique_ptr<FormDialog> dialog = GetParam().make();
    if (GetParam().helpTopic == 0) {
        EXPECT_EQ(dialog->cmdHelp, nullptr);
        return;
    }
    ASSERT_NE(dialog->cmdHelp, nullptr);
    ShowActive(*dialog);
    Click(dialog->cmdHelp);
    EXPECT_EQ(help.Shown(), std::to_string(GetParam().helpTopic));
}

TEST_P(AllDialogsTest, F1ShowsTheSameTopic) {
    const std::unique_ptr<FormDialog> dialog = GetParam().make();
    ShowActive(*dialog);
    Press(WXK_F1);
    if (GetParam().helpTopic == 0) {
        EXPECT_FALSE(help.WasCalled());
        return;
    }
    EXPECT_EQ(help.Shown(), std::to_string(GetParam().helpTopic));
}

TEST_P(AllDialogsTest, NoTwoControlsShareAnAccessKey) {
    const std::unique_ptr<FormDialog> dialog = GetParam().make();
    std::multimap<char, std::string> keys;
    CollectAccessKeys(*dialog, keys);
    for (auto key = keys.begin(); key != keys.end(); key = keys.upper_bound(key->first))
        EXPECT_EQ(keys.count(key->first), 1u) << key->first << " of " << key->second;
}

TEST_P(AllDialogsTest, EnterIsOkAndTheNamesAreGiven) {
    const std::unique_ptr<FormDialog> dialog = GetParam().make();
    EXPECT_EQ(dialog->GetDefaultItem(), dialog->cmdOK);
    EXPECT_EQ(FromWx(dialog->GetName()), GetParam().name);
    EXPECT_FALSE(FromWx(dialog->GetTitle()).empty());
    for (const char* name : {"cmdOK", "cmdCancel"})
        Find(*dialog, name);
}

INSTANTIATE_TEST_SUITE_P(Dialogs, AllDialogsTest, ::testing::ValuesIn(AllDialogs()),
                         [](const ::testing::TestParamInfo<DialogCase>& dialog) {
                             return std::string(dialog.param.name) + dialog.param.variant;
                         });

} // namespace
} // namespace nesk::testing
