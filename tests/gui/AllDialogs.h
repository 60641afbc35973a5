#pragma once

#include "widgets/FormDialog.h"

#include <functional>
#include <iosfwd>
#include <memory>
#include <vector>

namespace nesk::testing {

/// A dialog of the program, for tests of all of them.
struct DialogCase {
    const char* name;
    int helpTopic; ///< 0 for a dialog without help
    std::function<std::unique_ptr<FormDialog>()> make;
    const char* variant = "";
};

/// The name of a case in the output of the test framework.
void PrintTo(const DialogCase& dialog, std::ostream* text);

/// A case for each dialog. Some need a station with a machine and a user.
std::vector<DialogCase> AllDialogs();

} // namespace nesk::testing
