#include "editing/SavePlace.h"

#include "base/FileErrors.h"
#include "base/Messages.h"
#include "base/NeskError.h"
#include "editing/SamePlace.h"
#include "platform/ErrorCode.h"
#include "platform/FileSystem.h"
#include "platform/StationFolder.h"
#include "settings/NeskRegistry.h"
#include "shell/modStringRes.h"

#include <cstdint>

namespace nesk::SavePlace {

using modStringRes::FormatResString;
using modStringRes::LoadResString;

namespace {

// Message numbers of the advice for a folder that cannot be reached.
struct Advice {
    int stationGone;
    int stationClosed;
    int rootGone;
    int rootClosed;
};
constexpr Advice ToSave{Message::StationGone, Message::StationClosed, Message::RootGone, Message::RootClosed};
// The start page shows the same texts.
constexpr Advice ToOpen{Message::StartNoStationText, Message::StartStationClosedText,
                        Message::StartRootGoneText, Message::StartRootClosedText};

// The reason why the root folder cannot be reached.
NeskError Unreachable(const std::string& root, const Advice& advice) {
    const std::string source = "SavePlace.Target";
    const auto missing = [&](int message, const std::string& folder) {
        return NeskError(RuntimeError::PathNotFound, source, message, {folder});
    };
    const auto denied = [&](int message, const std::string& folder) {
        return NeskError(RuntimeError::PermissionDenied, source, message, {folder});
    };
    // When the station is missing, none of its folders exists.
    const std::string station = platform::StationFolderName();
    switch (platform::LookUpStationFolder(station)) {
    case platform::StationFolderState::Missing: return missing(advice.stationGone, station);
    case platform::StationFolderState::Denied: return denied(advice.stationClosed, station);
    case platform::StationFolderState::NotApplicable:
    case platform::StationFolderState::Usable:
    case platform::StationFolderState::Empty: break;
    }
    std::uint32_t attributes = 0;
    const platform::ErrorCode result = platform::StationFiles().Attributes(root, attributes);
    return result == platform::ErrorCode::AccessDenied ? denied(advice.rootClosed, root)
                                                       : missing(advice.rootGone, root);
}

// The menu path of the settings when it differs from the menu's own path; otherwise "".
std::string OtherPlace(const MenuEditor& editor, const NeskRegistry& settings) {
    const std::string path = settings.MenuPath();
    const bool isOther =
        editor.IsOpen() && !path.empty() && !editor.Place().empty() && !IsSamePlace(path, editor.Place());
    return isOther ? path : "";
}

std::string MenuFileOf(const NeskRegistry& settings, const Advice& advice) {
    if (settings.NeskRoot.empty())
        throw NeskError(RuntimeError::PathNotFound, "SavePlace.Target", Message::NoMenuRoot);
    std::string path = settings.MenuFile();
    if (path.empty()) throw Unreachable(settings.NeskRoot, advice);
    return path;
}

} // namespace

std::string Target(const NeskRegistry& settings) {
    return MenuFileOf(settings, ToSave);
}

std::string Origin(const NeskRegistry& settings) {
    return MenuFileOf(settings, ToOpen);
}

std::optional<std::string> Question(const MenuEditor& editor, const std::string& path, const SavePlan& plan) {
    // A file that cannot be read can be neither compared nor backed up, whatever the user answers.
    if (const platform::ErrorCode result = plan.onDisk.Error(); result != platform::ErrorCode::Success)
        throw FileError(result, "SavePlace.Question", path);
    const std::string& copy = plan.backup.path;
    const auto other = [&](int message) {
        std::string text = FormatResString(message, editor.Place(), path, copy);
        if (editor.IsIncomplete()) text = LoadResString(Message::SaveIncompleteElsewhere) + "\n\n" + text;
        return text;
    };
    switch (plan.hazard) {
    case SaveHazard::Incomplete: return FormatResString(Message::SaveIncomplete, path, copy);
    case SaveHazard::ChangedByOther: return FormatResString(Message::SaveChanged, path, copy);
    case SaveHazard::OtherPlace: return other(Message::SaveElsewhere);
    case SaveHazard::OtherPlaceReplaces: return other(Message::SaveElsewhereReplaces);
    case SaveHazard::None: break;
    }
    return std::nullopt;
}

std::string StatusText(const MenuEditor& editor, const NeskRegistry& settings) {
    const std::string other = OtherPlace(editor, settings);
    if (other.empty()) return editor.Path();
    // A menu without a file has no path from which it was opened.
    return editor.IsNew() ? FormatResString(Message::WillBeSaved, other)
                          : FormatResString(Message::FromAndTo, editor.Path(), other);
}

std::string NewMenuText(const MenuEditor& editor, const NeskRegistry& settings) {
    if (!editor.IsNew()) return "";
    const std::string other = OtherPlace(editor, settings);
    const std::string& path = other.empty() ? editor.Place() : other;
    return path.empty() ? LoadResString(Message::NewMenuNowhere) : FormatResString(Message::NewMenuBar, path);
}

} // namespace nesk::SavePlace
