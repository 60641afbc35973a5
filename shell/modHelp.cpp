#include "shell/modHelp.h"

#include "base/LanguageTable.h"
#include "base/Messages.h"
#include "platform/FileSystem.h"
#include "platform/HelpViewer.h"
#include "platform/TextEncoding.h"
#include "shell/modMessageBox.h"
#include "shell/modStringRes.h"
#include "shell/modUtilities.h"

namespace nesk::modHelp {

namespace {

using platform::HelpResult;

std::string& StoredHelpFile() {
    static std::string file;
    return file;
}

int MessageFor(HelpResult result) {
    switch (result) {
    case HelpResult::FileMissing: return Message::HelpFileMissing;
    case HelpResult::ViewerMissing: return Message::HelpViewerMissing;
    case HelpResult::FormatNotSupported: return Message::HelpFormat;
    case HelpResult::Shown:
    case HelpResult::Failed: break;
    }
    return Message::HelpFailed;
}

bool Show(void* owner, unsigned htmlCommand, unsigned classicCommand, std::int32_t topic) {
    const std::string& file = StoredHelpFile();
    if (file.empty()) return false;
    const auto data = static_cast<std::uint32_t>(topic);
    const HelpResult result = IsHtmlHelp() ? platform::ShowHtmlHelp(owner, file, htmlCommand, data)
                                           : platform::ShowClassicHelp(owner, file, classicCommand, data);
    if (result == HelpResult::Shown) return true;
    modMessageBox::ShowMessage(modStringRes::FormatResString(MessageFor(result), file),
                               modMessageBox::Option::Exclamation,
                               modStringRes::LoadResString(Message::HelpTitle));
    return false;
}

} // namespace

bool SetHelpFile(int languageId, const std::string& baseName) {
    const std::string programFolder = platform::ProgramFolder();
    const std::string binaryFolder = modUtilities::BinaryDirectory();
    std::string candidate;
    for (const char* extension : {".chm", ".hlp"}) {
        for (const std::string& code : {LanguageCode(languageId), std::string("ENU")}) {
            for (const std::string& folder : {programFolder, binaryFolder}) {
                candidate = modUtilities::PathJoin(folder, baseName + code + extension);
                if (!modUtilities::FileExists(candidate)) continue;
                StoredHelpFile() = candidate;
                return true;
            }
        }
    }
    StoredHelpFile() = candidate;
    return false;
}

std::string HelpFile() {
    return StoredHelpFile();
}

bool IsHtmlHelp() {
    return platform::ToUpper(StoredHelpFile()).ends_with(".CHM");
}

bool ShowHelpTopic(void* owner, std::int32_t topic) {
    return Show(owner, platform::HtmlHelpCommand::Topic, platform::ClassicHelpCommand::Topic, topic);
}

bool ShowHelpContents(void* owner) {
    return Show(owner, platform::HtmlHelpCommand::Contents, platform::ClassicHelpCommand::Index, 0);
}

} // namespace nesk::modHelp
