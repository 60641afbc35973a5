#include "settings/FormSelectMachine.h"

namespace nesk {

namespace {

constexpr int TitleText = 32046;
constexpr int EmptyText = 34425;
constexpr int AddFirstText = 34427;
constexpr std::int32_t HelpTopic = 33006;

} // namespace

FormSelectMachine::FormSelectMachine(wxWindow* parent)
    : FormSelectFromList(parent, "FormSelectMachine", TitleText, HelpTopic, "Machines", EmptyText,
                         AddFirstText) {}

} // namespace nesk
