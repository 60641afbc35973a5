#include "settings/FormSelectUser.h"

namespace nesk {

namespace {

constexpr int TitleText = 32048;
constexpr int EmptyText = 34426;
constexpr int AddFirstText = 34428;
constexpr std::int32_t HelpTopic = 33008;

} // namespace

FormSelectUser::FormSelectUser(wxWindow* parent)
    : FormSelectFromList(parent, "FormSelectUser", TitleText, HelpTopic, "Users", EmptyText, AddFirstText) {}

} // namespace nesk
