#include "shell/Startup.h"

#include "base/Messages.h"
#include "base/NeskError.h"
#include "base/modConvert.h"
#include "platform/ErrorCode.h"
#include "platform/ErrorMode.h"
#include "platform/Registry.h"
#include "platform/TextEncoding.h"
#include "settings/NeskRegistry.h"
#include "settings/RegEntry.h"
#include "shell/modHelp.h"
#include "shell/modMessageBox.h"
#include "shell/modStringRes.h"
#include "shell/modUtilities.h"

#include <string>

namespace nesk::Startup {

namespace {

constexpr int DefaultLanguageID = 1033;
constexpr const char* HelpBaseName = "OV";

struct State {
    std::string unusableLanguage; // a value that is not a language identifier
};

State& TheState() {
    static State state;
    return state;
}

std::string StoredLanguage() {
    try {
        RegEntry settings;
        settings.OpenKey("Orvane\\Settings");
        return settings.GetString("DefaultLanguage");
    } catch (const NeskError&) {
        return "";
    }
}

// The message number for a registry that cannot be used; 0 when it can be used. A key that does not exist yet
// is not an error.
int StoreMessage(platform::ErrorCode result) {
    using platform::ErrorCode;
    switch (result) {
    case ErrorCode::Success:
    case ErrorCode::FileNotFound: return 0;
    case ErrorCode::BadDatabase:
    case ErrorCode::RegistryCorrupt: return Message::StoreDamaged;
    case ErrorCode::Busy: return Message::StoreInUse;
    case ErrorCode::AccessDenied: return Message::StoreDenied;
    default: return Message::StoreNotOpened;
    }
}

void Warn(const std::string& text) {
    modMessageBox::ShowMessage(text, modMessageBox::Option::Exclamation);
}

} // namespace

int LanguageID() {
    return modStringRes::LanguageID();
}

void InitLanguage() {
    State& state = TheState();
    state = {};
    int languageId = DefaultLanguageID;
    if (const std::string stored = StoredLanguage(); !stored.empty()) {
        try {
            languageId = modConvert::CLng(stored);
        } catch (const NeskError&) {
            state.unusableLanguage = stored;
        }
    }
    platform::SelectCodePage(languageId);
    modStringRes::InitStringRes(languageId);
}

void LoadStation() {
    InitLanguage();
    modHelp::SetHelpFile(LanguageID(), HelpBaseName);
    NeskRegistry::Instance() = NeskRegistry();
    NeskRegistry::Instance().Load();
}

void ReportProblems() {
    RegEntry probe;
    probe.TestKey("Neskworks");
    if (const int message = StoreMessage(probe.LastResult()); message != 0)
        Warn(modStringRes::FormatResString(message, platform::StationRegistry().Location(),
                                           Number(probe.LastResult())));
    if (!TheState().unusableLanguage.empty())
        Warn(modStringRes::FormatResString(Message::LanguageNotANumber, TheState().unusableLanguage));
}

void Main(const std::function<void()>& showMainWindow) {
    platform::SuppressSystemBoxes();
    try {
        LoadStation();
        showMainWindow();
        ReportProblems();
    } catch (const std::exception& error) {
        modUtilities::ReportError(error);
    }
}

} // namespace nesk::Startup
