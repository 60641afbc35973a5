#include "settings/FormSelectUser.h"
#include "base/Messages.h"

namespace nesk {

namespace {

constexpr std::int32_t HelpTopic = 33008;

} // namespace

FormSelectUser::FormSelectUser(wxWindow* parent)
    : FormSelectFromList(parent, "FormSelectUser", Message::UserTitle, HelpTopic, "Users", Message::UserEmpty,
                         Message::UserAddFirst) {}

} // namespace nesk
