#include "platform/FileSystem.h"
#include "settings/RegEntry.h"
#include "shell/modHelp.h"
#include "unit/CoreFixture.h"

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <system_error>
#include <thread>
#include <vector>

namespace nesk {
namespace {

// Number of messages shown by help requests before any test chooses a help file. Counted here because the
// choice cannot be undone.
const int MessagesWithoutAHelpFile = [] {
    int count = 0;
    const modMessageBox::Hook before =
        modMessageBox::SetHook([&count](const std::string&, std::int16_t, const std::string&) {
            ++count;
            return modMessageBox::Result::Ok;
        });
    modHelp::ShowHelpTopic(nullptr, 1);
    modHelp::ShowHelpContents(nullptr);
    modMessageBox::SetHook(before);
    return count;
}();

// A file next to the program while the object lives.
class FileBesideTheProgram {
public:
    explicit FileBesideTheProgram(const std::string& name)
        : m_file(TempStation::Host(platform::ProgramFolder() + "\\" + name)) {
        std::ofstream(m_file) << "help";
    }
    ~FileBesideTheProgram() {
        std::error_code error;
        std::filesystem::remove(m_file, error);
    }
    FileBesideTheProgram(const FileBesideTheProgram&) = delete;
    FileBesideTheProgram& operator=(const FileBesideTheProgram&) = delete;

private:
    std::filesystem::path m_file;
};

// The program's own folder contains OVENU.chm. The test uses base names of its own, so that the files in the
// installation's folder are chosen.
class HelpTest : public testing::CoreTest {
protected:
    HelpTest() {
        RegEntry settings;
        settings.CreateKey("Orvane\\Settings");
        settings.SetString("InstallDirectory", "C:\\Orvane");
    }
    ~HelpTest() override { modHelp::SetHelpFile(1033, "OV"); }

