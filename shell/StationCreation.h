#pragma once

#include <optional>
#include <string>

/// Creating a station: the user's input, its validation, and the creation.
namespace nesk::StationCreation {

/// What the user enters for a new station.
struct Wishes {
    bool example = false; ///< true for a copy of the example, false for an empty station
    std::string folder;   ///< a path of the host system
    std::string machine;  ///< display name
    std::string user;     ///< display name
};

enum class Field { Folder, Machine, User };

/// The reason why a station cannot be created.
struct Fault {
    Field field;
    std::string message;
};

/// The proposed values: the default folder of the program or a free folder with a number after its name, and
/// a name for the machine and the user.
Wishes Proposal(bool example);

/// Checks the fields in order. Returns the first fault; nothing when there is no fault.
std::optional<Fault> Check(const Wishes& wishes);

/// Creates the station and replaces the current one by it, with its language, help and settings. Raises the
/// run-time error of the failed step. The former station is then in use, and nothing of the new one remains.
void Create(const Wishes& wishes);

/// Replaces the current station by an existing one. Raises the run-time error of the failed step; the former
/// station then stays in use.
void Open(const std::string& folder);

} // namespace nesk::StationCreation
