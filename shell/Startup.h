#pragma once

#include <functional>

/// Start-up of the program, and the application state that it creates.
namespace nesk::Startup {

/// Windows language identifier of texts and help; 1033 until InitLanguage finds another language.
int LanguageID();

/// Reads the language from the registry and prepares its code page and texts. A missing or unusable value
/// results in 1033. Does not raise errors.
void InitLanguage();

/// Reads language, help file and settings of the current station. Does not raise errors.
void LoadStation();

/// Shows a message for each reason why the registry of the current station cannot be read or its language
/// cannot be used.
void ReportProblems();

/// Starts the program: language, help file, settings, main window. When the registry cannot be read or the
/// language cannot be used, a message is shown after the window is created, and the program continues.
/// @param showMainWindow  creates and shows the main window; returns without waiting until it is closed
void Main(const std::function<void()>& showMainWindow);

} // namespace nesk::Startup
