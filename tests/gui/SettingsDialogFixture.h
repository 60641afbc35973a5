#pragma once

#include "gui/ModalDriver.h"
#include "settings/NeskRegistry.h"
#include "shell/Startup.h"
#include "shell/modMessageBox.h"
#include "shell/modStringRes.h"
#include "unit/CoreFixture.h"

#include <functional>
#include <string>

namespace nesk::testing {

/// A fresh station in English with empty settings, and a message recorder. A message that was not announced
/// fails the test.
class SettingsDialogTest : public CoreTest {
protected:
    SettingsDialogTest() {
        Startup::InitLanguage();
        NeskRegistry::Instance() = NeskRegistry();
    }
    ~SettingsDialogTest() override { NeskRegistry::Instance() = NeskRegistry(); }
};

} // namespace nesk::testing
