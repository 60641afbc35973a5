#include "shell/FormMessageBox.h"
#include "shell/modMessageBox.h"

#include <gtest/gtest.h>

#include <wx/app.h>
#include <wx/evtloop.h>

namespace {

// Runs the tests inside a real event loop, so that windows behave as in the program.
class TestApp : public wxApp {
public:
    bool OnInit() override {
        SetExitOnFrameDelete(false);
        nesk::modMessageBox::SetHook(nesk::FormMessageBox::ShowInFront);
        return true;
    }

    int OnRun() override {
        wxEventLoop loop;
        const wxEventLoopActivator active(&loop);
        return RUN_ALL_TESTS();
    }
};

} // namespace

wxIMPLEMENT_APP_NO_MAIN(TestApp);

int main(int argc, char** argv) {
    ::testing::InitGoogleTest(&argc, argv);
    return wxEntry(argc, argv);
}
