#include "editing/EntryMark.h"

#include "editing/MenuEditor.h"
#include "menu/MenuItem.h"
#include "unit/CoreFixture.h"

namespace nesk {
namespace {

class EntryMarkTest : public testing::CoreTest {
protected:
    EntryMarkTest() { m_editor.Open("C:\\", "C:\\none.cfg"); }

    EntryMark MarkOf(const std::string& id) const {
        return EntryMarkOf(dynamic_cast<const MenuItem&>(*m_editor.Find(id)));
    }

    MenuEditor m_editor;
};

TEST_F(EntryMarkTest, APartWithoutAProgramIsMarked) {
    const std::string id = m_editor.AddPart("R", "part");
    EXPECT_EQ(MarkOf(id), EntryMark::NoProgram);
    PartFields fields;
    fields.programId = "@C:\\Parts\\cover\\partinfo.ini@";
    ASSERT_TRUE(m_editor.SetPart(id, fields));
    EXPECT_EQ(MarkOf(id), EntryMark::None);
    ASSERT_TRUE(m_editor.Undo());
    EXPECT_EQ(MarkOf(id), EntryMark::NoProgram);
}

TEST_F(EntryMarkTest, ASubmenuNeedsNoProgram) {
    EXPECT_EQ(MarkOf(m_editor.AddSubmenu("R", "submenu")), EntryMark::None);
}

} // namespace
} // namespace nesk
