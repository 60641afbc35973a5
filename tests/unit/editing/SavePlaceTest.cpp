#include "editing/SavePlace.h"

#include "base/Messages.h"
#include "settings/NeskRegistry.h"
#include "unit/CoreFixture.h"
#include "unit/Errors.h"
#include "unit/FileBytes.h"

#include <filesystem>

namespace nesk {
namespace {

using modStringRes::FormatResString;
using modStringRes::LoadResString;
using nesk::testing::ErrorOf;
namespace fs = std::filesystem;

const std::string Old = "C:\\Old\\menu.cfg";
const std::string New = "C:\\New\\menu.cfg";
constexpr const char* Good = "BLOCK MENU\r\n\tCAPTION=good\r\n\tGRAPHIC=\r\nEND\r\n";
constexpr const char* CutOff = "BLOCK MENU\r\n\tCAPTION=cut\r\n";

class SavePlaceTest : public testing::CoreTest {
protected:
    SavePlaceTest() {
        for (const char* folder : {"C:\\Old", "C:\\New"})
            fs::create_directories(TempStation::Host(folder));
        m_settings.NeskRoot = "C:\\Old";
    }

    void Open(const std::string& bytes) {
        if (!bytes.empty()) station.Write(Old, bytes);
        m_editor.Open("C:\\Old", Old);
    }

    std::string Question() const {
        const std::string path = SavePlace::Target(m_settings);
        return SavePlace::Question(m_editor, path, m_editor.PlanSave(path)).value_or("");
    }

