#include "widgets/UiUtilities.h"

#include "platform/DefaultFont.h"
#include "platform/UserLocale.h"
#include "shell/modUtilities.h"
#include "widgets/FormDialog.h"

#include <cstdlib>
#include <gtest/gtest.h>
#include <optional>
#include <string>

#include <wx/dialog.h>
#include <wx/font.h>
#include <wx/panel.h>
#include <wx/sizer.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

namespace nesk::testing {
namespace {

// A font with every attribute that the set-up may or must not change.
wxFont Typewriter(double points) {
    return wxFont(wxFontInfo(points).Family(wxFONTFAMILY_TELETYPE).Bold().Italic());
}

wxString DefaultFace() {
    return modUtilities::ToWx(platform::DefaultGuiFontFace());
}

TEST(UiUtilities, TheFontSetupChangesTheFaceAndRaisesSmallSizesAlone) {
    wxDialog form(nullptr, wxID_ANY, "Fonts");
    auto* panel = new wxPanel(&form);
    auto* large = new wxTextCtrl(panel, wxID_ANY, "x");
    auto* tiny = new wxStaticText(&form, wxID_ANY, "x");
    form.SetFont(Typewriter(12));
    panel->SetFont(Typewriter(12));
    large->SetFont(Typewriter(14));
    tiny->SetFont(Typewriter(6));
    ASSERT_NE(large->GetFont().GetFaceName(), DefaultFace());
    modUtilities::SetFormFont(form);
    for (const wxWindow* window : {static_cast<wxWindow*>(&form), static_cast<wxWindow*>(panel),
                                   static_cast<wxWindow*>(large), static_cast<wxWindow*>(tiny)})
        EXPECT_EQ(window->GetFont().GetFaceName(), DefaultFace());
    EXPECT_EQ(large->GetFont().GetPointSize(), 14);
    EXPECT_EQ(large->GetFont().GetWeight(), wxFONTWEIGHT_BOLD);
    EXPECT_EQ(large->GetFont().GetStyle(), wxFONTSTYLE_ITALIC);
    EXPECT_EQ(tiny->GetFont().GetPointSize(),
              modUtilities::ControlFontSize(platform::UserDefaultLocale(), 6));
}

TEST(UiUtilities, TheFontSetupLeavesPartsOfAPoint) {
    wxDialog form(nullptr, wxID_ANY, "Fonts");
    auto* label = new wxStaticText(&form, wxID_ANY, "x");
    label->SetFont(Typewriter(9.75));
    modUtilities::SetFormFont(form);
    EXPECT_NEAR(label->GetFont().GetFractionalPointSize(), 9.75, 0.01);
}

#ifdef NESK_PORTABLE_STATION
// On this station the environment names the user's locale, so a test can change it.
TEST(UiUtilities, TheSmallestSizeIsThatOfTheLocale) {
    const char* value = std::getenv("LC_ALL");
    const std::optional<std::string> before =
        value != nullptr ? std::optional<std::string>(value) : std::nullopt;
    const auto sizeOf = [](const char* locale, double points) {
        ::setenv("LC_ALL", locale, 1);
        wxDialog form(nullptr, wxID_ANY, "Fonts");
        auto* label = new wxStaticText(&form, wxID_ANY, "x");
        label->SetFont(Typewriter(points));
        modUtilities::SetFormFont(form);
        return label->GetFont().GetFractionalPointSize();
    };
    EXPECT_NEAR(sizeOf("ja_JP.UTF-8", 8), 9, 0.01);
    EXPECT_NEAR(sizeOf("ja_JP.UTF-8", 8.75), 9, 0.01);
    EXPECT_NEAR(sizeOf("ja_JP.UTF-8", 9), 9, 0.01);
    EXPECT_NEAR(sizeOf("en_US.UTF-8", 7.75), 8, 0.01);
    EXPECT_NEAR(sizeOf("en_US.UTF-8", 8), 8, 0.01);
    EXPECT_NEAR(sizeOf("en_US.UTF-8", 8.25), 8.25, 0.01);
    if (before)
        ::setenv("LC_ALL", before->c_str(), 1);
    else
        ::unsetenv("LC_ALL");
}
#endif

// A dialog with a control that has its own font.
class FontDialog final : public FormDialog {
public:
    FontDialog() : FormDialog(nullptr, "FontDialog", 34001, 0) {
        box = NewTextBox(this, "box");
        box->SetFont(Typewriter(14));
        auto* content = new wxBoxSizer(wxVERTICAL);
        content->Add(box);
        Finish(content);
    }
    void OnOK() override { Accept(); }

    wxTextCtrl* box = nullptr;
};

TEST(UiUtilities, EveryDialogSetsItsFontsUp) {
    const FontDialog dialog;
    EXPECT_EQ(dialog.box->GetFont().GetFaceName(), DefaultFace());
}

TEST(UiUtilities, TextIsSelectedOnlyWhenAskedFor) {
    wxDialog form(nullptr, wxID_ANY, "Text");
    auto* box = new wxTextCtrl(&form, wxID_ANY, "abc");
    box->SetSelection(1, 2);
    modUtilities::SelectAllText(*box, false);
    EXPECT_EQ(box->GetStringSelection(), "b");
    modUtilities::SelectAllText(*box, true);
    EXPECT_EQ(box->GetStringSelection(), "abc");
}

} // namespace
} // namespace nesk::testing
