#pragma once

#include <optional>
#include <string>

/// A new station: what it needs, whether that will do, and its making.
namespace nesk::StationCreation {

/// What the user says about a new station.
struct Wishes {
    bool example = false; ///< a copy of the example, otherwise an empty one
    std::string folder;   ///< as the system names it
    std::string machine;  ///< display name
    std::string user;     ///< display name
};

enum class Field { Folder, Machine, User };

/// Why the wishes cannot be met.
struct Fault {
    Field field;
    std::string message;
};

/// What is proposed: the folder with which the program begins, or a free one beside it, and a name of each
/// kind.
Wishes Proposal(bool example);

/// Checks the wishes one after the other; nothing when there is no fault.
std::optional<Fault> Check(const Wishes& wishes);

/// Makes the station and puts it in place of the one in use, with its language, help and settings. Raises the
/// run-time error of what failed; the former station is in use then and nothing is left of the new one.
void Create(const Wishes& wishes);

/// Puts an existing station in place of the one in use. Raises the run-time error of what failed; the former
/// station stays in use then.
void Open(const std::string& folder);

} // namespace nesk::StationCreation
