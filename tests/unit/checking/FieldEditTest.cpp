#include "checking/FieldEdit.h"

#include "unit/checking/CheckingFixture.h"

namespace nesk {
namespace {

class FieldEditTest : public testing::CheckingTest {
protected:
    std::size_t Steps() const { return editor.History().UndoNames().size(); }
};

TEST_F(FieldEditTest, EachFieldOfAPart) {
    const std::string id = Part("R", "P");
    for (const TextFieldInfo& info : TextFields()) {
        const std::size_t before = Steps();
        EXPECT_TRUE(FieldEdit::Has(Item(id), info.field));
        const std::string text = "@text " + std::to_string(static_cast<int>(info.field));
        EXPECT_TRUE(FieldEdit::Set(editor, {id}, info.field, text));
        EXPECT_EQ(FieldEdit::Stored(Item(id), info.field), text);
        EXPECT_EQ(Steps(), before + 1);
        EXPECT_FALSE(FieldEdit::Set(editor, {id}, info.field, text));
        EXPECT_EQ(Steps(), before + 1);
    }
    EXPECT_TRUE(FieldEdit::SetHelpTopic(editor, {id}, 7));
    EXPECT_EQ(Item(id).HelpTopic(), 7);
    EXPECT_FALSE(FieldEdit::SetHelpTopic(editor, {id}, 7));
}

TEST_F(FieldEditTest, ASubmenuHasACaptionAndAPicture) {
    const std::string id = editor.AddSubmenu("R", "Folder");
    EXPECT_TRUE(FieldEdit::Set(editor, {id}, TextField::Picture, "C:\\a.bmp"));
    EXPECT_TRUE(FieldEdit::Set(editor, {"R"}, TextField::Caption, "Menu"));
    for (const TextField field : {TextField::Program, TextField::Preview, TextField::HelpFile,
                                  TextField::HistoryDir, TextField::HistoryTitle}) {
        EXPECT_FALSE(FieldEdit::Has(Item(id), field));
        EXPECT_FALSE(FieldEdit::Set(editor, {id, "R"}, field, "x"));
    }
    EXPECT_FALSE(FieldEdit::SetHelpTopic(editor, {id}, 1));
    EXPECT_EQ(FieldEdit::Stored(Item(id), TextField::Picture), "C:\\a.bmp");
    EXPECT_EQ(editor.OpenMenu()->Caption(), "Menu");
}

TEST_F(FieldEditTest, SeveralEntriesAreOneStep) {
    const EntryIds ids{Part("R", "A"), editor.AddSubmenu("R", "Folder"), Part("R", "B")};
    for (const TextField field : {TextField::Picture, TextField::HistoryDir}) {
        const std::size_t before = Steps();
        EXPECT_TRUE(FieldEdit::Set(editor, ids, field, "C:\\x"));
        EXPECT_EQ(Steps(), before + 1);
        EXPECT_EQ(FieldEdit::Stored(Item(ids[0]), field), "C:\\x");
        EXPECT_EQ(FieldEdit::Stored(Item(ids[2]), field), "C:\\x");
        editor.Undo();
        EXPECT_EQ(FieldEdit::Stored(Item(ids[0]), field), "");
        EXPECT_EQ(FieldEdit::Stored(Item(ids[2]), field), "");
    }
}

TEST_F(FieldEditTest, ATextThatCannotBeStoredChangesNothing) {
    const EntryIds ids{Part("R", "A"), Part("R", "B")};
    const std::size_t before = Steps();
    for (const TextField field : {TextField::Caption, TextField::Picture, TextField::HistoryTitle})
        EXPECT_THROW(FieldEdit::Set(editor, ids, field, "two\nlines"), NeskError);
    EXPECT_EQ(Steps(), before);
    EXPECT_EQ(Item(ids[0]).Caption(), "A");
    EXPECT_EQ(Item(ids[0]).Graphic(), "");
}

} // namespace
} // namespace nesk
