#pragma once

/// Names for the numbers of the strings about problems of a menu. The texts are in languages/.
namespace nesk::Message {

constexpr int CommandProblems = 35011;

// Problems. Without another explanation, %0% is the text of the field.
constexpr int ProblemNoCaption = 35110;
constexpr int ProblemDoubledCaption = 35111;
constexpr int ProblemLongCaption = 35112;
constexpr int ProblemEmptySubmenu = 35113;
constexpr int ProblemTooManyButtons = 35114; // %0% number of entries, %1% number that a screen shows
constexpr int ProblemNoProgram = 35115;
constexpr int ProblemFileMissing = 35116;
constexpr int ProblemFileUnreadable = 35117;
constexpr int ProblemNoPicture = 35118;
constexpr int ProblemPictureTooLarge = 35119;
constexpr int ProblemFolderInsteadOfFile = 35120;
constexpr int ProblemFileInsteadOfFolder = 35121;
constexpr int ProblemFolderMissing = 35122;
constexpr int ProblemFolderUnreadable = 35123;
constexpr int ProblemNoPartName = 35124;
constexpr int ProblemTopicWithoutFile = 35125; // %0% topic
constexpr int ProblemSharedTitle = 35126;      // %0% title, %1% caption of the other part, %2% its place
constexpr int ProblemNotEncodable = 35127;     // %0% character, %1% code page, %2% text
constexpr int ProblemNotDecodable = 35128;     // %0% byte, %1% code page, %2% text
constexpr int ProblemProgramIsPath = 35129;
constexpr int PartBarePath = 35148; // the same in the dialog of the part

// The pane.
constexpr int ProblemsTitle = 35100;
constexpr int ProblemsNone = 35101;
constexpr int ProblemsChecking = 35102;
constexpr int ProblemsCount = 35103;     // %0% errors, %1% warnings, %2% hints
constexpr int ProblemsOne = 35104;       // status bar
constexpr int ProblemsSeveral = 35105;   // status bar; %0% number
constexpr int ProblemsAndCounts = 35106; // %0% numbers of entries, %1% ProblemsOne or ProblemsSeveral
constexpr int SeverityHint = 35107;
constexpr int SeverityWarning = 35108;
constexpr int SeverityError = 35109;
constexpr int ProblemsSeverityColumn = 35130;
constexpr int ProblemsTextColumn = 35131;
constexpr int ProblemsGoTo = 35132;
constexpr int ProblemsFix = 35133;
constexpr int ProblemsClose = 35134;
constexpr int ProblemsWaiting = 35135; // %0% number of files

// What can be done, in the order of Fix.
constexpr int FixChooseFile = 35140;
constexpr int FixChangeFolder = 35141;
constexpr int FixClear = 35142;
constexpr int FixMakeFolder = 35143;
constexpr int FixRename = 35144;
constexpr int FixEdit = 35145;
constexpr int ChangeClearProblems = 35146; // %0% number of fields
constexpr int FolderNotMade = 35147;       // %0% error
constexpr int ProblemsWorstFirst = 35150;
constexpr int ProblemsCheckAgain = 35151;

} // namespace nesk::Message
