#include "shell/StartChoices.h"

#include "base/Messages.h"
#include "settings/NeskRegistry.h"
#include "unit/CoreFixture.h"

#include <filesystem>

namespace nesk {
namespace {

using modStringRes::LoadResString;
using platform::StationFolderState;
using enum StartStep;
using Steps = std::vector<StartStep>;
using Root = StartState::Root;

class StartChoicesTest : public testing::CoreTest {
protected:
    // A state whose menu exists, of a folder station or of this computer.
    static StartState StateOf(StationFolderState station, Root root, bool menu = true) {
        StartState state;
        state.station = station == StationFolderState::NotApplicable ? "" : "/home/me/station";
        state.stationState = station;
        state.root = root == Root::NotSet ? "" : "C:\\Neskroot";
        state.rootState = root;
        state.menuFile = root == Root::NotSet ? "" : "C:\\Neskroot\\menu.cfg";
        state.menuExists = menu;
        return state;
    }
};

TEST_F(StartChoicesTest, TheNextStepOfEachState) {
    const struct {
        StationFolderState station;
        Root root;
        int heading;
        Steps steps;
    } table[] = {
        {StationFolderState::NotApplicable, Root::Exists, Message::StartNothingOpen, {OpenMenu}},
        {StationFolderState::NotApplicable, Root::NotSet, Message::StartNoRoot, {ChooseRoot}},
        {StationFolderState::NotApplicable, Root::Missing, Message::StartRootGone, {ChooseRoot}},
        {StationFolderState::NotApplicable, Root::Denied, Message::StartRootClosed, {ChooseRoot}},
        {StationFolderState::Usable,
         Root::Exists,
         Message::StartNothingOpen,
         {OpenMenu, CreateStation, OpenStation}},
        {StationFolderState::Usable,
         Root::NotSet,
         Message::StartNoRoot,
         {ChooseRoot, CreateStation, OpenStation}},
        {StationFolderState::Usable,
         Root::Missing,
         Message::StartRootGone,
         {ChooseRoot, CreateStation, OpenStation}},
        {StationFolderState::Missing, Root::NotSet, Message::StartNoStation, {CreateStation, OpenStation}},
        {StationFolderState::Missing, Root::Missing, Message::StartNoStation, {CreateStation, OpenStation}},
        {StationFolderState::Denied,
         Root::Missing,
         Message::StartStationClosed,
         {CreateStation, OpenStation}},
        {StationFolderState::Empty, Root::NotSet, Message::StartNoStation, {CreateStation, OpenStation}},
        // A root folder on another drive exists without its station.
        {StationFolderState::Missing,
         Root::Exists,
         Message::StartNothingOpen,
         {OpenMenu, CreateStation, OpenStation}},
    };
    for (const auto& row : table) {
        const StartState state = StateOf(row.station, row.root);
        const StartChoices choices = StartChoices::For(state);
        EXPECT_EQ(choices.heading, LoadResString(row.heading));
        EXPECT_EQ(choices.steps, row.steps) << choices.heading;
        // The text names what is missing, and the station if there can be several.
        if (!state.station.empty()) {
            EXPECT_NE(choices.text.find(state.station), std::string::npos) << choices.text;
        }
        if (state.rootState != Root::NotSet && row.heading != Message::StartNoStation &&
            row.heading != Message::StartStationClosed) {
            EXPECT_NE(choices.text.find(state.root), std::string::npos) << choices.text;
        }
    }
}

TEST_F(StartChoicesTest, AMenuThatIsNotThereYetIsTold) {
    const StartState with = StateOf(StationFolderState::NotApplicable, Root::Exists);
    const StartState without = StateOf(StationFolderState::NotApplicable, Root::Exists, false);
    EXPECT_EQ(StartChoices::For(with).text,
              modStringRes::FormatResString(Message::StartMenuText, with.menuFile));
    EXPECT_EQ(StartChoices::For(without).text,
              modStringRes::FormatResString(Message::StartNoMenuText, with.menuFile));
}

TEST_F(StartChoicesTest, LooksAtTheDisk) {
    NeskRegistry settings;
    EXPECT_EQ(StartChoices::LookUp(settings).rootState, Root::NotSet);
    settings.NeskRoot = "C:\\Neskroot";
    EXPECT_EQ(StartChoices::LookUp(settings).rootState, Root::Missing);
    std::filesystem::create_directories(TempStation::Host("C:\\Neskroot"));
    StartState state = StartChoices::LookUp(settings);
    EXPECT_EQ(state.rootState, Root::Exists);
    EXPECT_EQ(state.menuFile, "C:\\Neskroot\\menu.cfg");
    EXPECT_FALSE(state.menuExists);
    station.Write("C:\\Neskroot\\menu.cfg", "");
    EXPECT_TRUE(StartChoices::LookUp(settings).menuExists);
#ifdef NESK_PORTABLE_STATION
    EXPECT_EQ(state.station, station.Folder().string());
    EXPECT_EQ(state.stationState, StationFolderState::Usable);
    std::filesystem::remove_all(station.Folder() / "drives");
    EXPECT_EQ(StartChoices::LookUp(settings).stationState, StationFolderState::Empty);
    std::filesystem::remove_all(station.Folder());
    EXPECT_EQ(StartChoices::LookUp(settings).stationState, StationFolderState::Missing);
#else
    EXPECT_EQ(state.station, "");
    EXPECT_EQ(state.stationState, StationFolderState::NotApplicable);
#endif
}

} // namespace
} // namespace nesk
