#include "settings/OptionsModel.h"

#include "base/Messages.h"
#include "base/NeskError.h"
#include "base/modConvert.h"
#include "settings/NeskRegistry.h"
#include "settings/RegEntry.h"
#include "shell/FieldMessage.h"
#include "shell/modStringRes.h"
#include "shell/modUtilities.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace nesk::OptionsModel {

namespace {

using modUtilities::Trim;

constexpr double MaxPartsLimit = 999;

// A box with a check of its own, and the text of its label.
struct CheckedBox {
    Field field;
    int label;
    std::string OptionsFields::*text;
    int reason; // message number of the reason; 0 when the reason must be determined
};
constexpr CheckedBox Folders[] = {{Field::Root, Message::OptionsRoot, &OptionsFields::root, 0},
                                  {Field::Slides, Message::OptionsSlides, &OptionsFields::slides, 0},
                                  {Field::Bitmap, Message::OptionsBitmap, &OptionsFields::bitmap, 0}};
constexpr CheckedBox Names[] = {
    {Field::Machine, Message::OptionsMachine, &OptionsFields::machine, Message::OptionsNoMachine},
    {Field::User, Message::OptionsUser, &OptionsFields::user, Message::OptionsNoUser}};

struct PrinterField {
    std::string NeskRegistry::*setting;
    std::string platform::PrinterValues::*value;
};
constexpr PrinterField PrinterFields[] = {
    {&NeskRegistry::PrinterDevice, &platform::PrinterValues::device},
    {&NeskRegistry::PrinterDriver, &platform::PrinterValues::driver},
    {&NeskRegistry::PrinterOrientation, &platform::PrinterValues::orientation},
    {&NeskRegistry::PrinterPaperSize, &platform::PrinterValues::paperSize},
    {&NeskRegistry::PrinterPaperBin, &platform::PrinterValues::paperBin},
    {&NeskRegistry::PrinterQuality, &platform::PrinterValues::quality},
    {&NeskRegistry::PrinterZoom, &platform::PrinterValues::zoom},
};

Fault FaultOf(Field field, int label, const std::string& reason) {
    return {field, FieldMessage::Text(label), std::nullopt, reason};
}

// A number as text, with the digits that a double represents reliably. Adding 0.0 turns negative zero into
// zero.
std::string NumberText(double value) {
    constexpr int digits = 15;
    std::array<char, 32> buffer{};
    const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value + 0.0,
                                      std::chars_format::general, digits);
    std::string text(buffer.data(), result.ptr);
    std::replace(text.begin(), text.end(), 'e', 'E');
    return text;
}

bool HasHistory(const OptionsFields& fields) {
    return !Trim(fields.historyDirectory).empty();
}

} // namespace

OptionsFields Load(const NeskRegistry& settings) {
    OptionsFields fields;
    fields.root = settings.NeskRoot;
    fields.historyDirectory = settings.HistoryDirectory;
    fields.historyTitle = settings.HistoryTitle;
    fields.slides = settings.DefaultSlideDirectory;
    fields.bitmap = settings.DefaultBitmapDirectory;
    fields.maxParts = std::to_string(settings.HistoryMaxParts);
    fields.sampleSize = std::to_string(settings.SampleSize);
    fields.machineKey = settings.NeskMachine;
    fields.userKey = settings.NeskUser;
    ShowName(fields.machineKey, fields.machine);
    ShowName(fields.userKey, fields.user);
    for (const auto& [setting, value] : PrinterFields)
        fields.printer.*value = settings.*setting;
    ApplyHistoryRule(fields);
    return fields;
}

void ShowName(const std::string& key, std::string& name) {
    RegEntry entry;
    if (!entry.TestKey(key)) return;
    try {
        entry.OpenKey(key);
        name = entry.GetString("Name");
    } catch (const NeskError&) {
        // The key was removed after the test.
    }
}

bool ApplyHistoryRule(OptionsFields& fields) {
    if (HasHistory(fields)) return true;
    fields.maxParts = "0";
    fields.sampleSize = "0";
    return false;
}

bool RootCanBeMade(const std::string& root) {
    const auto isLetter = [](char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); };
    const bool onDrive = root.size() > 3 && isLetter(root[0]) && root[1] == ':' && root[2] == '\\';
    const bool onShare = root.size() > 2 && root.starts_with("\\\\") && root[2] != '\\';
    if (FieldMessage::OnMissingDrive(root)) return false;
    return (onDrive || onShare) && !modUtilities::DirectoryExists(root) && !modUtilities::FileExists(root);
}

std::string StripTrailingSeparators(std::string folder) {
    folder.erase(folder.find_last_not_of('\\') + 1);
    return folder;
}

std::optional<Fault> Check(const OptionsFields& fields, Numbers& numbers) {
    for (const CheckedBox& box : Folders)
        if (!modUtilities::DirectoryExists(fields.*box.text))
            return FaultOf(box.field, box.label, FieldMessage::FolderReason(fields.*box.text));
    for (const CheckedBox& box : Names)
        if ((fields.*box.text).empty())
            return FaultOf(box.field, box.label, modStringRes::LoadResString(box.reason));
    numbers = {};
    if (!HasHistory(fields)) return std::nullopt;

    // More than half a part is rounded up to one, but a number above the maximum is not rounded down to it.
    const double maxParts = modConvert::Val(Trim(fields.maxParts));
    if (maxParts > MaxPartsLimit || maxParts < 0 || modConvert::CInt(maxParts) < 1)
        return Fault{Field::MaxParts, modStringRes::LoadResString(Message::OptionsMaxPartsRange),
                     NumberText(maxParts), ""};
    numbers.maxParts = modConvert::CInt(maxParts);

    // Zero and negative values switch sampling off. A sample of one is useless.
    const double sampleSize = modConvert::Val(Trim(fields.sampleSize));
    if (sampleSize == 1 || sampleSize > numbers.maxParts) {
        Fault fault =
            FaultOf(Field::SampleSize, Message::SampleSize,
                    modStringRes::FormatResString(Message::OptionsSampleSizeRange, numbers.maxParts));
        fault.replacement = NumberText(sampleSize);
        return fault;
    }
    numbers.sampleSize = modConvert::CInt(sampleSize);
    return std::nullopt;
}

std::string FaultTitle() {
    return FieldMessage::Title();
}

void Apply(const OptionsFields& fields, const Numbers& numbers, NeskRegistry& settings) {
    settings.NeskRoot = StripTrailingSeparators(fields.root);
    settings.HistoryDirectory = fields.historyDirectory;
    settings.HistoryTitle = fields.historyTitle;
    settings.DefaultSlideDirectory = StripTrailingSeparators(fields.slides);
    settings.DefaultBitmapDirectory = StripTrailingSeparators(fields.bitmap);
    settings.SampleSize = numbers.sampleSize;
    settings.HistoryMaxParts = numbers.maxParts;
    settings.NeskMachine = fields.machineKey;
    settings.NeskUser = fields.userKey;
    for (const auto& [setting, value] : PrinterFields)
        settings.*setting = fields.printer.*value;
}

} // namespace nesk::OptionsModel
