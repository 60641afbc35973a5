#pragma once

#include "platform/StationFolder.h"

#include <string>
#include <vector>

namespace nesk {

class NeskRegistry;

/// A step that leads towards an open menu.
enum class StartStep { OpenMenu, ChooseRoot, CreateStation, OpenStation };

/// What there is while no menu is open.
struct StartState {
    enum class Root { NotSet, Missing, Denied, Exists };

    std::string station; ///< its folder; "" where stations are none
    platform::StationFolderState stationState = platform::StationFolderState::NotApplicable;
    std::string root; ///< folder that the settings name for the menu
    Root rootState = Root::NotSet;
    std::string menuFile;
    bool menuExists = false;

    bool operator==(const StartState&) const = default;
};

/// What the main window shows while no menu is open.
struct StartChoices {
    std::string heading;
    std::string text;             ///< what is there and what is missing
    std::vector<StartStep> steps; ///< those that help, the next one first

    /// The state as it is now: looks at the disk.
    static StartState LookUp(const NeskRegistry& settings);

    /// What is said and offered in a state.
    static StartChoices For(const StartState& state);

    bool operator==(const StartChoices&) const = default;
};

} // namespace nesk
