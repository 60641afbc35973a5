#pragma once

/// Names for the numbers of the strings about adding many parts. The texts are in languages/.
namespace nesk::Message {

constexpr int CommandAddParts = 35012;

// The dialog.
constexpr int AddPartsTitle = 35300;
constexpr int AddPartsTo = 35301; // %0% caption of the submenu
constexpr int AddPartsFolder = 35302;
constexpr int AddPartsBrowse = 35303;
constexpr int AddPartsRead = 35304;
constexpr int AddPartsStop = 35305;
constexpr int AddPartsPrompt = 35306;
constexpr int AddPartsReading = 35307;     // %0% number of folders, %1% number of parts
constexpr int AddPartsFound = 35308;       // %0% number of folders, %1% number of parts
constexpr int AddPartsStopped = 35309;     // %0% number of folders, %1% number of parts
constexpr int AddPartsNoFolder = 35310;    // %0% path
constexpr int AddPartsOtherFolder = 35311; // the text of the field differs from the folder that was read
constexpr int AddPartsUnreadable = 35312;  // %0% number of places, %1% the first of them
constexpr int AddPartsEnterFolder = 35313;
constexpr int AddPartsCaptions = 35315;
constexpr int AddPartsCaptionPart = 35316;
constexpr int AddPartsCaptionFolder = 35317;
constexpr int AddPartsLetters = 35318;
constexpr int AddPartsLettersUnchanged = 35319;
constexpr int AddPartsLettersUpper = 35320;
constexpr int AddPartsLettersLower = 35321;
constexpr int AddPartsSubmenus = 35322;
constexpr int AddPartsPictures = 35323;
constexpr int AddPartsPicturesHint = 35324;
constexpr int AddPartsDefaultPicture = 35325;
constexpr int AddPartsChoosePicture = 35326;
constexpr int AddPartsHistory = 35327;
constexpr int AddPartsBrowseHistory = 35328;
constexpr int AddPartsHistoryHint = 35329;
constexpr int AddPartsDefaultHint = 35330;

// The list.
constexpr int AddPartsList = 35340;
constexpr int AddPartsColumnFolder = 35341;
constexpr int AddPartsColumnCaption = 35342;
constexpr int AddPartsColumnPicture = 35343;
constexpr int AddPartsColumnExisting = 35344;
constexpr int AddPartsColumnNote = 35345;
constexpr int AddPartsFolderCount = 35346; // %0% number of chosen parts, %1% number of parts
constexpr int AddPartsIn = 35347;          // %0% caption of the submenu that has the part already
constexpr int AddPartsSubmenuUsed = 35348;
constexpr int AddPartsHistoryTitle = 35349; // %0% title
constexpr int AddPartsAll = 35350;
constexpr int AddPartsNone = 35351;
constexpr int AddPartsCount = 35352;         // %0% number of parts, %1% of submenus, %2% of new submenus
constexpr int AddPartsCountFlat = 35353;     // %0% number of parts
constexpr int AddPartsCountExisting = 35354; // %0% number of parts
constexpr int AddPartsCountProblems = 35355; // %0% number of parts
constexpr int AddPartsOK = 35356;
constexpr int AddPartsEmpty = 35357; // %0% folder

// Why a part cannot be added.
constexpr int AddPartsAtSign = 35370; // %0% path
constexpr int AddPartsNoRoom = 35371; // %0% caption of the submenu, %1% the greatest number of entries

constexpr int AddPartsNoPicture = 35372;    // %0% path
constexpr int AddPartsNoHistoryDir = 35373; // %0% path

// The name of a change.
constexpr int ChangeAddParts = 35380; // %0% number of parts

} // namespace nesk::Message
