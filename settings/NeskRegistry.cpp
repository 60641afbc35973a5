#include "settings/NeskRegistry.h"

#include "base/FileErrors.h"
#include "base/Messages.h"
#include "base/NeskError.h"
#include "base/modConvert.h"
#include "platform/ErrorCode.h"
#include "platform/Registry.h"
#include "settings/RegEntry.h"
#include "shell/modUtilities.h"

#include <functional>
#include <tuple>
#include <utility>

namespace nesk {

namespace {

const std::string ProductKey = "Neskworks";
constexpr std::int16_t DefaultHistoryMaxParts = 20;

struct TextSetting {
    const char* name;
    std::string NeskRegistry::*field;
};

// The texts before, between and after the two numbers, in the order in which they are written.
constexpr TextSetting Directories[] = {
    {"NeskRoot", &NeskRegistry::NeskRoot},
    {"DefaultSlideDirectory", &NeskRegistry::DefaultSlideDirectory},
    {"DefaultBitmapDirectory", &NeskRegistry::DefaultBitmapDirectory},
    {"HistoryDirectory", &NeskRegistry::HistoryDirectory},
    {"HistoryTitle", &NeskRegistry::HistoryTitle},
};
constexpr TextSetting Identity[] = {
    {"NeskMachine", &NeskRegistry::NeskMachine},
    {"NeskUser", &NeskRegistry::NeskUser},
    {"ExitKey", &NeskRegistry::ExitKey},
};
constexpr TextSetting Printer[] = {
    {"PrinterDevice", &NeskRegistry::PrinterDevice},
    {"PrinterDriver", &NeskRegistry::PrinterDriver},
    {"PrinterOrientation", &NeskRegistry::PrinterOrientation},
    {"PrinterPaperSize", &NeskRegistry::PrinterPaperSize},
    {"PrinterPaperBin", &NeskRegistry::PrinterPaperBin},
    {"PrinterQuality", &NeskRegistry::PrinterQuality},
    {"PrinterZoom", &NeskRegistry::PrinterZoom},
};

// Runs one step of a load. A step that fails leaves its field unchanged.
void Guarded(const std::function<void()>& step) {
    try {
        step();
    } catch (const NeskError&) {
    }
}

// True when the result is an answer about the value and not an error of the registry itself. A text that is
// too long to be read exists, so that result is an answer.
bool IsAnswer(platform::ErrorCode result) {
    using platform::ErrorCode;
    return result == ErrorCode::Success || result == ErrorCode::FileNotFound || result == ErrorCode::MoreData;
}

// 0 for a text that is not a number. A number that is too large still raises an error.
std::int16_t NumberOrZero(const std::string& text) {
    try {
        return modConvert::CInt(text);
    } catch (const NeskError& error) {
        if (error.number != RuntimeError::TypeMismatch) throw;
        return 0;
    }
}

// Adds the cause and the location of the registry to the error of a save, because the name of the setting
// alone does not help the user. An error that the registry did not cause is returned unchanged.
NeskError WithReason(const NeskError& error, platform::ErrorCode result) {
    if (result == platform::ErrorCode::Success) return error;
    const NeskError reason = FileError(result, error.source, platform::StationRegistry().Location());
    return {error.number,
            error.source,
            Message::SettingsNotSaved,
            {modUtilities::MessageText(error), modUtilities::MessageText(reason)}};
}

// The error when the registry accepted all values but could not store them at the end.
NeskError NotStored(platform::ErrorCode result) {
    const NeskError reason = FileError(result, "NeskRegistry.Save", platform::StationRegistry().Location());
    return {5002, reason.source, Message::SettingsNotStored, {modUtilities::MessageText(reason)}};
}

} // namespace

NeskRegistry& NeskRegistry::Instance() {
    static NeskRegistry record;
    return record;
}

void NeskRegistry::Load() {
    // Reads the values of one save, even when another program is saving.
    const platform::RegistryReading reading(platform::StationRegistry());
    RegEntry entry;
    m_unread.clear();
    Guarded([&] { entry.OpenKey(ProductKey); });
    const bool isOpen = entry.LastResult() == platform::ErrorCode::Success;
    const bool answers = IsAnswer(entry.LastResult());
    // Without an open key no value is read, so the last result does not belong to a value.
    const auto isUnread = [&] { return isOpen ? !IsAnswer(entry.LastResult()) : !answers; };
    const auto readTexts = [&](const auto& settings) {
        for (const TextSetting& setting : settings) {
            Guarded([&] { this->*setting.field = entry.GetString(setting.name); });
            if (isUnread()) m_unread.push_back({setting.name, setting.field, this->*setting.field});
        }
    };
    readTexts(Directories);
    // This tests for a subkey, but HistoryMaxParts is a value. So the saved number is not read back, and the
    // number of parts always starts at its default. This is kept on purpose: an update must not change the
    // initial value of 20.
    Guarded([&] {
        HistoryMaxParts = entry.TestKey(ProductKey + "\\HistoryMaxParts")
                              ? NumberOrZero(entry.GetString("HistoryMaxParts"))
                              : DefaultHistoryMaxParts;
    });
    ReadSampleSize(entry);
    m_sampleSizeUnread = isUnread();
    m_unreadSampleSize = SampleSize;
    readTexts(Identity);
    readTexts(Printer);
}

void NeskRegistry::ReadSampleSize(RegEntry& entry) {
    Guarded([&] { SampleSize = modConvert::CInt(entry.GetString("SampleSize")); });
}

void NeskRegistry::ReadSkippedSettings(RegEntry& entry) {
    const auto requireValue = [&](const char* name) {
        if (!IsAnswer(entry.LastResult()))
            throw NeskError(5002, "NeskRegistry.Save", Message::RegValueNotWritten, {name});
    };
    for (const Unread& text : m_unread) {
        if (this->*text.field != text.value) continue;
        std::string stored = entry.GetString(text.name);
        requireValue(text.name);
        this->*text.field = std::move(stored);
    }
    m_unread.clear();
    if (m_sampleSizeUnread && SampleSize == m_unreadSampleSize) {
        ReadSampleSize(entry);
        requireValue("SampleSize");
    }
    m_sampleSizeUnread = false;
}

void NeskRegistry::Save() {
    // The writes are grouped, so that a program that is killed leaves the settings of a single save.
    platform::RegistryGroup group(platform::StationRegistry());
    RegEntry entry;
    try {
        const auto writeTexts = [&](const auto& settings) {
            for (const TextSetting& setting : settings)
                entry.SetString(setting.name, this->*setting.field);
        };
        entry.CreateKey(ProductKey);
        ReadSkippedSettings(entry);
        writeTexts(Directories);
        entry.SetString("HistoryMaxParts", std::to_string(HistoryMaxParts));
        entry.SetString("SampleSize", std::to_string(SampleSize));
        writeTexts(Identity);
        writeTexts(Printer);
        if (const platform::ErrorCode result = group.End(); result != platform::ErrorCode::Success)
            throw NotStored(result);
    } catch (const NeskError& error) {
        const NeskError report = WithReason(error, entry.LastResult());
        // The user may look at the message for a long time while other programs wait for the registry, so the
        // group ends before it. The message is about the first error; an error of the end adds nothing.
        std::ignore = group.End();
        modUtilities::ReportError(report);
    }
}

std::string NeskRegistry::MenuFile() const {
    return modUtilities::DirectoryExists(NeskRoot) ? MenuPath() : "";
}

std::string NeskRegistry::MenuPath() const {
    return NeskRoot.empty() ? "" : NeskRoot + "\\menu.cfg";
}

} // namespace nesk
