#include "shell/StationCreation.h"

#include "base/FileErrors.h"
#include "base/Messages.h"
#include "base/NeskError.h"
#include "platform/ErrorCode.h"
#include "platform/Registry.h"
#include "platform/StationFolder.h"
#include "platform/TextEncoding.h"
#include "settings/NeskRegistry.h"
#include "settings/RegEntry.h"
#include "settings/RegistryListEditor.h"
#include "shell/Startup.h"
#include "shell/modStringRes.h"
#include "shell/modUtilities.h"

#include <memory>

namespace nesk::StationCreation {

using modStringRes::FormatResString;
using modStringRes::LoadResString;
using platform::StationFolderState;

namespace {

const std::string Source = "StationCreation";
const std::string MachineKey = "Machines\\M1";
const std::string UserKey = "Users\\U1";
const std::string Root = "C:\\Neskroot";
const std::string Slides = Root + "\\Slides";
const std::string Pictures = Root + "\\Pictures";
const std::string Parts = "C:\\Parts";

void CheckResult(platform::ErrorCode result, const std::string& folder) {
    if (result != platform::ErrorCode::Success) throw FileError(result, Source, folder);
}

// Raises the error of creating the folder. Does nothing on success.
void CheckMade(platform::ErrorCode result, const std::string& folder) {
    using platform::ErrorCode;
    switch (result) {
    case ErrorCode::AlreadyExists:
        throw NeskError(RuntimeError::FileExists, Source, Message::StationFolderNotEmpty, {folder});
    case ErrorCode::FileExists:
        throw NeskError(RuntimeError::FileExists, Source, Message::NotAFolder, {folder});
    // The parent folder is missing.
    case ErrorCode::FileNotFound:
    case ErrorCode::PathNotFound:
        throw NeskError(RuntimeError::PathNotFound, Source, Message::StationFolderNotMade, {folder});
    default: CheckResult(result, folder);
    }
}

void WriteName(const std::string& key, const std::string& name) {
    RegEntry entry;
    entry.CreateKey(key);
    entry.SetString("Name", name);
}

// Creates the settings and folders of an empty station, the same as in the example.
void FillEmptyStation() {
    for (const std::string& folder : {Root, Slides, Pictures, Parts})
        modUtilities::MakePath(folder);
    RegEntry entry;
    entry.CreateKey("Orvane\\Settings");
    entry.SetString("DefaultLanguage", std::to_string(Startup::LanguageID()));
    entry.CreateKey("Common");
    entry.SetString("RepositoryRoot", Parts);
    entry.CreateKey("Neskworks");
    entry.SetString("NeskRoot", Root);
    entry.SetString("DefaultSlideDirectory", Slides);
    entry.SetString("DefaultBitmapDirectory", Pictures);
    entry.SetString("SampleSize", "0");
    entry.SetString("HistoryMaxParts", "0");
}

// Writes the names of the machine and the user that the operator interface uses.
void WriteIdentity(const Wishes& wishes) {
    WriteName(MachineKey, modUtilities::Trim(wishes.machine));
    WriteName(UserKey, modUtilities::Trim(wishes.user));
    RegEntry entry;
    entry.CreateKey("Neskworks");
    entry.SetString("NeskMachine", MachineKey);
    entry.SetString("NeskUser", UserKey);
}

void WriteSettings(const Wishes& wishes) {
    platform::RegistryGroup group(platform::StationRegistry());
    if (!wishes.example) FillEmptyStation();
    WriteIdentity(wishes);
    CheckResult(group.End(), platform::StationRegistry().Location());
}

// The default folder of the program. When it contains a station or anything else, a numbered folder next to
// it.
std::string FreeFolder() {
    const std::string usual = platform::UsualStationFolder();
    std::string folder = usual;
    const auto isFree = [&] {
        const StationFolderState state = platform::LookUpStationFolder(folder);
        return state == StationFolderState::Missing || state == StationFolderState::Empty;
    };
    constexpr int maxTries = 100;
    for (int number = 2; number <= maxTries && !isFree(); ++number)
        folder = usual + "-" + std::to_string(number);
    return folder;
}

// The folder without leading and trailing spaces.
std::string FolderOf(const Wishes& wishes) {
    return modUtilities::Trim(wishes.folder);
}

} // namespace

Wishes Proposal(bool example) {
    return {example, FreeFolder(), LoadResString(Message::ProposedMachine),
            LoadResString(Message::ProposedUser)};
}

std::optional<Fault> Check(const Wishes& wishes) {
    const std::string folder = FolderOf(wishes);
    if (folder.empty()) return Fault{Field::Folder, LoadResString(Message::StationFolderNeeded)};
    if (platform::LookUpStationFolder(folder) == StationFolderState::Usable)
        return Fault{Field::Folder, FormatResString(Message::StationExists, folder)};
    if (const std::string problem = RegistryListEditor::NameProblem(wishes.machine); !problem.empty())
        return Fault{Field::Machine, problem};
    if (const std::string problem = RegistryListEditor::NameProblem(wishes.user); !problem.empty())
        return Fault{Field::User, problem};
    return std::nullopt;
}

void Create(const Wishes& wishes) {
    const std::string folder = FolderOf(wishes);
    try {
        std::unique_ptr<platform::NewStationFolder> station;
        CheckMade(platform::BeginStationFolder(folder, wishes.example, station), folder);
        Startup::LoadStation();
        WriteSettings(wishes);
        CheckMade(station->Finish(), folder);
    } catch (...) {
        // The former station is already back in use here.
        Startup::LoadStation();
        throw;
    }
    Startup::LoadStation();
}

void Open(const std::string& folder) {
    const platform::ErrorCode result = platform::UseStationFolder(folder);
    if (result == platform::ErrorCode::InvalidName)
        throw NeskError(RuntimeError::PathNotFound, Source, Message::NotAStation, {folder});
    CheckResult(result, folder);
    Startup::LoadStation();
}

} // namespace nesk::StationCreation
