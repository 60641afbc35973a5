#include "shell/StartChoices.h"

#include "base/Messages.h"
#include "platform/ErrorCode.h"
#include "platform/FileSystem.h"
#include "settings/NeskRegistry.h"
#include "shell/modStringRes.h"
#include "shell/modUtilities.h"

#include <cstdint>

namespace nesk {

using modStringRes::FormatResString;
using modStringRes::LoadResString;
using platform::StationFolderState;

namespace {

StartState::Root LookUpRoot(const std::string& root) {
    if (root.empty()) return StartState::Root::NotSet;
    if (modUtilities::DirectoryExists(root)) return StartState::Root::Exists;
    std::uint32_t attributes = 0;
    const platform::ErrorCode result = platform::StationFiles().Attributes(root, attributes);
    return result == platform::ErrorCode::AccessDenied ? StartState::Root::Denied : StartState::Root::Missing;
}

bool Exists(const std::string& path) {
    std::uint32_t attributes = 0;
    const platform::ErrorCode result = platform::StationFiles().Attributes(path, attributes);
    return result != platform::ErrorCode::FileNotFound && result != platform::ErrorCode::PathNotFound;
}

} // namespace

StartState StartChoices::LookUp(const NeskRegistry& settings) {
    StartState state;
    state.station = platform::StationFolderName();
    state.stationState = platform::LookUpStationFolder(state.station);
    state.root = settings.NeskRoot;
    state.rootState = LookUpRoot(state.root);
    state.menuFile = settings.MenuPath();
    state.menuExists = state.rootState == StartState::Root::Exists && Exists(state.menuFile);
    return state;
}

StartChoices StartChoices::For(const StartState& state) {
    StartChoices choices;
    const bool hasFolder = state.stationState != StationFolderState::NotApplicable;
    const auto describe = [&](int headingNumber, const std::string& explanation) {
        choices.heading = LoadResString(headingNumber);
        choices.text = explanation;
    };
    const bool isLost =
        state.stationState == StationFolderState::Missing || state.stationState == StationFolderState::Denied;
    // A root folder outside the station can exist when the station does not.
    if (isLost && state.rootState != StartState::Root::Exists) {
        const bool denied = state.stationState == StationFolderState::Denied;
        describe(denied ? Message::StartStationClosed : Message::StartNoStation,
                 FormatResString(denied ? Message::StartStationClosedText : Message::StartNoStationText,
                                 state.station));
        choices.steps = {StartStep::CreateStation, StartStep::OpenStation};
        return choices;
    }
    if (state.stationState == StationFolderState::Empty && state.rootState == StartState::Root::NotSet) {
        describe(Message::StartNoStation, FormatResString(Message::StartEmptyStationText, state.station));
        choices.steps = {StartStep::CreateStation, StartStep::OpenStation};
        return choices;
    }
    switch (state.rootState) {
    case StartState::Root::Exists:
        describe(Message::StartNothingOpen,
                 FormatResString(state.menuExists ? Message::StartMenuText : Message::StartNoMenuText,
                                 state.menuFile));
        choices.steps = {StartStep::OpenMenu};
        break;
    case StartState::Root::NotSet:
        describe(Message::StartNoRoot, LoadResString(Message::StartNoRootText));
        choices.steps = {StartStep::ChooseRoot};
        break;
    case StartState::Root::Missing:
        describe(Message::StartRootGone, FormatResString(Message::StartRootGoneText, state.root));
        choices.steps = {StartStep::ChooseRoot};
        break;
    case StartState::Root::Denied:
        describe(Message::StartRootClosed, FormatResString(Message::StartRootClosedText, state.root));
        choices.steps = {StartStep::ChooseRoot};
        break;
    }
    if (hasFolder) {
        choices.text += "\n\n" + FormatResString(Message::StartStationLine, state.station);
        choices.steps.insert(choices.steps.end(), {StartStep::CreateStation, StartStep::OpenStation});
    }
    return choices;
}

} // namespace nesk
