// Every window in every language: no text is cut, no controls overlap, no two texts have the same access key,
// and the window fits on a small screen. With the variable NESK_PICTURES set, a picture of each window is
// left in that folder.

#include "gui/AllDialogs.h"
#include "gui/GuiFixture.h"
#include "gui/TreeIcons.h"
#include "gui/UiDriver.h"
#include "gui/UiLayout.h"
#include "unit/CoreFixture.h"

#include "platform/Languages.h"
#include "settings/LanguageChoice.h"
#include "settings/RegEntry.h"
#include "shell/Startup.h"
#include "shell/modHelp.h"
#include "widgets/UiUtilities.h"

#include <algorithm>
#include <cstdlib>
#include <map>

#include <wx/image.h>
#include <wx/menu.h>
#include <wx/sizer.h>

namespace nesk::testing {
namespace {

using modUtilities::FromWx;
using modUtilities::ToWx;
using platform::Language;

const wxSize SmallScreen(800, 600);

// Leaves a picture of a window if pictures are wanted.
void TakePicture(wxWindow& window, const Language& language) {
    const char* folder = std::getenv("NESK_PICTURES");
    if (folder == nullptr) return;
    if (wxImage::FindHandler(wxBITMAP_TYPE_PNG) == nullptr) wxImage::AddHandler(new wxPNGHandler);
    const std::string name = std::string(language.code) + "-" + FromWx(window.GetName()) + ".png";
    EXPECT_TRUE(Drawn(window).SaveFile(ToWx(std::string(folder) + "/" + name), wxBITMAP_TYPE_PNG));
}

using Keys = std::multimap<wxString, wxString>; // the labels by their access keys

void AddKey(const wxString& label, Keys& keys) {
    const std::size_t at = label.find('&');
    if (at == wxString::npos || at + 1 >= label.length() || label[at + 1] == '&') return;
    keys.emplace(wxString(label[at + 1]).Lower(), label);
}

void CollectKeys(const wxWindow& window, Keys& keys) {
    for (const wxWindow* child : window.GetChildren()) {
        if (!child->IsShown()) continue;
        AddKey(child->GetLabel(), keys);
        CollectKeys(*child, keys);
    }
}

void ExpectDifferent(const Keys& keys, const std::string& where) {
    for (auto key = keys.begin(); key != keys.end(); key = keys.upper_bound(key->first))
        EXPECT_EQ(keys.count(key->first), 1u) << where << ": " << FromWx(key->second);
}

// Everything that can be wrong with a window.
void Check(wxWindow& window, const Language& language) {
    const std::string where = std::string(language.code) + " " + FromWx(window.GetName());
    for (const std::string& problem : LayoutProblems(window))
        ADD_FAILURE() << where << ": " << problem;
    EXPECT_LE(window.GetSize().x, SmallScreen.x) << where;
    EXPECT_LE(window.GetSize().y, SmallScreen.y) << where;
    TakePicture(window, language);
}

class LanguageTest : public CoreTest, public ::testing::WithParamInterface<Language> {
protected:
    LanguageTest() {
        // The lists that two of the dialogs show; every installation has both.
        RegEntry lists;
        lists.CreateKey("Machines\\M1");
        lists.CreateKey("Users\\U1");
        LanguageChoice::Store(GetParam().id);
        Startup::InitLanguage();
        modHelp::SetHelpFile(GetParam().id, "OV");
    }
};

TEST_P(LanguageTest, EveryDialogCanBeRead) {
    for (const DialogCase& one : AllDialogs()) {
        const std::unique_ptr<FormDialog> dialog = one.make();
        ShowActive(*dialog);
        // The window manager adds its frame a moment later.
        EXPECT_TRUE(WaitUntil([&] {
            const wxSize least = dialog->GetSizer()->GetMinSize();
            const wxSize client = dialog->GetClientSize();
            return client.x >= least.x && client.y >= least.y;
        })) << one.name
            << " is smaller than what it holds";
        // On a small screen.
        dialog->SetSize(wxSize(std::min(dialog->GetSize().x, SmallScreen.x),
                               std::min(dialog->GetSize().y, SmallScreen.y)));
        Settle();
        Check(*dialog, GetParam());
        Keys keys;
        CollectKeys(*dialog, keys);
        ExpectDifferent(keys, std::string(GetParam().code) + " " + one.name);
    }
}

class LanguageOfMainTest : public MainWindowTest, public ::testing::WithParamInterface<Language> {};

TEST_P(LanguageOfMainTest, TheMainWindowCanBeRead) {
    LanguageChoice::Store(GetParam().id);
    Startup::InitLanguage();
    WriteMenu(SmallMenu);
    OpenWindow();
    ShowActive(*window);
    Click(window->mnuFileOpen);
    window->SetSize(SmallScreen);
    ASSERT_TRUE(WaitUntil([&] {
        return window->GetSize() == SmallScreen && window->sbMain->GetRect().GetBottom() < SmallScreen.y;
    }));
    Settle();
    Check(*window, GetParam());
    Keys tops;
    const wxMenuBar* bar = window->GetMenuBar();
    for (std::size_t i = 0; i < bar->GetMenuCount(); ++i) {
        AddKey(bar->GetMenuLabel(i), tops);
        Keys keys;
        for (const wxMenuItem* item : bar->GetMenu(i)->GetMenuItems())
            if (!item->IsSeparator()) AddKey(item->GetItemLabel(), keys);
        ExpectDifferent(keys, FromWx(bar->GetMenuLabel(i)));
    }
    EXPECT_EQ(tops.size(), bar->GetMenuCount());
    CollectKeys(*window, tops);
    ExpectDifferent(tops, "main window");
}

// Texts that are translated, made from others, and in another script.
bool IsOneOfFew(const Language& language) {
    return language.code == "DEU" || language.code == "PIG" || language.code == "JPN";
}

// A variant has hardly a text of its own, so one kind of station is enough to measure its windows.
std::vector<Language> LanguagesWithTexts(bool few) {
    std::vector<Language> languages;
    for (const Language& language : platform::Languages()) {
#ifndef NESK_PORTABLE_STATION
        if (language.id > 0 && !language.base.empty()) continue;
#endif
        if (!language.code.empty() && IsOneOfFew(language) == few) languages.push_back(language);
    }
    return languages;
}

std::string CodeOf(const ::testing::TestParamInfo<Language>& language) {
    return std::string(language.param.code);
}

INSTANTIATE_TEST_SUITE_P(Languages, LanguageTest, ::testing::ValuesIn(LanguagesWithTexts(true)), CodeOf);
INSTANTIATE_TEST_SUITE_P(OtherLanguages, LanguageTest, ::testing::ValuesIn(LanguagesWithTexts(false)),
                         CodeOf);
INSTANTIATE_TEST_SUITE_P(Languages, LanguageOfMainTest, ::testing::ValuesIn(LanguagesWithTexts(true)),
                         CodeOf);
INSTANTIATE_TEST_SUITE_P(OtherLanguages, LanguageOfMainTest, ::testing::ValuesIn(LanguagesWithTexts(false)),
                         CodeOf);

} // namespace
} // namespace nesk::testing
