#include "checking/Replacement.h"

#include "base/Messages.h"
#include "unit/checking/CheckingFixture.h"

namespace nesk {
namespace {

ReplaceOptions Options(const std::string& find, const std::string& replacement, bool matchCase = false) {
    return {find, replacement, TextFieldSet().set(), matchCase};
}

std::string Replaced(const std::string& text, const std::string& find, const std::string& replacement,
                     bool matchCase = false) {
    return Replacement::Replaced(text, Options(find, replacement, matchCase));
}

TEST(ReplacedTest, AllOccurrences) {
    EXPECT_EQ(Replaced("a-b-a", "a", "xy", true), "xy-b-xy");
    EXPECT_EQ(Replaced("aaa", "aa", "b", true), "ba") << "occurrences do not overlap";
    EXPECT_EQ(Replaced("abc", "b", "", true), "ac");
    EXPECT_EQ(Replaced("abc", "x", "y", true), "abc");
    EXPECT_EQ(Replaced("abc", "", "y", true), "abc");
    EXPECT_EQ(Replaced("abc", "abc", "abcabc", true), "abcabc") << "a replacement is not searched";
}

TEST(ReplacedTest, CaseMattersOnlyOnRequest) {
    EXPECT_EQ(Replaced("Lid lid LID", "lid", "x"), "x x x");
    EXPECT_EQ(Replaced("Lid lid LID", "lid", "x", true), "Lid x LID");
    EXPECT_EQ(Replaced("GEHÄUSE gehäuse", "Gehäuse", "G"), "G G");
    EXPECT_EQ(Replaced("Gehäuse", "gehause", "x"), "Gehäuse") << "accents matter";
}

TEST(ReplacedTest, LettersWhoseCasesDifferInLength) {
    // The upper case of the first letter is shorter, in bytes, than its lower case.
    EXPECT_EQ(Replaced("ⱥbc lid ⱥ", "LID", "x"), "ⱥbc x ⱥ");
    EXPECT_EQ(Replaced("xⱥy", "Ⱥ", "-"), "x-y");
    EXPECT_EQ(Replaced("xȺyȺ", "ⱥ", "-"), "x-y-");
    EXPECT_EQ(Replaced("ıı lid", "Lid", "x"), "ıı x");
}

class ReplacementTest : public testing::CheckingTest {
protected:
    std::vector<TextChange> Plan(const ReplaceOptions& options) {
        return Replacement::Plan(*editor.OpenMenu(), options);
    }

