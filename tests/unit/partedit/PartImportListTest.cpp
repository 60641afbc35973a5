#include "partedit/PartImportList.h"

#include "editing/MenuEditor.h"
#include "unit/CoreFixture.h"

namespace nesk {
namespace {

using Clock = platform::TypeAhead::Clock;

// A folder with a folder with a part, and two parts.
class PartImportListTest : public testing::CoreTest {
protected:
    PartImportListTest() {
        editor.Open("C:\\", "C:\\none.cfg");
        PartFields fields;
        fields.programId = "@D:\\Shaft\\partinfo.ini@";
        editor.AddPart("R", "Shaft", fields);
        PartImportOptions options;
        options.historyDir = "D:\\H";
        plan.emplace(*editor.OpenMenu(), "R",
                     std::vector<FoundPart>{
                         {FoundPart::NoParent, false, "Brackets", "D:\\Brackets", "", {}},
                         {0, false, "Left", "D:\\Brackets\\Left", "", {}},
                         {1, true, "b100", "D:\\Brackets\\Left\\b100", "Bracket", {"a.bmp"}},
                         {0, true, "b200", "D:\\Brackets\\b200", "Bracket", {}},
                         {FoundPart::NoParent, true, "Shaft", "D:\\Shaft", "Shaft", {}},
                     },
                     options);
        list.Show(&*plan);
    }

    std::string Lines(int column = PartImportList::FolderColumn) const {
        std::string text;
        for (std::size_t i = 0; i < list.Count(); ++i)
            text += list.Text(i, column) + "\n";
        return text;
    }

    MenuEditor editor;
    std::optional<PartImport> plan;
    PartImportList list;
};

TEST_F(PartImportListTest, TheColumns) {
    EXPECT_EQ(Lines(), "▾ Brackets (2 of 2)\n    ▾ Left (1 of 1)\n        b100\n    b200\nShaft\n");
    EXPECT_EQ(Lines(PartImportList::CaptionColumn), "Brackets\nLeft\nBracket\nBracket\nShaft\n");
    EXPECT_EQ(Lines(PartImportList::PictureColumn), "\n\na.bmp\n\n\n");
    EXPECT_EQ(Lines(PartImportList::ExistingColumn), "\n\n\n\nin Main Menu\n");
    EXPECT_EQ(PartImportCountText(*plan),
              "Parts to add: 2. Submenus: 2, of them new: 2. Already in the menu: 1.");
    EXPECT_EQ(Lines(PartImportList::NoteColumn), "\n\n\nHistory title \"Bracket (2)\"\n\n");
}

TEST_F(PartImportListTest, FoldersCloseAndOpen) {
    EXPECT_EQ(list.Left(1), 1u);
    EXPECT_EQ(Lines(), "▾ Brackets (2 of 2)\n    ▸ Left (1 of 1)\n    b200\nShaft\n");
    EXPECT_EQ(list.Left(1), 0u) << "a closed folder leads to the one above";
    EXPECT_EQ(list.Left(0), 0u);
    EXPECT_EQ(Lines(), "▸ Brackets (2 of 2)\nShaft\n");
    EXPECT_EQ(list.RowOf(1), 4u);
    EXPECT_EQ(list.Left(0), 0u);
    EXPECT_EQ(list.Left(1), 1u);
    EXPECT_EQ(list.Right(0), 0u);
    EXPECT_EQ(list.Count(), 4u) << "what was closed in it stays closed";
    EXPECT_EQ(list.Right(0), 1u);
    EXPECT_EQ(list.Right(3), 3u);
    EXPECT_TRUE(list.Toggle(1));
    EXPECT_EQ(list.Count(), 5u);
    EXPECT_EQ(list.Left(2), 1u);
    EXPECT_FALSE(list.Toggle(2));
}

TEST_F(PartImportListTest, TypingFindsANameThatIsShown) {
    const Clock::time_point now{};
    EXPECT_EQ(list.Type("b", 0, now), 2u);
    EXPECT_TRUE(list.IsTyping(now));
    EXPECT_EQ(list.Type("2", 2, now), 3u);
    const Clock::time_point later = now + platform::TypeAhead::Pause * 2;
    EXPECT_FALSE(list.IsTyping(later));
    EXPECT_EQ(list.Type("x", 3, later), 3u);
    list.Left(0);
    EXPECT_EQ(list.Type("b", 1, later + platform::TypeAhead::Pause * 2), 0u) << "what is closed has no line";
}

TEST_F(PartImportListTest, WithoutAPlanThereAreNoLines) {
    list.Show(nullptr);
    EXPECT_EQ(list.Count(), 0u);
}

} // namespace
} // namespace nesk
