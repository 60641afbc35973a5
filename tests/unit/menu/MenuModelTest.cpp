// Random sequences of edits, undo and redo, saves and loads.

#include "unit/menu/MenuModelFixture.h"

namespace nesk::testing {
namespace {

class MenuModelTest : public MenuModelFixture {};

TEST_F(MenuModelTest, EditsWithoutLoads) {
    m_withLoads = false;
    RunSequences(WesternTexts(), 1, 1200);
}

TEST_F(MenuModelTest, MoreEditsWithoutLoads) {
    m_withLoads = false;
    RunSequences(WesternTexts(), 2001, 1200);
}

TEST_F(MenuModelTest, EditsWithLoads) {
    RunSequences(WesternTexts(), 10000, 300);
}

TEST_F(MenuModelTest, MoreEditsWithLoads) {
    RunSequences(WesternTexts(), 11000, 300);
}

// Menus as other editors write them: part buttons with children, and other types.
TEST_F(MenuModelTest, EditsOfAMenuFromElsewhere) {
    m_startFile = "; made by hand\n"
                  "block menu\n"
                  "  caption = Station\n"
                  "  block submenu one\n"
                  "    menutype=Part Program\n"
                  "    block submenu\n"
                  "      menutype=pocket\n"
                  "      helptopic = &H10\n"
                  "    end\n"
                  "  end\n"
                  "  block submenu\n"
                  "    unknown=x\n"
                  "    menutype=Other\n"
                  "    graphic=a.bmp\n"
                  "  end\n"
                  "end\n";
    m_startModel.SetCaption("R", "Station");
    m_startModel.Add("R", "", "");
    m_startModel.Add("R.1", "", "pocket");
    m_startModel.Find("R.1.1").entry->fields.helpTopic = 16;
    m_startModel.Find("R.1").entry->menuType = "Part Program";
    m_startModel.Add("R", "", "Other");
    m_startModel.SetGraphic("R.2", "a.bmp");
    RunSequences(WesternTexts(), 12000, 300);
}

#ifdef NESK_PORTABLE_STATION
TEST_F(MenuModelTest, EditsWithBytesThatStandForNothing) {
    RunSequences(GreekTexts(), 13000, 300);
}

TEST_F(MenuModelTest, EditsWithCharactersOfTwoBytes) {
    RunSequences(JapaneseTexts(), 14000, 300);
}
#endif

} // namespace
} // namespace nesk::testing
