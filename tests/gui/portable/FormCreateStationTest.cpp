#include "shell/FormCreateStation.h"

#include "base/Messages.h"
#include "gui/NextDialog.h"
#include "gui/SettingsDialogFixture.h"
#include "platform/StationFolder.h"
#include "shell/UiStationFolder.h"
#include "shell/modUtilities.h"
#include "widgets/UiUtilities.h"

#include <cstdlib>
#include <filesystem>

#include <wx/button.h>
#include <wx/radiobut.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

namespace nesk::testing {
namespace {

using modStringRes::LoadResString;
using modUtilities::FromWx;

class FormCreateStationTest : public SettingsDialogTest {
protected:
    FormCreateStationTest() { ::setenv("NESKMANAGER_STATION", m_folder.c_str(), 1); }
    ~FormCreateStationTest() override { ::unsetenv("NESKMANAGER_STATION"); }

    // Shows the dialog, runs an action on it, and cancels it if the action did not end it.
    static bool Show(const std::function<void(FormCreateStation&)>& act) {
        FormCreateStation dialog(nullptr);
        const ModalDriver driver(dialog, [&] {
            act(dialog);
            if (IsOpen(dialog)) Click(dialog.cmdCancel);
        });
        return dialog.Invoke();
    }

    const std::string m_folder = (station.Folder() / "next").string();
};

TEST_F(FormCreateStationTest, ProposesTheExampleInTheUsualFolder) {
    const bool made = Show([this](FormCreateStation& dialog) {
        EXPECT_TRUE(dialog.optExample->GetValue());
        EXPECT_EQ(TextOf(dialog.txtFolder), m_folder);
        EXPECT_FALSE(dialog.txtMachine->GetValue().empty());
        EXPECT_FALSE(dialog.txtUser->GetValue().empty());
        wxString told = dialog.lblUsual->GetLabel();
        told.Replace("\n", "");
        EXPECT_NE(FromWx(told).find("NESKMANAGER_STATION"), std::string::npos) << FromWx(told);
    });
    EXPECT_FALSE(made);
    EXPECT_FALSE(std::filesystem::exists(m_folder)) << "it was called off";
    EXPECT_EQ(platform::StationFolderName(), station.Folder().string());
}

TEST_F(FormCreateStationTest, MakesAnEmptyStationByTheKeyboard) {
    const bool made = Show([](FormCreateStation& dialog) {
        Press('P', wxMOD_ALT);
        EXPECT_TRUE(WaitUntil([&] { return dialog.optEmpty->GetValue(); }));
        Press('M', wxMOD_ALT);
        EXPECT_TRUE(WaitUntil([&] { return dialog.txtMachine->HasFocus(); }));
        Press('A', wxMOD_CONTROL);
        Type("Arm");
        Press(WXK_RETURN);
        EXPECT_TRUE(WaitUntil([&] { return !IsOpen(dialog); }));
    });
    EXPECT_TRUE(made);
    EXPECT_EQ(platform::StationFolderName(), m_folder);
    EXPECT_EQ(NeskRegistry::Instance().MenuFile(), "C:\\Neskroot\\menu.cfg");
    EXPECT_FALSE(modUtilities::FileExists("C:\\Neskroot\\menu.cfg"));
}

TEST_F(FormCreateStationTest, BrowsingFillsInTheFolder) {
    Show([this](FormCreateStation& dialog) {
        SetStationFolderChooser([this](wxWindow*, int, const std::string& folder) {
            EXPECT_EQ(folder, m_folder);
            return std::string();
        });
        Click(dialog.cmdFolder);
        EXPECT_EQ(TextOf(dialog.txtFolder), m_folder) << "called off";
        SetStationFolderChooser([](wxWindow*, int, const std::string&) { return std::string("/x/y"); });
        Click(dialog.cmdFolder);
        EXPECT_EQ(dialog.txtFolder->GetValue(), "/x/y");
        SetStationFolderChooser({});
    });
}

TEST_F(FormCreateStationTest, WhatIsWrongIsToldAndGetsTheFocus) {
    Show([this](FormCreateStation& dialog) {
        Fill(dialog.txtUser, "  ");
        Expect();
        Click(dialog.cmdOK);
        EXPECT_EQ(messages.back().text, LoadResString(Message::NameNeeded));
        EXPECT_TRUE(dialog.txtUser->HasFocus());
        Fill(dialog.txtUser, "Smith");
        // A folder that cannot be created.
        Fill(dialog.txtFolder, "/proc/none/station");
        Expect();
        Click(dialog.cmdOK);
        EXPECT_NE(messages.back().text.find("/proc/none/station"), std::string::npos) << messages.back().text;
        EXPECT_TRUE(IsOpen(dialog));
        Fill(dialog.txtFolder, station.Folder().string());
        Expect();
        Click(dialog.cmdOK);
        EXPECT_TRUE(dialog.txtFolder->HasFocus());
        EXPECT_NE(messages.back().text.find(station.Folder().string()), std::string::npos);
        EXPECT_TRUE(IsOpen(dialog));
    });
    EXPECT_EQ(platform::StationFolderName(), station.Folder().string());
}

} // namespace
} // namespace nesk::testing
