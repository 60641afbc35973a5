#include "shell/StationCreation.h"

#include "base/Messages.h"
#include "base/NeskError.h"
#include "platform/ErrorCode.h"
#include "platform/StationFolder.h"
#include "platform/portable/Station.h"
#include "settings/NeskRegistry.h"
#include "settings/OptionsModel.h"
#include "settings/RegEntry.h"
#include "shell/Startup.h"
#include "shell/modUtilities.h"
#include "unit/CoreFixture.h"
#include "unit/Errors.h"
#include "unit/platform/portable/ChildProcess.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace nesk {
namespace {

using nesk::testing::ErrorOf;
using StationCreation::Field;
using StationCreation::Wishes;
namespace fs = std::filesystem;

class StationCreationTest : public testing::CoreTest {
protected:
    StationCreationTest() {
        fs::create_directories(m_place);
        Startup::LoadStation();
    }

    ~StationCreationTest() override { NeskRegistry::Instance() = NeskRegistry(); }

    Wishes WishesFor(bool example, const std::string& name = "new") const {
        return {example, (m_place / name).string(), " Bridge ", "Gear shop"};
    }

    // Names in the folder in which stations are created.
    std::string Left() const {
        std::string names;
        for (const auto& entry : fs::directory_iterator(m_place))
            names += entry.path().filename().string() + " ";
        return names;
    }

    static std::string Value(const std::string& key, const std::string& name) {
        RegEntry entry;
        entry.OpenKey(key);
        return entry.GetString(name);
    }

