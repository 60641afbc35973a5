#pragma once

#include <string>
#include <string_view>

/// What is said about a field of a dialog that was refused.
namespace nesk::FieldMessage {

/// A label's text as it is read: without the "&" that marks its access key; "&&" is one "&".
std::string PlainLabel(std::string_view label);

/// The message that names the field.
/// @param labelId  message number of the field's label
std::string Text(int labelId);

/// Title of that message.
std::string Title();

/// Whether a path names a drive that the station does not have.
bool OnMissingDrive(const std::string& path);

/// Why a folder was refused: none is named, it or its drive does not exist, or it is a file.
std::string FolderReason(const std::string& folder);

} // namespace nesk::FieldMessage
