#pragma once

#include "base/NeskError.h"

#include <gtest/gtest.h>
#include <optional>

namespace nesk::testing {

/// The error that a call raises; fails the test when it raises none.
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
