#pragma once

#include <string>

namespace nesk::platform {

/// How many temporary names are tried before a save gives up. Other editors that save at the same time may
/// use some of them.
constexpr int TemporaryNames = 100;

/// Name of the temporary file beside `path` that replaces it when it is complete, for example
/// "menu.cfg.nesk~". Users do not give their own files such names, so a file left by a killed program can be
/// removed.
/// @param attempt  1 to TemporaryNames; each has a name of its own
inline std::string TemporaryName(const std::string& path, int attempt) {
    return path + ".nesk" + (attempt > 1 ? std::to_string(attempt) : "") + "~";
}

} // namespace nesk::platform
