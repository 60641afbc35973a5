#include "settings/FormSelectMachine.h"
#include "base/Messages.h"

namespace nesk {

namespace {

constexpr std::int32_t HelpTopic = 33006;

} // namespace

FormSelectMachine::FormSelectMachine(wxWindow* parent)
    : FormSelectFromList(parent, "FormSelectMachine", Message::MachineTitle, HelpTopic, "Machines",
                         Message::MachineEmpty, Message::MachineAddFirst) {}

} // namespace nesk
