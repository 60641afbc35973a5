#pragma once

/// Names for the numbers of the strings about versions of a menu: their difference and merging them. The
/// texts are in languages/.
namespace nesk::Message {

constexpr int DifferenceNone = 35800;
constexpr int DifferenceAdded = 35801;        // %0% number
constexpr int DifferenceRemoved = 35802;      // %0% number
constexpr int DifferenceMoved = 35803;        // %0% number
constexpr int DifferenceChanged = 35804;      // %0% number
constexpr int DifferenceJoin = 35805;         // %0% and %1% parts of an enumeration
constexpr int NodeAdded = 35806;              // %0% caption
constexpr int NodeRemoved = 35807;            // %0% caption
constexpr int NodeMovedWithin = 35808;        // %0% caption
constexpr int NodeMovedFrom = 35809;          // %0% caption, %1% former submenu
constexpr int NodeChanged = 35810;            // %0% caption
constexpr int NodeMovedWithinChanged = 35811; // %0% caption
constexpr int NodeMovedFromChanged = 35812;   // %0% caption, %1% former submenu
constexpr int FieldDiffers = 35813;           // %0% field, %1% old value, %2% new value
constexpr int FieldEmpty = 35814;             // stands for an empty value
constexpr int VersionFieldCaption = 35815;    // the names of the fields, in the order of the file
constexpr int VersionFieldGraphic = 35816;
constexpr int VersionFieldPreview = 35817;
constexpr int VersionFieldHelpFile = 35818;
constexpr int VersionFieldHelpTopic = 35819;
constexpr int VersionFieldMenuType = 35820;
constexpr int VersionFieldProgram = 35821;
constexpr int VersionFieldHistoryDir = 35822;
constexpr int VersionFieldHistoryTitle = 35823;
constexpr int ConflictPlaceJoin = 35825;     // %0% path of the submenu, %1% caption
constexpr int ConflictPlaceLabel = 35826;    // what a conflict is about: where the entry is
constexpr int ConflictPresenceLabel = 35827; // whether the entry exists
constexpr int ConflictOrderLabel = 35828;    // the order of the entries of a submenu
constexpr int ConflictNestingLabel = 35829;  // which entry contains which
constexpr int ConflictRemoved = 35830;
constexpr int ConflictKept = 35831;
constexpr int ConflictKeptChanged = 35832;
constexpr int ConflictInSubmenu = 35833;    // %0% path of captions
constexpr int MergeTooManyChildren = 35835; // %0% caption, %1% greatest number

} // namespace nesk::Message
