#pragma once

/// Names for the numbers of the strings about files dropped from the system's file manager. The texts are in
/// languages/.
namespace nesk::Message {

// What a drop does. %0% caption of the entry, %1% file or folder.
constexpr int FileDropSetsPicture = 35700;
constexpr int FileDropAddsParts = 35701;
constexpr int FileDropAddsSeveral = 35702;     // %0% caption of the entry, %1% number of folders
constexpr int FileDropSetsThisPicture = 35703; // %0% file
constexpr int FileDropLooking = 35704;         // %0% file

// Why a drop is refused. Without another explanation, %0% is a file or folder.
constexpr int FileDropNoFiles = 35710;
constexpr int FileDropSeveralPictures = 35711;
constexpr int FileDropMixed = 35712;
constexpr int FileDropOther = 35713;
constexpr int FileDropNoPicture = 35714;
constexpr int FileDropTooLarge = 35715;
constexpr int FileDropMissing = 35716;
constexpr int FileDropUnreadable = 35717;
constexpr int FileDropNotOnPart = 35718; // %0% caption of the part
constexpr int FileDropPictureOnly = 35719;
constexpr int FileDropNoEntry = 35720;
constexpr int FileDropFailed = 35721; // %0% reason
constexpr int FileDropNoField = 35722;

} // namespace nesk::Message