    // Another folder of the host, removed with the station.
    const fs::path m_place = station.Folder() / "elsewhere";
};

TEST_F(StationCreationTest, AnEmptyStationCanBeWorkedWithAtOnce) {
    StationCreation::Create(WishesFor(false));
    EXPECT_EQ(platform::StationFolderName(), (m_place / "new").string());
    EXPECT_EQ(Left(), "new ");
    const NeskRegistry& settings = NeskRegistry::Instance();
    EXPECT_EQ(settings.MenuFile(), "C:\\Neskroot\\menu.cfg");
    EXPECT_FALSE(modUtilities::FileExists(settings.MenuFile()));
    // Everything that the options require is set.
    const OptionsFields fields = OptionsModel::Load(settings);
    EXPECT_EQ(fields.machine, "Bridge");
    EXPECT_EQ(fields.user, "Gear shop");
    OptionsModel::Numbers numbers;
    const auto fault = OptionsModel::Check(fields, numbers);
    EXPECT_FALSE(fault.has_value()) << fault->message;
    EXPECT_TRUE(modUtilities::DirectoryExists(Value("Common", "RepositoryRoot")));
}

TEST_F(StationCreationTest, TheSettingsAreInTheNewFolderAlone) {
    StationCreation::Create(WishesFor(false));
    StationCreation::Open(station.Folder().string());
    EXPECT_FALSE(RegEntry().TestKey("Neskworks")) << "the former station got settings";
    EXPECT_EQ(NeskRegistry::Instance().NeskRoot, "");
    StationCreation::Open((m_place / "new").string());
    EXPECT_EQ(NeskRegistry::Instance().NeskRoot, "C:\\Neskroot");
}

TEST_F(StationCreationTest, AnExistingEmptyFolderIsTaken) {
    fs::create_directory(m_place / "new");
    StationCreation::Create(WishesFor(false));
    EXPECT_EQ(Left(), "new ");
    EXPECT_EQ(Value("Machines\\M1", "Name"), "Bridge");
}

TEST_F(StationCreationTest, AFolderThatHoldsSomethingIsRefused) {
    fs::create_directory(m_place / "new");
    std::ofstream(m_place / "new" / "letter.txt") << "mine";
    const NeskError error = ErrorOf([&] { StationCreation::Create(WishesFor(false)); });
    EXPECT_EQ(error.messageId, Message::StationFolderNotEmpty);
    EXPECT_EQ(Left(), "new ");
    EXPECT_TRUE(fs::exists(m_place / "new" / "letter.txt"));
    EXPECT_EQ(platform::StationFolderName(), station.Folder().string());
}

TEST_F(StationCreationTest, AFolderThatIsFilledMeanwhileIsNotReplaced) {
    std::unique_ptr<platform::NewStationFolder> made;
    const std::string folder = (m_place / "new").string();
    ASSERT_EQ(platform::BeginStationFolder(folder, false, made), platform::ErrorCode::Success);
    fs::create_directories(m_place / "new" / "x");
    EXPECT_NE(made->Finish(), platform::ErrorCode::Success);
    made.reset();
    EXPECT_EQ(Left(), "new ") << "nothing is left of what was begun";
    EXPECT_TRUE(fs::exists(m_place / "new" / "x"));
    EXPECT_EQ(platform::StationFolderName(), station.Folder().string());
}

TEST_F(StationCreationTest, AFolderThatCannotBeMade) {
    std::ofstream(m_place / "file") << "no folder";
    const NeskError error = ErrorOf([&] { StationCreation::Create(WishesFor(false, "file/new")); });
    EXPECT_EQ(error.source, "StationCreation");
    EXPECT_EQ(error.messageId, Message::StationFolderNotMade) << "a file stands where a folder should";
    EXPECT_EQ(Left(), "file ");
    EXPECT_EQ(platform::StationFolderName(), station.Folder().string());
    EXPECT_EQ(ErrorOf([&] {
                  StationCreation::Create({false, "relative/folder", "M", "U"});
              }).messageId,
              Message::InvalidName);
}

TEST_F(StationCreationTest, AFileInPlaceOfTheFolder) {
    std::ofstream(m_place / "new") << "no folder";
    EXPECT_EQ(ErrorOf([&] { StationCreation::Create(WishesFor(false)); }).messageId, Message::NotAFolder);
    EXPECT_EQ(Left(), "new ");
}

TEST_F(StationCreationTest, APlaceInWhichNothingCanBeMade) {
    const NeskError error = ErrorOf([] { StationCreation::Create({false, "/proc/x", "M", "U"}); });
    EXPECT_EQ(error.messageId, Message::StationFolderNotMade);
    EXPECT_EQ(error.arguments, std::vector<std::string>{"/proc/x"});
    EXPECT_EQ(platform::StationFolderName(), station.Folder().string());
}

TEST_F(StationCreationTest, AnotherUsersFolderIsRefusedAndNothingIsLeft) {
    fs::permissions(station.Folder(), fs::perms::others_exec, fs::perm_options::add);
    const auto create = [&] {
        nesk::testing::BecomePlainUser();
        EXPECT_EQ(ErrorOf([&] { StationCreation::Create(WishesFor(false)); }).number,
                  RuntimeError::PermissionDenied);
        EXPECT_EQ(platform::StationFolderName(), station.Folder().string());
        return true;
    };
    EXPECT_EQ(nesk::testing::InChildProcess(create), nesk::testing::ChildEnd::Good);
    EXPECT_EQ(Left(), "");
}

TEST_F(StationCreationTest, WishesThatCannotBeMet) {
    const auto fault = [&](const Wishes& wishes) { return StationCreation::Check(wishes); };
    EXPECT_FALSE(fault(WishesFor(false)).has_value());
    Wishes wishes = WishesFor(false);
    wishes.folder = "  ";
    EXPECT_EQ(fault(wishes)->field, Field::Folder);
    wishes.folder = station.Folder().string();
    EXPECT_EQ(fault(wishes)->message,
              modStringRes::FormatResString(Message::StationExists, station.Folder().string()));
    wishes = WishesFor(false);
    wishes.machine = " ";
    EXPECT_EQ(fault(wishes)->field, Field::Machine);
    wishes = WishesFor(false);
    wishes.user = std::string(256, 'u');
    EXPECT_EQ(fault(wishes)->field, Field::User);
}

TEST_F(StationCreationTest, TheProposalIsTheFolderOfTheNextStartOrAFreeOneBesideIt) {
    const std::string usual = (m_place / "usual").string();
    ::setenv("NESKMANAGER_STATION", usual.c_str(), 1);
    EXPECT_EQ(StationCreation::Proposal(false).folder, usual);
    StationCreation::Create(StationCreation::Proposal(false));
    EXPECT_EQ(platform::StationFolderName(), usual);
    EXPECT_EQ(StationCreation::Proposal(false).folder, usual + "-2");
    ::unsetenv("NESKMANAGER_STATION");
}

TEST_F(StationCreationTest, AFolderWithoutAStationIsNotOpened) {
    const std::string empty = m_place.string();
    EXPECT_EQ(ErrorOf([&] { StationCreation::Open(empty); }).messageId, Message::NotAStation);
    EXPECT_EQ(ErrorOf([&] { StationCreation::Open(empty + "/none"); }).number, RuntimeError::PathNotFound);
    EXPECT_EQ(platform::StationFolderName(), station.Folder().string());
}

TEST_F(StationCreationTest, AFolderInItsDrivesStandsForAStation) {
    StationCreation::Create(WishesFor(false));
    const std::string created = (m_place / "new").string();
    for (const char* inner : {"/drives", "/drives/c", "/drives/c/"}) {
        StationCreation::Open(station.Folder().string());
        StationCreation::Open(created + inner);
        EXPECT_EQ(platform::StationFolderName(), created) << inner;
    }
    // Not every folder with that name belongs to a station.
    fs::create_directories(m_place / "drives" / "other");
    EXPECT_EQ(ErrorOf([&] { StationCreation::Open((m_place / "drives" / "other").string()); }).messageId,
              Message::NotAStation);
    StationCreation::Open(station.Folder().string());
}

TEST_F(StationCreationTest, AnotherStationBringsItsLanguageAndSettings) {
    StationCreation::Create(WishesFor(false));
    RegEntry entry;
    entry.CreateKey("Orvane\\Settings");
    entry.SetString("DefaultLanguage", "1031");
    StationCreation::Open(station.Folder().string());
    EXPECT_EQ(Startup::LanguageID(), 1033);
    StationCreation::Open((m_place / "new").string());
    EXPECT_EQ(Startup::LanguageID(), 1031);
    StationCreation::Open(station.Folder().string());
}

// The example is built next to the tests.
TEST_F(StationCreationTest, TheExampleIsCopiedWithMachineAndUser) {
    ASSERT_TRUE(platform::HasExampleStation());
    // Installed files may be write-protected.
    const fs::path original =
        fs::read_symlink("/proc/self/exe").parent_path() / "example-station/registry.db";
    const fs::perms writable = fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write;
    fs::permissions(original, writable, fs::perm_options::remove);
    StationCreation::Create(WishesFor(true));
    fs::permissions(original, fs::perms::owner_write, fs::perm_options::add);
    const NeskRegistry& settings = NeskRegistry::Instance();
    EXPECT_TRUE(modUtilities::FileExists(settings.MenuFile())) << settings.MenuFile();
    EXPECT_EQ(settings.NeskMachine, "Machines\\M1");
    EXPECT_EQ(Value("Machines\\M1", "Name"), "Bridge");
    EXPECT_EQ(Value("Users\\U1", "Name"), "Gear shop");
    EXPECT_FALSE(modUtilities::FileExists(Value("Common", "RepositoryRoot")));
    EXPECT_TRUE(modUtilities::DirectoryExists(Value("Common", "RepositoryRoot")));
    // The user can write to all files of the copy.
    for (const auto& entry : fs::recursive_directory_iterator(m_place / "new"))
        EXPECT_NE(entry.status().permissions() & fs::perms::owner_write, fs::perms::none) << entry.path();
}

} // namespace
} // namespace nesk
