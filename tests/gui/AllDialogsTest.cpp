// Checks of every dialog: its help topic, its access keys, its default button.

#include "gui/Recorders.h"
#include "gui/UiDriver.h"
#include "unit/CoreFixture.h"

#include "checking/FormChangeFolder.h"
#include "checking/FormReplace.h"
#include "editing/MenuEditor.h"
#include "menu/FormEditMenu.h"
#include "menu/FormSelectMenuPicture.h"
#include "menu/Menu.h"
#include "menu/MenuItem.h"
#include "menu/MenuItemCollection.h"
#include "partedit/FormAddParts.h"
#include "partedit/FormBrowse.h"
#include "partedit/FormEditPart.h"
#include "partedit/FormEditParts.h"
#include "partedit/FormFolder.h"
#include "partedit/FormSelectDrive.h"
#include "partedit/FormSelectHelpFile.h"
#include "partedit/FormSelectHistory.h"
#include "partedit/FormSelectPart.h"
#include "settings/FormAccess.h"
#include "settings/FormDirectories.h"
#include "settings/FormListName.h"
#include "settings/FormSelectMachine.h"
#include "settings/FormSelectUser.h"
#include "settings/RegEntry.h"
#include "settings/WindowMemory.h"
#include "shell/FormAbout.h"
#include "shell/FormCreateStation.h"
#include "shell/FormDifference.h"
#include "shell/FormMerge.h"
#include "shell/FormMoveTo.h"
#include "shell/FormUndoHistory.h"
#include "shell/FormUnsaved.h"
#include "shell/FormVersions.h"
#include "shell/Startup.h"
#include "shell/modHelp.h"
#include "versions/MenuDiff.h"
#include "versions/MenuMerge.h"
#include "widgets/UiUtilities.h"

#include <cctype>
#include <functional>
#include <map>
#include <memory>
#include <ostream>

#include <wx/button.h>

namespace nesk::testing {
namespace {

using modUtilities::FromWx;

constexpr int WideScreen = 1024;
constexpr int SmallScreen = 640;

struct DialogCase {
    const char* name;
    int helpTopic; // 0 for a dialog without help
    std::function<std::unique_ptr<FormDialog>()> make;
    const char* variant = "";
};

// Name of a case in the output of the test framework.
void PrintTo(const DialogCase& dialog, std::ostream* text) {
    *text << dialog.name;
}

template <typename Form>
DialogCase Case(const char* name, int helpTopic) {
    return {name, helpTopic, [] { return std::make_unique<Form>(nullptr); }};
}

// An editor with an empty menu.
MenuEditor& EditorWithMenu() {
    static MenuEditor editor;
    if (!editor.IsOpen()) editor.Open("C:\\", "C:\\menu.cfg");
    return editor;
}

template <typename Form>
DialogCase EditorCase(const char* name, int helpTopic) {
    return {name, helpTopic, [] { return std::make_unique<Form>(nullptr, EditorWithMenu()); }};
}

// A menu with one entry.
std::unique_ptr<Menu> MenuWith(const char* caption) {
    auto menu = std::make_unique<Menu>();
    menu->Initialize("C:\\");
    menu->SubMenus().Add("Bracket", "Menu").SetGraphic(caption);
    return menu;
}

// A base and two menus whose changes of it conflict.
struct ThreeMenus {
    std::unique_ptr<Menu> base = MenuWith("");
    std::unique_ptr<Menu> ours = MenuWith("ours");
    std::unique_ptr<Menu> theirs = MenuWith("theirs");
    MenuMerge merge{*base, *ours, *theirs};
    MenuDiff difference{*base, *ours};
};

ThreeMenus& Conflict() {
    static ThreeMenus menus;
    return menus;
}

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

INSTANTIATE_TEST_SUITE_P(
    Dialogs, AllDialogsTest,
    ::testing::Values(
        Case<FormAccess>("FormAccess", 33009), Case<FormSelectMachine>("FormSelectMachine", 33006),
        Case<FormSelectUser>("FormSelectUser", 33008), Case<FormDirectories>("FormDirectories", 33007),
        Case<FormBrowse>("FormBrowse", 33002), Case<FormFolder>("FormFolder", 0),
        Case<FormSelectHistory>("FormSelectHistory", 33005),
        Case<FormSelectHelpFile>("FormSelectHelpFile", 33000), Case<FormSelectPart>("FormSelectPart", 33010),
        Case<FormSelectDrive>("FormSelectDrive", 0), Case<FormAbout>("FormAbout", 0),
        Case<FormUndoHistory>("FormUndoHistory", 33001), Case<FormCreateStation>("FormCreateStation", 33011),
        Case<FormListName>("FormListName", 0), Case<FormEditParts>("FormEditParts", 33001),
        DialogCase{"FormMoveTo", 33001,
                   [] {
                       static const MenuEditor editor;
                       return std::make_unique<FormMoveTo>(nullptr, editor);
                   }},
        EditorCase<FormReplace>("FormReplace", 33001), EditorCase<FormVersions>("FormVersions", 33001),
        DialogCase{"FormUnsaved", 33001,
                   [] { return std::make_unique<FormUnsaved>(nullptr, "Restore?", "A note"); }},
        DialogCase{
            "FormDifference", 33001,
            [] { return std::make_unique<FormDifference>(nullptr, Conflict().difference, "Heading"); }},
        DialogCase{"FormMerge", 33001,
                   [] {
                       ThreeMenus& menus = Conflict();
                       return std::make_unique<FormMerge>(nullptr, menus.merge, *menus.base, *menus.ours,
                                                          *menus.theirs);
                   }},
        EditorCase<FormChangeFolder>("FormChangeFolder", 33001),
        DialogCase{"FormAddParts", 33001,
                   [] {
                       static WindowMemory memory;
                       return std::make_unique<FormAddParts>(nullptr, EditorWithMenu(), memory);
                   }},
        DialogCase{"FormEditPart", 33004, [] { return std::make_unique<FormEditPart>(nullptr, WideScreen); }},
        DialogCase{"FormEditPart", 33004, [] { return std::make_unique<FormEditPart>(nullptr, SmallScreen); },
                   "Small"},
        Case<FormSelectMenuPicture>("FormSelectMenuPicture", 33003),
        Case<FormEditMenu>("FormEditMenu", 33003)),
    [](const ::testing::TestParamInfo<DialogCase>& dialog) {
        return std::string(dialog.param.name) + dialog.param.variant;
    });

} // namespace
} // namespace nesk::testing
