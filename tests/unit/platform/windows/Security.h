#pragma once

#include <string>

/// Access lists of files and registry keys in the system's own notation (SDDL), such as
/// "D:P(A;;FA;;;BA)(A;;FR;;;WD)".
namespace nesk::testing {

std::string AccessListOf(const std::string& windowsPath);
void SetAccessList(const std::string& windowsPath, const std::string& list);

/// Access list of a key below HKEY_LOCAL_MACHINE.
std::string KeyAccessListOf(const std::string& key);
void SetKeyAccessList(const std::string& key, const std::string& list);

} // namespace nesk::testing
