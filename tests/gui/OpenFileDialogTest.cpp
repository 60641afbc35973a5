#include "platform/OpenFileDialog.h"

#include "unit/platform/TempStation.h"
#include "widgets/UiUtilities.h"

#include <gtest/gtest.h>

#include <wx/filedlg.h>
#include <wx/modalhook.h>

namespace nesk::testing {
namespace {

// Records the properties of the system's dialog before it is shown, and cancels it.
class FileDialogWatch : public wxModalDialogHook {
public:
    FileDialogWatch() { Register(); }
    ~FileDialogWatch() override { Unregister(); }
    FileDialogWatch(const FileDialogWatch&) = delete;
    FileDialogWatch& operator=(const FileDialogWatch&) = delete;

    int shown = 0;
    long style = 0;
    wxString title;
    wxString name;
    wxString filter;

protected:
    int Enter(wxDialog* dialog) override {
        const auto* file = dynamic_cast<wxFileDialog*>(dialog);
        EXPECT_NE(file, nullptr);
        if (file == nullptr) return wxID_CANCEL;
        ++shown;
        style = file->GetWindowStyle();
        title = file->GetMessage();
        name = file->GetFilename();
        filter = file->GetWildcard();
        return wxID_CANCEL;
    }
};

TEST(OpenFileDialog, AsksForAFileThatExistsAndBeginsWithTheOneThatIsSet) {
    TempStation station;
    station.Write("C:\\Pictures\\blade.png", "");
    FileDialogWatch watch;
    EXPECT_EQ(platform::ShowOpenFileDialog(
                  nullptr, {"Choose a Picture", "C:\\Pictures", "C:\\Pictures\\blade.png", ""}),
              "");
    EXPECT_EQ(watch.shown, 1);
    EXPECT_NE(watch.style & wxFD_OPEN, 0);
    EXPECT_NE(watch.style & wxFD_FILE_MUST_EXIST, 0);
    EXPECT_EQ(watch.style & wxFD_MULTIPLE, 0);
    EXPECT_EQ(watch.title, "Choose a Picture");
    EXPECT_EQ(watch.name, "blade.png");
}

TEST(OpenFileDialog, FiltersOfferWhatWindowsWould) {
    const TempStation station;
    FileDialogWatch watch;
    platform::ShowOpenFileDialog(nullptr, {"Help", "C:\\", "", "Help files|*.chm|All files|*.*"});
#ifdef NESK_PORTABLE_STATION
    EXPECT_EQ(watch.filter, "Help files|*.[cC][hH][mM]|All files|*");
#else
    EXPECT_EQ(watch.filter, "Help files|*.chm|All files|*.*");
#endif
}

} // namespace
} // namespace nesk::testing