    std::optional<Replacement::Refusal> Apply(const std::vector<TextChange>& changes) {
        return Replacement::Apply(editor, changes, {Message::ChangeReplace, {"x"}});
    }
};

TEST_F(ReplacementTest, PlansEveryFieldInTheOrderOfTheTree) {
    PartFields fields;
    fields.graphic = fields.preview = fields.helpFile = fields.historyDir = fields.historyTitle = "old";
    fields.programId = "@C:\\old\\partinfo.ini@";
    Part("R", "old", fields);
    editor.SetGraphic("R", "old.bmp");
    const std::vector<TextChange> changes = Plan(Options("OLD", "new"));
    ASSERT_EQ(changes.size(), 8u);
    EXPECT_EQ(changes[0].entry, editor.OpenMenu());
    EXPECT_EQ(changes[0].field, TextField::Picture);
    EXPECT_EQ(changes[0].after, "new.bmp");
    EXPECT_EQ(changes[1].field, TextField::Caption);
    EXPECT_EQ(changes[2].field, TextField::Program);
    EXPECT_EQ(changes[2].before, "C:\\old\\partinfo.ini") << "without the signs around it";
    EXPECT_EQ(changes[2].after, "C:\\new\\partinfo.ini");
    ReplaceOptions some = Options("old", "new");
    some.fields = TextFieldSet().set(static_cast<std::size_t>(TextField::HistoryTitle));
    EXPECT_EQ(Plan(some).size(), 1u);
    EXPECT_TRUE(Plan(Options("", "new")).empty());
    EXPECT_TRUE(Plan(Options("old", "old", true)).empty()) << "nothing would change";
}

TEST_F(ReplacementTest, MakesTheChosenChangesInOneStep) {
    PartFields fields;
    fields.graphic = "old.bmp";
    fields.programId = "@C:\\old\\partinfo.ini@rest";
    fields.helpTopic = 7;
    const std::string a = Part("R", "old a", fields);
    const std::string b = Part("R", "old b", fields);
    editor.SetGraphic("R", "old.bmp");
    const std::size_t steps = editor.History().UndoNames().size();
    std::vector<TextChange> changes = Plan(Options("old", "new"));
    ASSERT_EQ(changes.size(), 7u);
    changes[2].isChosen = false; // the program of the first part
    EXPECT_FALSE(Apply(changes));
    EXPECT_EQ(editor.Find("R")->Graphic(), "new.bmp");
    EXPECT_EQ(Item(a).Caption(), "new a");
    EXPECT_EQ(Item(a).ProgramID(), "@C:\\old\\partinfo.ini@rest");
    EXPECT_EQ(Item(a).Graphic(), "new.bmp");
    EXPECT_EQ(Item(a).HelpTopic(), 7);
    EXPECT_EQ(Item(b).ProgramID(), "@C:\\new\\partinfo.ini@rest");
    ASSERT_EQ(editor.History().UndoNames().size(), steps + 1);
    EXPECT_EQ(editor.History().UndoNames(1)[0], (ChangeName{Message::ChangeReplace, {"x"}}));
    editor.Undo();
    EXPECT_EQ(editor.Find("R")->Graphic(), "old.bmp");
    EXPECT_EQ(Item(a).Caption(), "old a");
    EXPECT_EQ(Item(b).ProgramID(), "@C:\\old\\partinfo.ini@rest");
}

TEST_F(ReplacementTest, NothingChosenIsNoStep) {
    Part("R", "old");
    const std::size_t steps = editor.History().UndoNames().size();
    std::vector<TextChange> changes = Plan(Options("old", "new"));
    changes[0].isChosen = false;
    EXPECT_FALSE(Apply(changes));
    EXPECT_EQ(editor.History().UndoNames().size(), steps);
}

TEST_F(ReplacementTest, ARefusedTextChangesNothing) {
    PartFields fields;
    fields.historyTitle = "old";
    const std::string a = Part("R", "a old", fields);
    const std::string b = Part("R", "b old", fields);
    const std::vector<TextChange> changes = Plan(Options("old", "日"));
    ASSERT_EQ(changes.size(), 4u);
    const auto refusal = Apply(changes);
    ASSERT_TRUE(refusal);
    EXPECT_EQ(refusal->index, 0u);
    EXPECT_EQ(refusal->error.messageId, Message::NotEncodable);
    std::vector<TextChange> last = changes;
    last[0].after = "good";
    last[1].after = "good";
    last[2].isChosen = false;
    const auto second = Apply(last);
    ASSERT_TRUE(second);
    EXPECT_EQ(second->index, 3u);
    EXPECT_EQ(Item(a).Caption(), "a old");
    EXPECT_EQ(Item(a).HistoryTitle(), "old");
    EXPECT_EQ(Item(b).HistoryTitle(), "old");
    EXPECT_NE(editor.History().UndoNames(1)[0].textId, Message::ChangeReplace);
}

TEST_F(ReplacementTest, AProgramStaysWhatItIs) {
    PartFields part;
    part.programId = "@C:\\old\\partinfo.ini@";
    PartFields plain;
    plain.programId = "old";
    Part("R", "a", part);
    Part("R", "b", plain);
    std::vector<TextChange> changes = Plan(Options("old", "x@y"));
    ASSERT_EQ(changes.size(), 2u);
    auto refusal = Apply(changes);
    ASSERT_TRUE(refusal);
    EXPECT_EQ(refusal->index, 0u);
    EXPECT_EQ(refusal->error.messageId, Message::ReplaceAtSign);
    changes = Plan(Options("old", "@y"));
    changes[0].isChosen = false;
    refusal = Apply(changes);
    ASSERT_TRUE(refusal);
    EXPECT_EQ(refusal->index, 1u) << "a plain identifier would become a reference to a part";
    EXPECT_EQ(Item("R.1").ProgramID(), "@C:\\old\\partinfo.ini@");
    EXPECT_EQ(Item("R.2").ProgramID(), "old");
}

} // namespace
} // namespace nesk
