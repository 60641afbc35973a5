#include "settings/FormSelectUser.h"

namespace nesk {

namespace {

constexpr int TitleText = 32048;
constexpr std::int32_t HelpTopic = 33008;

} // namespace

FormSelectUser::FormSelectUser(wxWindow* parent)
    : FormSelectFromList(parent, "FormSelectUser", TitleText, HelpTopic, "Users") {}

} // namespace nesk
