#pragma once

#include <functional>

/// Application state that start-up creates and everything afterwards uses.
namespace nesk::Startup {

/// Windows language identifier of texts and help; 1033 until InitLanguage finds another.
int LanguageID();

/// Reads the language from the registry and prepares the code page and the texts for it. A missing or
/// unusable value gives 1033. Raises nothing.
void InitLanguage();

/// Reads language, help file and settings of the station in use. Raises nothing.
void LoadStation();

/// Shows as messages what keeps the registry of the station in use from being read, or its language from
/// being used.
void ReportProblems();

/// Starts the program: language, help file, settings, main window. What keeps the registry from being read,
/// or the language from being used, is shown as a message once the window is there; the program goes on.
/// @param showMainWindow  creates and shows the main window, without waiting for its end
void Main(const std::function<void()>& showMainWindow);

} // namespace nesk::Startup
