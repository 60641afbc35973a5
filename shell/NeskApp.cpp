#include "shell/NeskApp.h"

#include "base/Messages.h"
#include "platform/DefaultFont.h"
#include "platform/PartInfoEditor.h"
#include "shell/FormMain.h"
#include "shell/FormMessageBox.h"
#include "shell/Startup.h"
#include "shell/modMessageBox.h"
#include "shell/modUtilities.h"
#include "widgets/UiUtilities.h"

#include <exception>

namespace nesk {

bool NeskApp::OnInit() {
    platform::PrepareFonts();
    SetAppName("neskmanager");
    modMessageBox::SetHook(FormMessageBox::ShowInFront);
    Startup::Main([this] {
        SetAppDisplayName(modUtilities::ResText(Message::ApplicationTitle));
        auto* window = new FormMain;
        SetTopWindow(window);
        window->Show();
    });
    return GetTopWindow() != nullptr;
}

int NeskApp::OnExit() {
    platform::ReleasePartInfoEditor();
    return wxApp::OnExit();
}

bool NeskApp::OnExceptionInMainLoop() {
    try {
        throw;
    } catch (const std::exception& error) {
        modUtilities::ReportError(error);
    }
    // Continue, because the open menu must not be lost.
    return true;
}

// All texts of the program run from left to right, whatever the system's language. Asking wx for the
// direction would build a table of all languages at each start.
wxLayoutDirection NeskApp::GetLayoutDirection() const {
    return wxLayout_LeftToRight;
}

} // namespace nesk