    void WriteHelp(const std::string& name) { station.Write("C:\\Orvane\\Bin\\" + name, "help"); }
};

TEST_F(HelpTest, TheProgramFolderComesFirst) {
    WriteHelp("OVENU.chm");
    EXPECT_TRUE(modHelp::SetHelpFile(1033, "OV"));
    EXPECT_FALSE(modHelp::HelpFile().starts_with("C:\\Orvane"));
    EXPECT_TRUE(modHelp::HelpFile().ends_with("\\OVENU.chm"));
    EXPECT_TRUE(modHelp::IsHtmlHelp());
}

TEST_F(HelpTest, CandidatesInTheirOrder) {
    EXPECT_FALSE(modHelp::SetHelpFile(1031, "T"));
    EXPECT_EQ(modHelp::HelpFile(), "C:\\Orvane\\Bin\\TENU.hlp") << "the last candidate is named all the same";
    // Each file takes precedence over the ones written before it.
    for (const char* name : {"TENU.hlp", "TDEU.hlp", "TENU.chm", "TDEU.chm"}) {
        WriteHelp(name);
        EXPECT_TRUE(modHelp::SetHelpFile(1031, "T"));
        EXPECT_EQ(modHelp::HelpFile(), std::string("C:\\Orvane\\Bin\\") + name);
    }
}

TEST_F(HelpTest, BothFoldersInTheirOrder) {
    const std::string base = "HelpTestOrder";
    const std::vector<std::string> endings{"ENU.hlp", "DEU.hlp", "ENU.chm", "DEU.chm"};
    for (const std::string& ending : endings)
        const FileBesideTheProgram leftByARunThatWasKilled(base + ending);
    // From the last candidate to the first: each file takes precedence over the ones before it.
    std::vector<std::unique_ptr<FileBesideTheProgram>> files;
    for (const std::string& ending : endings) {
        WriteHelp(base + ending);
        EXPECT_TRUE(modHelp::SetHelpFile(1031, base));
        EXPECT_EQ(modHelp::HelpFile(), "C:\\Orvane\\Bin\\" + base + ending);
        files.push_back(std::make_unique<FileBesideTheProgram>(base + ending));
        EXPECT_TRUE(modHelp::SetHelpFile(1031, base));
        EXPECT_EQ(modHelp::HelpFile(), platform::ProgramFolder() + "\\" + base + ending);
    }
}

TEST_F(HelpTest, EnglishClassicHelpBesideTheProgramIsBetterThanNone) {
    const FileBesideTheProgram file("HelpTestAloneENU.hlp");
    EXPECT_TRUE(modHelp::SetHelpFile(1031, "HelpTestAlone"));
    EXPECT_EQ(modHelp::HelpFile(), platform::ProgramFolder() + "\\HelpTestAloneENU.hlp");
    EXPECT_FALSE(modHelp::IsHtmlHelp());
}

TEST_F(HelpTest, BeforeAHelpFileIsChosenNothingHappens) {
    EXPECT_EQ(MessagesWithoutAHelpFile, 0);
}

TEST_F(HelpTest, TheEndingDecidesTheFormat) {
    WriteHelp("TENU.hlp");
    modHelp::SetHelpFile(1033, "T");
    EXPECT_FALSE(modHelp::IsHtmlHelp());
    WriteHelp("TENU.CHM");
    modHelp::SetHelpFile(1033, "T");
    EXPECT_TRUE(modHelp::IsHtmlHelp());
}

TEST_F(HelpTest, AMissingFileIsSaid) {
    modHelp::SetHelpFile(1033, "T");
    Expect();
    modHelp::ShowHelpTopic(nullptr, 33001);
    EXPECT_NE(messages.at(0).text.find("C:\\Orvane\\Bin\\TENU.hlp"), std::string::npos);
    EXPECT_EQ(messages[0].text, modStringRes::FormatResString(34160, modHelp::HelpFile()));
    WriteHelp("TENU.chm");
    modHelp::SetHelpFile(1033, "T");
    std::filesystem::remove(TempStation::Host(modHelp::HelpFile()));
    Expect();
    modHelp::ShowHelpContents(nullptr);
    EXPECT_EQ(messages.at(1).text, modStringRes::FormatResString(34160, modHelp::HelpFile()));
}

#ifdef NESK_PORTABLE_STATION
// windows/HelpViewerTest.cpp tests the same with the viewers of Windows.
TEST_F(HelpTest, ContentsAndTopicsAreAskedForAsSuch) {
    WriteHelp("TENU.chm");
    modHelp::SetHelpFile(1033, "T");
    const std::filesystem::path log = station.Folder() / "asked";
    const std::filesystem::path viewer = station.Folder() / "viewer";
    std::ofstream(viewer) << "#!/bin/sh\necho \"$# $1 $2\" >'" << log.string() << "~'; mv '" << log.string()
                          << "~' '" << log.string() << "'\n";
    std::filesystem::permissions(viewer, std::filesystem::perms::owner_all);
    ::setenv("NESKMANAGER_HELPVIEWER", viewer.c_str(), 1);
    const auto asked = [&] {
        for (int i = 0; i < 250 && !std::filesystem::exists(log); ++i)
            std::this_thread::sleep_for(std::chrono::milliseconds(20));
        std::string line;
        std::ifstream file(log);
        std::getline(file, line);
        std::filesystem::remove(log);
        return line;
    };
    EXPECT_TRUE(modHelp::ShowHelpContents(nullptr));
    EXPECT_TRUE(asked().starts_with("1 ")) << "the file alone: its contents";
    EXPECT_TRUE(modHelp::ShowHelpTopic(nullptr, 33001));
    EXPECT_EQ(asked(), "3 -c 33001");
    ::unsetenv("NESKMANAGER_HELPVIEWER");
}

// Windows shows both kinds of file, each with a system viewer. A missing viewer is tested in
// windows/HelpViewerTest.cpp.
TEST_F(HelpTest, WhatCannotBeShownIsSaid) {
    modHelp::SetHelpFile(1033, "T");
    WriteHelp("TENU.hlp");
    Expect();
    modHelp::ShowHelpContents(nullptr);
    EXPECT_EQ(messages.at(0).text, modStringRes::FormatResString(34162, modHelp::HelpFile()));
    WriteHelp("TENU.chm");
    modHelp::SetHelpFile(1033, "T");
    ::setenv("NESKMANAGER_HELPVIEWER", "no-such-viewer", 1);
    Expect();
    modHelp::ShowHelpContents(nullptr);
    ::unsetenv("NESKMANAGER_HELPVIEWER");
    EXPECT_EQ(messages.at(1).text, modStringRes::FormatResString(34161, modHelp::HelpFile()));
}
#endif

} // namespace
} // namespace nesk
