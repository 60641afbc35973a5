#pragma once

#include "base/NeskError.h"

#include <gtest/gtest.h>
#include <optional>

namespace nesk::testing {

/// Returns the error that a call throws; fails the test if it throws none.
template <typename Call>
NeskError ErrorOf(Call call) {
    try {
        call();
    } catch (const NeskError& error) {
        return error;
    }
    ADD_FAILURE() << "no error was raised";
    return NeskError(0, "", 0);
}

} // namespace nesk::testing
