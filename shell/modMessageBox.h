#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

/// The interface through which the core shows message boxes.
namespace nesk::modMessageBox {

/// Option word: the sum of one button set, one icon and one default button.
namespace Option {
constexpr std::int16_t Ok = 0;
constexpr std::int16_t OkCancel = 1;
constexpr std::int16_t AbortRetryIgnore = 2;
constexpr std::int16_t YesNoCancel = 3;
constexpr std::int16_t YesNo = 4;
constexpr std::int16_t RetryCancel = 5;
constexpr std::int16_t Critical = 16;
constexpr std::int16_t Question = 32;
constexpr std::int16_t Exclamation = 48;
constexpr std::int16_t Information = 64;
constexpr std::int16_t SecondDefault = 0x100;
constexpr std::int16_t ThirdDefault = 0x200;
} // namespace Option

/// Result codes.
namespace Result {
constexpr std::int16_t None = 0; // closed without a button
constexpr std::int16_t Ok = 1;
constexpr std::int16_t Cancel = 2;
constexpr std::int16_t Abort = 3;
constexpr std::int16_t Retry = 4;
constexpr std::int16_t Ignore = 5;
constexpr std::int16_t Yes = 6;
constexpr std::int16_t No = 7;
} // namespace Result

/// A function that shows a message and returns the result code of the button pressed.
using Hook =
    std::function<std::int16_t(const std::string& text, std::int16_t options, const std::string& title)>;

/// Sets the function that shows messages: the message box of the application, or the recorder of a test.
/// Returns the previous hook.
Hook SetHook(Hook hook);

/// Shows a message box and waits for the answer.
/// @param text     the text, lines separated by "\n"
/// @param options  sum of Option values
/// @param title    the title; the application's title when omitted
/// @return one of Result; also None when no hook is set
std::int16_t ShowMessage(const std::string& text, std::int16_t options = 0,
                         const std::optional<std::string>& title = std::nullopt);

} // namespace nesk::modMessageBox
