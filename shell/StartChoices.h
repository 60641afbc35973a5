#pragma once

#include "platform/StationFolder.h"

#include <string>
#include <vector>

namespace nesk {

class NeskRegistry;

/// A step towards an open menu.
enum class StartStep { OpenMenu, ChooseRoot, CreateStation, OpenStation };

/// The state of station and root folder while no menu is open.
struct StartState {
    enum class Root { NotSet, Missing, Denied, Exists };

    std::string station; ///< folder of the station; "" on systems without stations
    platform::StationFolderState stationState = platform::StationFolderState::NotApplicable;
    std::string root; ///< menu root folder of the settings
    Root rootState = Root::NotSet;
    std::string menuFile;
    bool menuExists = false;

    bool operator==(const StartState&) const = default;
};

/// The contents of the start page.
struct StartChoices {
    std::string heading;
    std::string text;             ///< what exists and what is missing
    std::vector<StartStep> steps; ///< the steps that help, the next one first

    /// Determines the current state. Accesses the disk.
    static StartState LookUp(const NeskRegistry& settings);

    /// The contents of the start page for a state.
    static StartChoices For(const StartState& state);

    bool operator==(const StartChoices&) const = default;
};

} // namespace nesk
