#include "gui/GuiFixture.h"

#include "shell/FormMenuTree.h"

#include <gtk/gtk.h>

namespace nesk::testing {
namespace {

// Sets the font that the user chose for all programs, and restores it afterwards.
class SystemFont {
public:
    explicit SystemFont(const char* font) {
        g_object_get(gtk_settings_get_default(), "gtk-font-name", &m_before, nullptr);
        g_object_set(gtk_settings_get_default(), "gtk-font-name", font, nullptr);
    }
    ~SystemFont() {
        g_object_set(gtk_settings_get_default(), "gtk-font-name", m_before, nullptr);
        g_free(m_before);
    }
    SystemFont(const SystemFont&) = delete;
    SystemFont& operator=(const SystemFont&) = delete;

private:
    gchar* m_before = nullptr;
};

class FormMainFontTest : public MainWindowTest {};

TEST_F(FormMainFontTest, AFontThatIsTooSmallIsRaised) {
    const SystemFont small("Sans 5");
    OpenWindow();
    EXPECT_GE(window->tvMain->Window().GetFont().GetPointSize(), 8);
    EXPECT_GE(window->sbMain->GetFont().GetPointSize(), 8);
}

} // namespace
} // namespace nesk::testing
