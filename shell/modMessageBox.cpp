#include "shell/modMessageBox.h"

#include "base/Messages.h"
#include "shell/modStringRes.h"

#include <utility>

namespace nesk::modMessageBox {

namespace {

Hook& CurrentHook() {
    static Hook hook;
    return hook;
}

} // namespace

Hook SetHook(Hook hook) {
    return std::exchange(CurrentHook(), std::move(hook));
}

std::int16_t ShowMessage(const std::string& text, std::int16_t options,
                         const std::optional<std::string>& title) {
    const Hook& hook = CurrentHook();
    if (!hook) return Result::None;
    return hook(text, options, title ? *title : modStringRes::LoadResString(Message::ApplicationTitle));
}

} // namespace nesk::modMessageBox