    MenuEditor m_editor;
    NeskRegistry m_settings;
};

TEST_F(SavePlaceTest, TheUsualPlaceNeedsNoQuestion) {
    Open(Good);
    EXPECT_EQ(SavePlace::Target(m_settings), Old);
    EXPECT_EQ(SavePlace::Origin(m_settings), Old);
    EXPECT_EQ(Question(), "");
    EXPECT_EQ(SavePlace::StatusText(m_editor, m_settings), Old);
    EXPECT_EQ(SavePlace::NewMenuText(m_editor, m_settings), "");
}

TEST_F(SavePlaceTest, AnotherRootFolderIsTold) {
    Open(Good);
    m_settings.NeskRoot = "C:\\New";
    EXPECT_EQ(Question(), FormatResString(Message::SaveElsewhere, Old, New));
    EXPECT_EQ(SavePlace::StatusText(m_editor, m_settings), FormatResString(Message::FromAndTo, Old, New));
    station.Write(New, Good);
    const std::string copy = m_editor.PlanSave(New).backup.path;
    EXPECT_EQ(Question(), FormatResString(Message::SaveElsewhereReplaces, Old, New, copy));
    m_editor.Save(New);
    EXPECT_EQ(Question(), "");
    EXPECT_EQ(SavePlace::StatusText(m_editor, m_settings), New);
}

TEST_F(SavePlaceTest, ARootFolderThatEndsInASeparatorIsTheSame) {
    Open(Good);
    m_settings.NeskRoot = "c:\\OLD\\";
    EXPECT_EQ(SavePlace::StatusText(m_editor, m_settings), Old);
    EXPECT_EQ(Question(), "");
}

TEST_F(SavePlaceTest, AnIncompleteMenuIsToldElsewhereToo) {
    Open(CutOff);
    const std::string copy = m_editor.PlanSave(Old).backup.path;
    EXPECT_EQ(Question(), FormatResString(Message::SaveIncomplete, Old, copy));
    m_settings.NeskRoot = "C:\\New";
    EXPECT_EQ(Question(), LoadResString(Message::SaveIncompleteElsewhere) + "\n\n" +
                              FormatResString(Message::SaveElsewhere, Old, New));
}

TEST_F(SavePlaceTest, TheQuestionNamesWhereTheOthersVersionIsKept) {
    Open(Good);
    station.Write(Old, "by another program");
    const SavePlan plan = m_editor.PlanSave(Old);
    const std::string question = SavePlace::Question(m_editor, Old, plan).value();
    EXPECT_NE(question.find(plan.backup.path), std::string::npos) << question;
    m_editor.Save(Old, plan);
    EXPECT_EQ(nesk::testing::FileBytes(plan.backup.path), "by another program");
}

TEST_F(SavePlaceTest, AFileThatCannotBeReadIsNoChangeByAnotherProgram) {
    Open(Good);
    fs::remove(TempStation::Host(Old));
    fs::create_directory(TempStation::Host(Old));
    const NeskError error = ErrorOf([&] { SavePlace::Question(m_editor, Old, m_editor.PlanSave(Old)); });
    EXPECT_EQ(error.number, RuntimeError::PermissionDenied);
    EXPECT_EQ(error.arguments, (std::vector<std::string>{Old}));
    // The path can be read again, so the menu can be saved.
    fs::remove(TempStation::Host(Old));
    station.Write(Old, Good);
    EXPECT_EQ(SavePlace::Question(m_editor, Old, m_editor.PlanSave(Old)), std::nullopt);
}

TEST_F(SavePlaceTest, ANewMenu) {
    Open("");
    EXPECT_EQ(SavePlace::StatusText(m_editor, m_settings), "") << "there is no file yet";
    EXPECT_EQ(SavePlace::NewMenuText(m_editor, m_settings), FormatResString(Message::NewMenuBar, Old));
    m_settings.NeskRoot = "C:\\New";
    EXPECT_EQ(SavePlace::NewMenuText(m_editor, m_settings), FormatResString(Message::NewMenuBar, New));
    EXPECT_EQ(SavePlace::StatusText(m_editor, m_settings), FormatResString(Message::WillBeSaved, New));
    m_editor.Save(New);
    EXPECT_EQ(SavePlace::NewMenuText(m_editor, m_settings), "");
    m_editor.Close();
    EXPECT_EQ(SavePlace::StatusText(m_editor, m_settings), "");
}

TEST_F(SavePlaceTest, WithoutARootFolder) {
    m_settings.NeskRoot = "";
    EXPECT_EQ(ErrorOf([&] { SavePlace::Target(m_settings); }).messageId, Message::NoMenuRoot);
    EXPECT_EQ(ErrorOf([&] { SavePlace::Origin(m_settings); }).messageId, Message::NoMenuRoot);
}

TEST_F(SavePlaceTest, ARootFolderThatIsGone) {
    m_settings.NeskRoot = "C:\\Gone";
    const NeskError error = ErrorOf([&] { SavePlace::Target(m_settings); });
    EXPECT_EQ(error.number, RuntimeError::PathNotFound);
    EXPECT_EQ(error.messageId, Message::RootGone);
    EXPECT_EQ(error.arguments, (std::vector<std::string>{"C:\\Gone"}));
    // A user who opens a menu has nothing to save, so the message differs.
    const NeskError opening = ErrorOf([&] { SavePlace::Origin(m_settings); });
    EXPECT_EQ(opening.number, RuntimeError::PathNotFound);
    EXPECT_EQ(opening.messageId, Message::StartRootGoneText);
    EXPECT_EQ(opening.arguments, error.arguments);
}

#ifdef NESK_PORTABLE_STATION
TEST_F(SavePlaceTest, AStationFolderThatIsGoneIsNamed) {
    Open(Good);
    const fs::path away = station.Folder().string() + "-away";
    fs::rename(station.Folder(), away);
    const NeskError error = ErrorOf([&] { SavePlace::Target(m_settings); });
    EXPECT_EQ(error.messageId, Message::StationGone);
    EXPECT_EQ(error.arguments, (std::vector<std::string>{station.Folder().string()}));
    EXPECT_EQ(ErrorOf([&] { SavePlace::Origin(m_settings); }).messageId, Message::StartNoStationText);
    // The station folder is back, so the menu can be saved.
    fs::rename(away, station.Folder());
    EXPECT_EQ(SavePlace::Target(m_settings), Old);
    m_editor.SetCaption("R", "still here");
    m_editor.Save(Old);
    EXPECT_NE(nesk::testing::FileBytes(Old).find("still here"), std::string::npos);
}
#endif

} // namespace
} // namespace nesk
