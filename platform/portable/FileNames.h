#pragma once

#include <string>
#include <string_view>

/// Conversion of file names between the host, where they are bytes, and the program, where they are UTF-8.
namespace nesk::platform::portable {

/// Turns the bytes of a host file name into UTF-8. A byte that is not UTF-8 becomes U+10FE00 + byte.
std::string NameFromHost(std::string_view bytes);

/// The reverse of NameFromHost.
std::string NameToHost(std::string_view name);

} // namespace nesk::platform::portable
