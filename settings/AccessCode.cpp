#include "settings/AccessCode.h"

#include "settings/NeskRegistry.h"
#include "shell/Messages.h"
#include "shell/modMessageBox.h"
#include "shell/modStringRes.h"

namespace nesk::AccessCode {

namespace {

constexpr int CodesDiffer = 32014;

} // namespace

bool Store(const std::string& code, const std::string& repeated) {
    using modStringRes::LoadResString;
    if (code != repeated) {
        modMessageBox::ShowMessage(LoadResString(CodesDiffer), modMessageBox::Option::Information,
                                   LoadResString(Message::NoticeTitle));
        return false;
    }
    NeskRegistry& settings = NeskRegistry::Instance();
    settings.ExitKey = code;
    settings.Save();
    return true;
}

} // namespace nesk::AccessCode
