#include "shell/MessageBoxLayout.h"

#include "shell/modMessageBox.h"

namespace nesk {

namespace {

namespace Result = modMessageBox::Result;
namespace Option = modMessageBox::Option;

constexpr MessageBoxButton Ok{"OK", Result::Ok};
constexpr MessageBoxButton Cancel{"Cancel", Result::Cancel};
constexpr MessageBoxButton Abort{"Abort", Result::Abort};
constexpr MessageBoxButton Retry{"Retry", Result::Retry};
constexpr MessageBoxButton Ignore{"Ignore", Result::Ignore};
constexpr MessageBoxButton Yes{"Yes", Result::Yes};
constexpr MessageBoxButton No{"No", Result::No};

std::vector<MessageBoxButton> Buttons(int set) {
    switch (set) {
    case Option::Ok: return {Ok};
    case Option::OkCancel: return {Ok, Cancel};
    case Option::AbortRetryIgnore: return {Abort, Retry, Ignore};
    case Option::YesNoCancel: return {Yes, No, Cancel};
    case Option::YesNo: return {Yes, No};
    case Option::RetryCancel: return {Retry, Cancel};
    default: return {};
    }
}

std::string_view Icon(int icon) {
    switch (icon) {
    case Option::Critical: return "Critical";
    case Option::Question: return "Question";
    case Option::Exclamation: return "Exclamation";
    case Option::Information: return "Information";
    default: return "";
    }
}

std::int16_t DefaultButton(int choice, std::size_t count) {
    if (choice == Option::SecondDefault && count > 1) return 2;
    if (choice == Option::ThirdDefault && count >= 3) return 3;
    return 1;
}

} // namespace

std::int16_t MessageBoxLayout::EscapeCode() const {
    for (const MessageBoxButton& button : buttons)
        if (button.resultCode == Result::Cancel) return Result::Cancel;
    return buttons.size() == 1 ? buttons.front().resultCode : Result::None;
}

MessageBoxLayout LayoutOf(std::int16_t options) {
    MessageBoxLayout layout;
    layout.buttons = Buttons(options & 0xF);
    layout.icon = Icon(options & 0xF0);
    layout.defaultButton = DefaultButton(options & 0x300, layout.buttons.size());
    return layout;
}

} // namespace nesk
