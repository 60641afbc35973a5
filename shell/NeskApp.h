#pragma once

#include <wx/app.h>

namespace nesk {

/// The application: starts the program and shows its messages.
class NeskApp : public wxApp {
public:
    bool OnInit() override;
    int OnExit() override;
    bool OnExceptionInMainLoop() override;
    wxLayoutDirection GetLayoutDirection() const override;
};

} // namespace nesk
