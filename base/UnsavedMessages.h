#pragma once

/// Numbers of texts about unsaved changes, changes by others and versions.
namespace nesk::Message {

// The offer of unsaved changes.
constexpr int UnsavedTitle = 35900;
constexpr int UnsavedQuestion = 35901;
constexpr int UnsavedQuestionOne = 35902;
constexpr int UnsavedRestore = 35903;
constexpr int UnsavedDiscard = 35904;
constexpr int UnsavedLook = 35905;
constexpr int UnsavedLater = 35906;
constexpr int UnsavedOwner = 35907;
constexpr int UnsavedOtherFile = 35908;
constexpr int UnsavedDamaged = 35909;
constexpr int UnsavedDiscardConfirm = 35910;
constexpr int UnsavedFailed = 35911;
constexpr int UnsavedNotKept = 35912;
constexpr int UnsavedRestored = 35913;
constexpr int UnsavedNoBase = 35914;
constexpr int UnsavedUnreadable = 35915;
constexpr int UnsavedNoBaseKept = 35916;
constexpr int UnsavedDamagedKept = 35917;
constexpr int UnsavedOwnerName = 35918;

// The window that shows a difference.
constexpr int DifferenceTitle = 35920;
constexpr int DifferenceClose = 35921;
constexpr int DifferenceTree = 35922;
constexpr int DifferenceRestoreSelected = 35923;

// The window that merges.
constexpr int MergeTitle = 35930;
constexpr int MergeOK = 35931;
constexpr int OtherUndoConfirm = 35955;
constexpr int OtherWaiting = 35956;
constexpr int UnsavedHeading = 35957; // %0% time
constexpr int OtherGoneSave = 35958;
constexpr int MergeNotNow = 35932;
constexpr int MergeHeading = 35933;
constexpr int MergeNoConflicts = 35934;
constexpr int MergeConflicts = 35935;
constexpr int MergeEntry = 35936;
constexpr int MergePlace = 35937;
constexpr int MergeWhat = 35938;
constexpr int MergeOurs = 35939;
constexpr int MergeTheirs = 35940;
constexpr int MergeChosen = 35941;
constexpr int MergeMine = 35942;
constexpr int MergeFile = 35943;
constexpr int MergeAllMine = 35944;
constexpr int MergeAllTheirs = 35945;
constexpr int MergeLook = 35946;
constexpr int MergeUndo = 35947;
constexpr int MergeHint = 35948;
constexpr int MergeLookHeading = 35949;

// Changes by others.
constexpr int OtherOpen = 35950;
constexpr int OtherLoaded = 35951;
constexpr int OtherUnreadable = 35952;
constexpr int OtherLoadUndo = 35953;
constexpr int OtherGone = 35954;

// Versions.
constexpr int CommandVersions = 35014;
constexpr int VersionsTitle = 35961;
constexpr int VersionsList = 35962;
constexpr int VersionsDate = 35963;
constexpr int VersionsSize = 35964;
constexpr int VersionsEntries = 35965;
constexpr int VersionsChanges = 35966;
constexpr int VersionsCompare = 35967;
constexpr int VersionsRestore = 35968;
constexpr int VersionsNone = 35969;
constexpr int VersionsHint = 35970;
constexpr int VersionsUnreadable = 35971;
constexpr int VersionsUndo = 35972;
constexpr int VersionsUndoSome = 35973;
constexpr int VersionsNotKept = 35974;
constexpr int VersionsReading = 35975;
constexpr int VersionsPresent = 35976;
constexpr int VersionsSame = 35977;
constexpr int VersionsBytes = 35978;
constexpr int VersionsCompareTitle = 35979;
constexpr int VersionsNotRead = 35980;
constexpr int VersionsUnknown = 35981;
} // namespace nesk::Message
