#include "settings/AccessCode.h"

#include "base/Messages.h"
#include "settings/NeskRegistry.h"
#include "shell/modMessageBox.h"
#include "shell/modStringRes.h"

namespace nesk::AccessCode {

std::string StateText() {
    return modStringRes::LoadResString(NeskRegistry::Instance().ExitKey.empty() ? Message::AccessNoCode
                                                                                : Message::AccessCodeSet);
}

bool Store(const std::string& code, const std::string& repeated) {
    using modStringRes::LoadResString;
    if (code != repeated) {
        modMessageBox::ShowMessage(LoadResString(Message::CodesDiffer), modMessageBox::Option::Information,
                                   LoadResString(Message::NoticeTitle));
        return false;
    }
    NeskRegistry& settings = NeskRegistry::Instance();
    settings.ExitKey = code;
    settings.Save();
    return true;
}

} // namespace nesk::AccessCode
