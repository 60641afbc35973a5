// The minimal program with a window, for comparison.

#include <wx/app.h>
#include <wx/frame.h>

class EmptyApp final : public wxApp {
public:
    bool OnInit() override {
        auto* frame = new wxFrame(nullptr, wxID_ANY, "Empty", wxDefaultPosition, wxSize(800, 600));
        frame->Show();
        return true;
    }
};

wxIMPLEMENT_APP(EmptyApp);
