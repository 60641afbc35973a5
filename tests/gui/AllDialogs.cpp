#include "gui/AllDialogs.h"

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
#include "settings/FormLanguage.h"
#include "settings/FormListName.h"
#include "settings/FormSelectMachine.h"
#include "settings/FormSelectUser.h"
#include "settings/WindowMemory.h"
#include "shell/FormAbout.h"
#include "shell/FormCreateStation.h"
#include "shell/FormDifference.h"
#include "shell/FormMerge.h"
#include "shell/FormMoveTo.h"
#include "shell/FormUndoHistory.h"
#include "shell/FormUnsaved.h"
#include "shell/FormVersions.h"
#include "versions/MenuDiff.h"
#include "versions/MenuMerge.h"

#include <memory>
#include <ostream>

namespace nesk::testing {

namespace {

constexpr int WideScreen = 1024;
constexpr int SmallScreen = 640;

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

} // namespace

void PrintTo(const DialogCase& dialog, std::ostream* text) {
    *text << dialog.name;
}

std::vector<DialogCase> AllDialogs() {
    return {
        Case<FormAccess>("FormAccess", 33009),
        Case<FormSelectMachine>("FormSelectMachine", 33006),
        Case<FormSelectUser>("FormSelectUser", 33008),
        Case<FormDirectories>("FormDirectories", 33007),
        Case<FormBrowse>("FormBrowse", 33002),
        Case<FormFolder>("FormFolder", 0),
        Case<FormSelectHistory>("FormSelectHistory", 33005),
        Case<FormSelectHelpFile>("FormSelectHelpFile", 33000),
        Case<FormSelectPart>("FormSelectPart", 33010),
        Case<FormSelectDrive>("FormSelectDrive", 0),
        Case<FormLanguage>("FormLanguage", 33012),
        Case<FormAbout>("FormAbout", 0),
        Case<FormUndoHistory>("FormUndoHistory", 33001),
        Case<FormCreateStation>("FormCreateStation", 33011),
        Case<FormListName>("FormListName", 0),
        Case<FormEditParts>("FormEditParts", 33001),
        DialogCase{"FormMoveTo", 33001,
                   [] {
                       static const MenuEditor editor;
                       return std::make_unique<FormMoveTo>(nullptr, editor);
                   }},
        EditorCase<FormReplace>("FormReplace", 33001),
        EditorCase<FormVersions>("FormVersions", 33016),
        DialogCase{"FormUnsaved", 33013,
                   [] { return std::make_unique<FormUnsaved>(nullptr, "Restore?", "A note"); }},
        DialogCase{
            "FormDifference", 33014,
            [] { return std::make_unique<FormDifference>(nullptr, Conflict().difference, "Heading"); }},
        DialogCase{"FormMerge", 33015,
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
        Case<FormEditMenu>("FormEditMenu", 33003)};
}

} // namespace nesk::testing
