#pragma once

#include <string>
#include <string_view>

/// Messages about an invalid field of a dialog.
namespace nesk::FieldMessage {

/// The text of a label without the "&" that marks its access key, or without the whole "(&F)"; "&&" becomes
/// "&".
std::string PlainLabel(std::string_view label);

/// The message that names the field.
/// @param labelId  message number of the field's label
std::string Text(int labelId);

/// Title of that message.
std::string Title();

/// True when a path is on a drive that the station does not have.
bool OnMissingDrive(const std::string& path);

/// Why a folder is invalid: the path is empty, the folder or its drive does not exist, or the path is a file.
std::string FolderReason(const std::string& folder);

} // namespace nesk::FieldMessage
