#pragma once

/// Names for the numbers of the strings about the language of the program. The texts are in languages/.
namespace nesk::Message {

constexpr int CommandLanguage = 35015;

// The dialog.
constexpr int LanguageTitle = 35200;
constexpr int LanguageLabel = 35201;
constexpr int LanguageNote = 35202;
constexpr int LanguageMissing = 35203;  // %0% file
constexpr int LanguageNotSaved = 35204; // %0% the error
constexpr int LanguageCodePage = 35206; // %0% the present code page, %1% that of the chosen language

// The access keys of the two buttons below a picture, whose captions are SelectLabel and DeleteLabel.
constexpr int PictureButtonKeys = 35205;

} // namespace nesk::Message
