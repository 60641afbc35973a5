#pragma once

/// Names for the numbers of the strings that the program uses. The texts are in languages/.
namespace nesk::Message {

// Shared by several windows.
constexpr int RegKeyNotOpened = 32001; // %0% path
constexpr int RegLevelNotCreated = 32002;
constexpr int RegValueNotWritten = 32003; // %0% value name
constexpr int Ok = 32004;
constexpr int Cancel = 32005;
constexpr int Help = 32008;
constexpr int MenuNotAMenuFile = 32009;  // %0% file
constexpr int MenuUnknownBlock = 32010;  // %0% line, %1% block type
constexpr int MenuTextAfterEnd = 32011;  // %0% line
constexpr int MenuBlockNotEnded = 34490; // %0% line
constexpr int MenuNotABlock = 34491;     // %0% line
constexpr int RootStays = 34492;
constexpr int MoveIntoItself = 34493;   // %0% caption
constexpr int MoveIntoPart = 34494;     // %0% caption
constexpr int TextNotEncodable = 34495; // %0% line, %1% character, %2% code page
constexpr int NoEntriesInText = 34496;
constexpr int NoMemoryToEdit = 34498;
constexpr int TooManyEntries = 34497; // %0% caption, %1% its number of children, %2% number of entries to add

// Names of changes, shown by Undo and Redo. %0% caption
constexpr int ChangeAdd = 34500;
constexpr int ChangeRemove = 34501;
constexpr int ChangeMove = 34502;
constexpr int ChangeCaption = 34503;
constexpr int ChangeGraphic = 34504;
constexpr int ChangePart = 34505;
constexpr int ChangeCut = 34509;
constexpr int ChangePaste = 34510;
constexpr int ChangeCopy = 34511;
constexpr int ChangeSort = 34512;

// The same for several entries. %0% number of entries
constexpr int ChangeRemoveSeveral = 34513;
constexpr int ChangeMoveSeveral = 34514;
constexpr int ChangeCutSeveral = 34515;
constexpr int ChangePasteSeveral = 34516;
constexpr int ChangeCopySeveral = 34517;
constexpr int ChangePartSeveral = 34518;

constexpr int BlockSyntax = 32013; // %0% line
constexpr int NoticeTitle = 32015;
constexpr int SaveChanges = 32016;
constexpr int ConfirmTitle = 32017;
constexpr int NewPartCaption = 32018;
constexpr int NewSubmenuCaption = 32019;
constexpr int RootNotRemovable = 32020;
constexpr int ConfirmRemove = 32021; // %0% "" or RemovedBelow, %1% caption
constexpr int WindowCaption = 32049;
constexpr int MenuFileMissing = 32053; // %0% file

constexpr int ApplicationTitle = 34001;

// Menu bar.
constexpr int MenuFile = 34010;
constexpr int FileOpen = 34011;
constexpr int FileSave = 34012;
constexpr int FileClose = 34013;
constexpr int FileExit = 34014;
constexpr int MenuEdit = 34520;
constexpr int Undo = 34521;
constexpr int Redo = 34522;
constexpr int UndoHistory = 34523;
constexpr int Cut = 34524;
constexpr int Copy = 34525;
constexpr int Paste = 34526;
constexpr int PasteInside = 34527;
constexpr int Duplicate = 34528;
constexpr int SelectAll = 34529;
constexpr int MoveTo = 34530;
constexpr int SortSubmenusFirst = 34531;
constexpr int SortMixed = 34532;
constexpr int UndoChange = 34600; // %0% name of the change
constexpr int RedoChange = 34601; // %0% name of the change
constexpr int MenuMenu = 34020;
constexpr int AddPart = 34021;
constexpr int AddSubmenu = 34022;
constexpr int MoveUp = 34023;
constexpr int MoveDown = 34024;
constexpr int Edit = 34025;
constexpr int Remove = 34026;
constexpr int Rename = 34027;
constexpr int MoveOut = 34028;
constexpr int MoveIn = 34029;
constexpr int MenuView = 34800;
constexpr int ViewToolBar = 34801;
constexpr int ViewStatusBar = 34802;
constexpr int ExpandBelow = 34803;
constexpr int CollapseAll = 34804;
constexpr int MenuSettings = 34030;
constexpr int SettingsAccess = 34031;
constexpr int SettingsOptions = 34032;
constexpr int MenuHelp = 34040;
constexpr int HelpContents = 34041;
constexpr int HelpWindow = 34042;
/// Offset from a command's number to the number of its explanation in the status bar.
constexpr int StatusHelpOffset = 40;

// Run-time errors.
constexpr int Overflow = 34100;
constexpr int TypeMismatch = 34101; // %0% text
constexpr int DivisionByZero = 34102;
constexpr int SubscriptOutOfRange = 34103; // %0% index
constexpr int FileNotFound = 34104;        // %0% path, also in the other file errors
constexpr int PathNotFound = 34105;
constexpr int PermissionDenied = 34106;
constexpr int DiskFull = 34107;
constexpr int FileInUse = 34108;
constexpr int DeviceError = 34109; // %1% system code
constexpr int InvalidName = 34110;
constexpr int FileExists = 34111;
constexpr int FileDamaged = 34112;          // %1% system code
constexpr int SettingsNotStored = 34113;    // %0% error
constexpr int OutOfMemory = 34114;          // %0% path
constexpr int NoMemoryToSave = 34115;       // %0% path
constexpr int HistoryNotRegistered = 34116; // %0% error, %1% what is wrong with the settings store

// Error report.
constexpr int ErrorPlain = 34120;    // %0% number, %1% text
constexpr int ErrorWithLine = 34121; // %2% line, %3% file
constexpr int ErrorWithFile = 34122; // %2% file
constexpr int ErrorTitle = 34123;
constexpr int ErrorUnexpected = 34124; // %0% text

// Model.
constexpr int NotImplementedAtThisTime = 34130;
constexpr int NotEncodable = 34131; // %0% text, %1% character, %2% code page
constexpr int LineBreakInText = 34132;
constexpr int TooManyChildren = 34133;
constexpr int CounterOverflow = 34134; // %0% line
constexpr int NoMenuRoot = 34135;
constexpr int RegNotEncodable = 34136; // %0% value name, %1% character, %2% code page
constexpr int NoEndingZero = 34137;
constexpr int SettingsNotSaved = 34138; // %0% error, %1% what is wrong with the settings store
constexpr int LineTooLong = 34139;      // %0% largest length in MB

// Opening and saving.
constexpr int OpenFailed = 34140; // %0% error
constexpr int SaveFailed = 34141; // %0% error
constexpr int IncompleteBar = 34142;
constexpr int SaveIncomplete = 34143; // %0% file, %1% name of the copy
constexpr int SaveChanged = 34144;    // %0% file, %1% name of the copy
constexpr int SaveQuestionTitle = 34145;
constexpr int DirtyTitle = 34146;    // %0% window caption
constexpr int BackupFailed = 34147;  // %0% path, %1% reason
constexpr int CommandFailed = 34148; // %0% error

// Editing.
constexpr int RemovedBelow = 34310; // %0% number of entries
constexpr int TreeName = 34311;

// Start-up.
constexpr int StoreNotOpened = 34150; // %0% place, %1% code, also in the next three
constexpr int StoreDamaged = 34151;
constexpr int StoreInUse = 34152;
constexpr int StoreDenied = 34153;
constexpr int LanguageNotANumber = 34154; // %0% text

// Help.
constexpr int HelpFileMissing = 34160; // %0% file, also in the next three
constexpr int HelpViewerMissing = 34161;
constexpr int HelpFormat = 34162;
constexpr int HelpFailed = 34163;
constexpr int HelpTitle = 34164;

// Menu bar: further commands. Their explanations are 34390 and 34391.
constexpr int FileSaveAs = 34350;
constexpr int HelpAbout = 34351;

// Where a menu is saved.
constexpr int SaveElsewhere = 34352;         // %0% original location, %1% where it will be saved
constexpr int SaveElsewhereReplaces = 34353; // %2% name of the copy
constexpr int SaveIncompleteElsewhere = 34354;
constexpr int FromAndTo = 34355;   // %0% original location, %1% where it will be saved
constexpr int WillBeSaved = 34356; // %0% location
constexpr int NewMenuBar = 34357;  // %0% file
constexpr int NewMenuNowhere = 34358;
constexpr int RootGone = 34359; // %0% folder, also in the next three
constexpr int RootClosed = 34360;
constexpr int StationGone = 34361;
constexpr int StationClosed = 34362;
constexpr int SaveAsTitle = 34363;
constexpr int MenuFileFilter = 34364;
constexpr int SaveAsFailed = 34365;    // %0% error
constexpr int OpenNotPossible = 34366; // %0% error

// Shown while no menu is open.
constexpr int StartNothingOpen = 34370;
constexpr int StartMenuText = 34371;   // %0% file
constexpr int StartNoMenuText = 34372; // %0% file
constexpr int StartNoRoot = 34373;
constexpr int StartNoRootText = 34374;
constexpr int StartRootGone = 34375;
constexpr int StartRootGoneText = 34376; // %0% folder
constexpr int StartRootClosed = 34377;
constexpr int StartRootClosedText = 34378; // %0% folder
constexpr int StartNoStation = 34379;
constexpr int StartNoStationText = 34380;    // %0% folder
constexpr int StartEmptyStationText = 34381; // %0% folder
constexpr int StartStationClosed = 34382;
constexpr int StartStationClosedText = 34383; // %0% folder
constexpr int StartStationLine = 34384;       // %0% folder
constexpr int StepOpenMenu = 34385;
constexpr int StepChooseRoot = 34386;
constexpr int StepCreateStation = 34387;
constexpr int StepOpenStation = 34388;

// A new station.
constexpr int ProposedMachine = 34400;
constexpr int ProposedUser = 34401;
constexpr int StationFolderNeeded = 34402;
constexpr int StationExists = 34403; // %0% folder, also in the next two
constexpr int StationFolderNotEmpty = 34404;
constexpr int NotAStation = 34405;
constexpr int OpenStationPrompt = 34406;
constexpr int StationFailed = 34407;        // %0% error
constexpr int StationFolderNotMade = 34506; // %0% folder

// Machines and users.
constexpr int NameNeeded = 34420;
constexpr int NameNotStorable = 34421;
constexpr int NameTooLong = 34422;

// Why a folder was refused.
constexpr int NoFolderNamed = 34450;
constexpr int FolderMissing = 34451; // %0% folder
constexpr int NotAFolder = 34452;    // %0% path
constexpr int DriveMissing = 34507;  // %0% drive, for example "Q:"

// About.
constexpr int AboutTitle = 34440;
constexpr int AboutProgram = 34441; // %0% version
constexpr int AboutLicence = 34442;
constexpr int AboutLibraries = 34443;
constexpr int AboutLibrary = 34444; // %0% name, %1% version, %2% licence

// FormEditMenu.
constexpr int SubmenuTitle = 32041;
constexpr int DeleteLabel = 32065;
constexpr int SelectLabel = 32066;

// FormSelectMenuPicture.
constexpr int MenuPictureFrame = 32056;
constexpr int PictureTitle = 32081;

// DriveChoice.
constexpr int DriveNotReady = 34202; // %0% drive

// FormBrowse.
constexpr int BrowseNoChoice = 32025;
constexpr int BrowseTitle = 32034;
constexpr int NewFolder = 32085;
constexpr int BrowseDrive = 34203;
constexpr int BrowseFolders = 34204;

// FormEditPart.
constexpr int PartTitle = 32029; // %0% caption
constexpr int HistoryFolder = 32037;
constexpr int PartMenuPicture = 32042;
constexpr int PartInformation = 32043;
constexpr int PartProgram = 32044;
constexpr int PartHelpFrame = 32055;
constexpr int PartPreviewFrame = 32057;
constexpr int HelpFile = 32075;
constexpr int HelpTopic = 32077;
constexpr int HistoryLabel = 32083;
constexpr int HistoryTitle = 32092;
constexpr int PartSelectPart = 34300;
constexpr int PartEditorMissing = 34301; // %0% name of the editor
constexpr int PartEditorFailed = 34302;  // %0% name of the editor
constexpr int PartTopicLabel = 34473;
constexpr int PartTitleLabel = 34474;
constexpr int PartDefaultHistory = 34475;
constexpr int PartPictureKeys = 34476;

// FormFolder.
constexpr int FolderName = 34477;

// FormSelectDrive.
constexpr int SelectDrive = 32068;
constexpr int Drive = 32070;
constexpr int DriveRepository = 32071;
constexpr int DriveTitle = 32072;

// FormSelectHelpFile.
constexpr int HelpFileChooseTitle = 32076;
constexpr int HelpFileFilter = 32078;
constexpr int HelpFileTitle = 32079;
constexpr int BrowseLabel = 34200;

// FormSelectHistory.
constexpr int HistoryBrowsePrompt = 32022;
constexpr int HistoryDialogTitle = 32091;
constexpr int HistoryUseDefault = 32093;
constexpr int HistoryNoHistory = 32094;
constexpr int HistoryNoTitle = 34456;

// FormSelectPart.
constexpr int PartTreeTitle = 32047;
constexpr int PartTreeRoot = 32069;
constexpr int PartTreeProgress = 34201;   // %0% number of folders
constexpr int PartTreeUnreadable = 34205; // %0% number, %1% description, %2% path, %3% attributes
constexpr int PartTreeNext = 34206;
constexpr int PartTreeSkipAll = 34207;
constexpr int PartTreeUnreadableList = 34208; // %0% number of them

// PartReference.
constexpr int PartName = 32027; // %0% name
constexpr int NoPart = 32028;
constexpr int PartNoFile = 34470;
constexpr int PartFileMissing = 34471; // %0% path
constexpr int PartNoName = 34472;      // %0% path

// AccessCode.
constexpr int CodesDiffer = 32014;
constexpr int AccessCodeSet = 34461;
constexpr int AccessNoCode = 34462;

// FormAccess.
constexpr int AccessTitle = 32030;
constexpr int AccessCode = 32031;
constexpr int AccessRepeat = 32032;
constexpr int AccessShow = 34250;

// FormDirectories.
constexpr int OptionsRootPrompt = 32023;
constexpr int OptionsSlidesPrompt = 32024;
constexpr int OptionsTitle = 32035;
constexpr int OptionsRoot = 32036;
constexpr int OptionsSlides = 32038;
constexpr int OptionsMachine = 32039;
constexpr int OptionsUser = 32040;
constexpr int OptionsBitmapPrompt = 32073;
constexpr int OptionsBitmap = 32074;
constexpr int PrinterLabel = 32082;
constexpr int OptionsMaxParts = 32087;
constexpr int SampleSize = 32088;
constexpr int OptionsBrowse = 34251;
constexpr int OptionsChoose = 34252;
constexpr int OptionsCreateRootQuestion = 34432; // %0% folder

// FormListName.
constexpr int ListNameTitle = 34429;
constexpr int ListName = 34430;

// FormSelectFromList.
constexpr int ListAdd = 34423;
constexpr int ListRemove = 34424;
constexpr int ListRemoveQuestion = 34431; // %0% display name

// FormSelectMachine.
constexpr int MachineTitle = 32046;
constexpr int MachineEmpty = 34425;
constexpr int MachineAddFirst = 34427;

// FormSelectUser.
constexpr int UserTitle = 32048;
constexpr int UserEmpty = 34426;
constexpr int UserAddFirst = 34428;

// OptionsModel.
constexpr int OptionsMaxPartsRange = 32086;
constexpr int OptionsNoMachine = 34453;
constexpr int OptionsNoUser = 34454;
constexpr int OptionsSampleSizeRange = 34455; // %0% largest size

// PrinterChoice.
constexpr int Printer = 34457; // %0% printer
constexpr int PrinterNoPrinter = 34458;
constexpr int PrinterMissing = 34459;         // %0% printer
constexpr int PrinterReplaceQuestion = 34460; // %0% printer stored, %1% printer chosen
constexpr int PrinterPaper = 34508;

// FieldMessage.
constexpr int CheckField = 32067;

// FormCreateStation.
constexpr int StationTitle = 34410;
constexpr int StationContent = 34411;
constexpr int StationExample = 34412;
constexpr int StationEmpty = 34413;
constexpr int StationFolder = 34414;
constexpr int StationBrowse = 34415;
constexpr int StationMachine = 34416;
constexpr int StationUser = 34417;
constexpr int StationUsual = 34418; // %0% folder
constexpr int StationFolderPrompt = 34419;

// FormPicture.
constexpr int PictureChoosePictureTitle = 32026;

// Edits of several entries.
constexpr int ClipboardBusy = 34621;
constexpr int ClipboardHasNoText = 34622;
constexpr int PasteFailed = 34623;          // %0% error
constexpr int PasteBadText = 34646;         // %0% error, %1% line
constexpr int ConfirmRemoveSeveral = 34624; // %0% number of entries, %1% "" or RemovedBelowSeveral
constexpr int RemovedBelowSeveral = 34625;  // %0% number of entries below them
constexpr int DropFailed = 34626;           // %0% error
constexpr int MoveToTitle = 34627;
constexpr int MoveToTree = 34628;
constexpr int MoveToConfirm = 34629;
constexpr int PartsTitle = 34630; // %0% number of parts
constexpr int PartsPicture = 34631;
constexpr int PartsHistory = 34632;
constexpr int PartsSame = 34633; // %0% value
constexpr int PartsDifferent = 34634;
constexpr int PartsNone = 34635;
constexpr int PartsNoPicture = 34637;

// What a drop does; %0% caption of the target, %1% what is dropped.
constexpr int DropMovesInto = 34640;
constexpr int DropCopiesInto = 34641;
constexpr int DropMovesBefore = 34642;
constexpr int DropCopiesBefore = 34643;
constexpr int DropMovesAfter = 34644;
constexpr int DropCopiesAfter = 34645;
constexpr int DropOfOne = 34647;     // %0% caption
constexpr int DropOfSeveral = 34648; // %0% number of entries
constexpr int DropFromOther = 34649;

// Numbers of entries in the status bar.
constexpr int CountsSubmenu = 34860;  // %0% 1
constexpr int CountsSubmenus = 34861; // %0% number
constexpr int CountsPart = 34862;     // %0% 1
constexpr int CountsParts = 34863;    // %0% number
constexpr int CountsEntries = 34864;  // %0% submenus, %1% parts
constexpr int CountsSelected = 34865; // %0% CountsEntries, %1% number

// Undo history.
constexpr int UndoHistoryTitle = 34602;
constexpr int UndoHistoryList = 34603;
constexpr int UndoHistoryCount = 34604; // %0% number of changes
constexpr int UndoHistoryUndo = 34605;

// Edit menu: finding and replacing.
constexpr int Find = 34700;
constexpr int FindNext = 34701;
constexpr int FindPrevious = 34702;
constexpr int ShowMatches = 34703;
constexpr int Replace = 34704;
constexpr int ChangeFolder = 34705;

// Find bar.
constexpr int FindBarText = 34760;
constexpr int FindBarNumber = 34761; // %0% number of the entry, %1% number of entries
constexpr int FindBarCount = 34762;  // %0% number of entries
constexpr int FindBarNothing = 34763;
constexpr int FindBarSearching = 34764; // %0% number of entries
constexpr int FindBarField = 34765;     // %0% and %1% as FindBarNumber, %2% name of the field, %3% its text
constexpr int FindBarMatchesOnly = 34766;
constexpr int FindBarClose = 34767;
constexpr int FindBarNext = 34753;
constexpr int FindBarPrevious = 34754;
constexpr int FindPartName = 34758;
constexpr int FindSubmenu = 34768;
constexpr int MoveSubmenu = 34757;

// Fields of an entry.
constexpr int FieldCaption = 34769;
constexpr int FieldProgram = 34770;
constexpr int FieldPicture = 34771;
constexpr int FieldPreview = 34772;
constexpr int FieldHelpFile = 34773;
constexpr int FieldHistoryDir = 34774;
constexpr int FieldHistoryTitle = 34775;

// Replace.
constexpr int ReplaceTitle = 34776;
constexpr int ReplaceFind = 34777;
constexpr int ReplaceWith = 34778;
constexpr int ReplaceFields = 34779;
constexpr int ReplaceMatchCase = 34780;
constexpr int ReplaceChanges = 34781;
constexpr int ReplaceEntry = 34782;
constexpr int ReplaceField = 34783;
constexpr int ReplaceBefore = 34784;
constexpr int ReplaceAfter = 34785;
constexpr int EntrySubmenu = 34759;
constexpr int ReplaceAll = 34786;
constexpr int ReplaceNone = 34787;
constexpr int ReplaceCount = 34788; // %0% chosen, %1% all
constexpr int ReplaceOK = 34789;
constexpr int ReplaceRefused = 34790; // %0% entry, %1% field, %2% text, %3% reason
constexpr int ReplaceAtSign = 34791;  // %0% program
constexpr int ChangeReplace = 34792;  // %0% text

// Change folder.
constexpr int FolderTitle = 34793;
constexpr int FolderList = 34794;
constexpr int FolderColumn = 34795;
constexpr int FolderPaths = 34796;
constexpr int FolderState = 34797;
constexpr int FolderPlace = 34798;
constexpr int FolderBrowse = 34799;
constexpr int FolderExists = 34710;
constexpr int FolderIsMissing = 34711;
constexpr int FolderChecking = 34712;
constexpr int FolderCount = 34713; // %0% number of paths
constexpr int FolderOK = 34714;
constexpr int FolderNoPlace = 34715;
constexpr int FolderNotFull = 34716;
constexpr int FolderBadCharacter = 34717;
constexpr int FolderSamePlace = 34718;
constexpr int FolderPrompt = 34719;
constexpr int FolderPlaceMissing = 34720; // %0% folder
constexpr int ChangeFolderOf = 34750;     // %0% folder
constexpr int FolderNone = 34751;

} // namespace nesk::Message
