#include "partedit/PartImport.h"

#include "base/AddPartsMessages.h"
#include "base/Messages.h"
#include "editing/MenuEditor.h"
#include "menu/MenuItem.h"
#include "menu/MenuItemCollection.h"
#include "settings/WindowMemory.h"
#include "unit/CoreFixture.h"

#include <algorithm>

namespace nesk {
namespace {

using platform::LetterCase;

class PartImportTest : public testing::CoreTest {
protected:
    PartImportTest() { editor.Open("C:\\Neskroot", "C:\\Neskroot\\none.cfg"); }

    // Adds a folder to what was found and returns its index.
    std::size_t Folder(const std::string& name, std::size_t parent = FoundPart::NoParent) {
        found.push_back({parent, false, name, PathIn(parent, name), "", {}});
        return found.size() - 1;
    }

    std::size_t Part(const std::string& name, std::size_t parent = FoundPart::NoParent,
                     const std::string& partName = "", std::vector<std::string> files = {}) {
        found.push_back(
            {parent, true, name, PathIn(parent, name), partName.empty() ? name : partName, std::move(files)});
        return found.size() - 1;
    }

    std::string PathIn(std::size_t parent, const std::string& name) const {
        return (parent == FoundPart::NoParent ? "D:\\Parts" : found[parent].path) + "\\" + name;
    }

    PartImport Plan(const PartImportOptions& options = {}, const std::string& target = "R") {
        return {*editor.OpenMenu(), target, found, options};
    }

    // The captions below an entry, one a line, indented by level; submenus end in "/".
    std::string Tree(const std::string& id = "R") const {
        std::string text;
        Append(text, *editor.Find(id), 0);
        return text;
    }

    const MenuItem& Item(const std::string& id) const {
        return dynamic_cast<const MenuItem&>(*editor.Find(id));
    }

    MenuEditor editor;
    std::vector<FoundPart> found;

private:
    static void Append(std::string& text, const MenuEntry& entry, std::size_t level) {
        for (int i = 1; i <= entry.ChildCount(); ++i) {
            const MenuItem& child = entry.Children()->Item(i);
            text.append(level, ' ').append(child.Caption()).append(child.IsPart() ? "\n" : "/\n");
            Append(text, child, level + 1);
        }
    }
};

TEST_F(PartImportTest, FoldersBecomeSubmenusAndPartsButtons) {
    const std::size_t brackets = Folder("Brackets");
    Part("b100", Folder("Left", brackets), "Bracket, left");
    Part("b200", brackets, "Bracket, right");
    Part("shaft", FoundPart::NoParent, "Shaft");
    const PartImport plan = Plan();
    EXPECT_EQ(plan.Count(), (PartImport::Counts{3, 2, 2, 0, 0}));
    const EntryIds added = plan.Apply(editor);
    EXPECT_EQ(Tree(), "Brackets/\n Left/\n  Bracket, left\n Bracket, right\nShaft\n");
    EXPECT_EQ(added, (EntryIds{"R.1", "R.1.1", "R.1.1.1", "R.1.2", "R.2"}));
    EXPECT_EQ(Item("R.1.1.1").ProgramID(), "@D:\\Parts\\Brackets\\Left\\b100\\partinfo.ini@");
    EXPECT_EQ(Item("R.1.1.1").MenuType(), "Part Program");
    EXPECT_EQ(Item("R.1").MenuType(), "Menu");
    EXPECT_EQ(Item("R.1.1.1").HistoryDir(), "");
    EXPECT_EQ(Item("R.1.1.1").HistoryTitle(), "") << "without a directory the history of the options counts";
}

TEST_F(PartImportTest, AddingIsOneStep) {
    const std::size_t folder = Folder("Brackets");
    for (int i = 0; i < 5; ++i)
        Part("part " + std::to_string(i), folder);
    editor.AddPart("R", "before");
    const std::string before = Tree();
    Plan().Apply(editor);
    const std::string after = Tree();
    EXPECT_EQ(editor.History().UndoNames(1).front(), (ChangeName{Message::ChangeAddParts, {"5"}}));
    editor.Undo();
    EXPECT_EQ(Tree(), before);
    editor.Redo();
    EXPECT_EQ(Tree(), after);
    EXPECT_EQ(editor.LastIds().size(), 6u);
    EXPECT_EQ(Item("R.2.3").ProgramID(), "@D:\\Parts\\Brackets\\part 2\\partinfo.ini@");
}

TEST_F(PartImportTest, OnePartIsNamedByItsCaption) {
    Part("b100", FoundPart::NoParent, "Bracket");
    Plan().Apply(editor);
    EXPECT_EQ(editor.History().UndoNames(1).front(), (ChangeName{Message::ChangeAdd, {"Bracket"}}));
}

TEST_F(PartImportTest, NothingTickedAddsNothing) {
    Part("b100", Folder("Brackets"));
    PartImport plan = Plan();
    plan.TickAll(false);
    EXPECT_EQ(plan.Count(), PartImport::Counts{});
    EXPECT_TRUE(plan.Apply(editor).empty());
    EXPECT_EQ(Tree(), "");
    EXPECT_FALSE(editor.IsDirty());
}

TEST_F(PartImportTest, WithoutSubmenusAllPartsAreTogether) {
    Part("b100", Folder("Left", Folder("Brackets")));
    Part("shaft");
    editor.AddSubmenu("R", "Target");
    PartImportOptions options;
    options.submenus = false;
    const PartImport plan = Plan(options, "R.1");
    EXPECT_EQ(plan.Count(), (PartImport::Counts{2, 0, 0, 0, 0}));
    EXPECT_EQ(plan.Rows()[0].caption, "") << "a folder becomes nothing";
    plan.Apply(editor);
    EXPECT_EQ(Tree(), "Target/\n b100\n shaft\n");
}

TEST_F(PartImportTest, CaptionsOfFoldersInUpperOrLowerCase) {
    Part("b100", Folder("Brackets"), "Gehäuse");
    PartImportOptions options;
    options.letters = LetterCase::Upper;
    PartImport plan = Plan(options);
    EXPECT_EQ(plan.Rows()[0].caption, "BRACKETS");
    EXPECT_EQ(plan.Rows()[1].caption, "GEHÄUSE");
    options.letters = LetterCase::Lower;
    options.caption = PartImportOptions::Caption::Folder;
    plan.SetOptions(options);
    EXPECT_EQ(plan.Rows()[0].caption, "brackets");
    EXPECT_EQ(plan.Rows()[1].caption, "b100");
    options.letters = LetterCase::Unchanged;
    plan.SetOptions(options);
    EXPECT_EQ(plan.Rows()[0].caption, "Brackets");
}

TEST_F(PartImportTest, WhatTheMenuHasIsNotTicked) {
    const std::size_t folder = Folder("Brackets");
    Part("b100", folder);
    Part("b200", folder);
    PartFields fields;
    fields.programId = "@d:/PARTS\\\\brackets\\B100\\PARTINFO.ini@";
    editor.AddSubmenu("R", "Elsewhere");
    editor.AddPart("R.1", "The same", fields);
    PartImport plan = Plan();
    EXPECT_EQ(plan.Rows()[1].existing, editor.Find("R.1.1"));
    EXPECT_FALSE(plan.Rows()[1].isTicked);
    EXPECT_EQ(plan.Rows()[2].existing, nullptr);
    EXPECT_TRUE(plan.Rows()[2].isTicked);
    EXPECT_TRUE(plan.Rows()[0].isTicked) << "all that is new below it";
    EXPECT_EQ(plan.Rows()[0].tickedParts, 1u);
    EXPECT_EQ(plan.Rows()[0].parts, 2u);
    EXPECT_EQ(plan.Count(), (PartImport::Counts{1, 1, 1, 1, 0}));
    plan.TickAll(true);
    EXPECT_EQ(plan.Count().parts, 1u);
    plan.Tick(1, true); // the user may add it again
    EXPECT_EQ(plan.Count().parts, 2u);
}

TEST_F(PartImportTest, AFolderTicksAllBelowIt) {
    const std::size_t folder = Folder("Brackets");
    Part("b100", Folder("Left", folder));
    Part("b200", folder);
    Part("shaft");
    PartImport plan = Plan();
    plan.Tick(0, false);
    EXPECT_EQ(plan.Count().parts, 1u);
    EXPECT_FALSE(plan.Rows()[0].isTicked);
    plan.Tick(2, true);
    EXPECT_FALSE(plan.Rows()[0].isTicked);
    EXPECT_TRUE(plan.Rows()[1].isTicked);
    EXPECT_EQ(plan.Rows()[0].tickedParts, 1u);
    plan.Tick(0, true);
    EXPECT_TRUE(plan.Rows()[0].isTicked);
    EXPECT_EQ(plan.Count().parts, 3u);
}

TEST_F(PartImportTest, AFolderWithNothingNewTicksWhatTheMenuHas) {
    Part("b100", Folder("Brackets"));
    PartFields fields;
    fields.programId = "@D:\\Parts\\Brackets\\b100\\partinfo.ini@";
    editor.AddPart("R", "The same", fields);
    PartImport plan = Plan();
    EXPECT_FALSE(plan.Rows()[0].isTicked);
    plan.Tick(0, true);
    EXPECT_TRUE(plan.Rows()[0].isTicked);
    EXPECT_TRUE(plan.Rows()[1].isTicked);
    plan.Tick(0, false);
    EXPECT_EQ(plan.Count().parts, 0u);
}

TEST_F(PartImportTest, ASubmenuWithTheSameCaptionIsUsed) {
    Part("b100", Folder("Left", Folder("Brackets")));
    editor.AddSubmenu("R", "Target");
    editor.AddSubmenu("R", "Brackets"); // beside the target
    editor.AddSubmenu("R.1", "Other");
    editor.AddSubmenu("R.1", "BRACKETS");
    editor.AddPart("R.1.2", "Left"); // a part, not a submenu
    const PartImport plan = Plan({}, "R.1");
    EXPECT_EQ(plan.Rows()[0].existing, editor.Find("R.1.2"));
    EXPECT_EQ(plan.Rows()[1].existing, nullptr);
    EXPECT_EQ(plan.Count(), (PartImport::Counts{1, 2, 1, 0, 0}));
    const EntryIds added = plan.Apply(editor);
    EXPECT_EQ(Tree(), "Target/\n Other/\n BRACKETS/\n  Left\n  Left/\n   b100\nBrackets/\n");
    EXPECT_EQ(added, (EntryIds{"R.1.2.2", "R.1.2.2.1"})) << "what was there was not added";
}

TEST_F(PartImportTest, ThePictureIsTheFirstFileThatMatches) {
    Part("b100", FoundPart::NoParent, "", {"a.jpg", "b.BMP", "c.bmp", "partinfo.ini"});
    Part("b200", FoundPart::NoParent, "", {"partinfo.ini"});
    PartImportOptions options;
    options.defaultPicture = " C:\\default.bmp ";
    PartImport plan = Plan(options);
    const auto graphic = [&](std::size_t row) { return plan.Rows()[row].fields.graphic; };
    EXPECT_EQ(graphic(0), "D:\\Parts\\b100\\a.jpg");
    EXPECT_EQ(graphic(1), "C:\\default.bmp");
    options.pictures = "*.bmp";
    plan.SetOptions(options);
    EXPECT_EQ(graphic(0), "D:\\Parts\\b100\\b.BMP");
    options.pictures = "x*; C?.bmp ;c.*;";
    plan.SetOptions(options);
    EXPECT_EQ(graphic(0), "D:\\Parts\\b100\\c.bmp");
    options.pictures = "";
    plan.SetOptions(options);
    EXPECT_EQ(graphic(0), "C:\\default.bmp");
    options.pictures = "*.*";
    plan.SetOptions(options);
    EXPECT_EQ(graphic(1), "C:\\default.bmp") << "partinfo.ini is no picture";
    plan.Apply(editor);
    EXPECT_EQ(Item("R.1").Graphic(), "D:\\Parts\\b100\\a.jpg");
}

TEST_F(PartImportTest, ThePatternOfPicturesMayNameTheFolder) {
    Part("b100", FoundPart::NoParent, "", {"a.bmp", "B100.bmp", "b100_front.png", "partinfo.ini"});
    Part("b200", FoundPart::NoParent, "", {"a.bmp", "b100.bmp", "b200_front.png", "partinfo.ini"});
    PartImportOptions options;
    options.defaultPicture = "C:\\default.bmp";
    options.pictures = "%part%.bmp";
    PartImport plan = Plan(options);
    const auto graphic = [&](std::size_t row) { return plan.Rows()[row].fields.graphic; };
    EXPECT_EQ(graphic(0), "D:\\Parts\\b100\\B100.bmp");
    EXPECT_EQ(graphic(1), "C:\\default.bmp");
    options.pictures = "x.bmp;%part%_*";
    plan.SetOptions(options);
    EXPECT_EQ(graphic(0), "D:\\Parts\\b100\\b100_front.png");
    EXPECT_EQ(graphic(1), "D:\\Parts\\b200\\b200_front.png");
}

TEST_F(PartImportTest, AFolderNameIsOnePattern) {
    Part("a;b", FoundPart::NoParent, "", {"a", "a;b.bmp", "b.bmp"});
    PartImportOptions options;
    options.pictures = "%part%.bmp";
    EXPECT_EQ(Plan(options).Rows()[0].fields.graphic, "D:\\Parts\\a;b\\a;b.bmp");
}

TEST_F(PartImportTest, TheHistoryHasTheFolderAndAUniqueTitle) {
    Part("b100", FoundPart::NoParent, "Bracket");
    Part("b200", FoundPart::NoParent, "bracket");
    Part("b300", FoundPart::NoParent, "Bracket (2)");
    Part("b400", FoundPart::NoParent, "Shaft");
    PartFields fields;
    fields.historyDir = "D:\\H";
    fields.historyTitle = "SHAFT";
    editor.AddPart("R", "Old", fields);
    PartImportOptions options;
    options.historyDir = "D:\\History\\%part%\\of %part%";
    PartImport plan = Plan(options);
    plan.Apply(editor);
    EXPECT_EQ(Item("R.2").HistoryDir(), "D:\\History\\b100\\of b100");
    EXPECT_EQ(Item("R.2").HistoryTitle(), "Bracket");
    EXPECT_EQ(Item("R.3").HistoryTitle(), "bracket (2)");
    EXPECT_EQ(Item("R.4").HistoryTitle(), "Bracket (2) (2)");
    EXPECT_EQ(Item("R.5").HistoryTitle(), "Shaft (2)");
    plan.Tick(0, false);
    EXPECT_EQ(plan.Rows()[1].fields.historyTitle, "bracket") << "only what is added counts";
}

TEST_F(PartImportTest, TheNameOfTheFolderIsNotReplacedAgain) {
    Part("%part%");
    PartImportOptions options;
    options.historyDir = "%part%";
    EXPECT_EQ(Plan(options).Rows()[0].fields.historyDir, "%part%");
}

TEST_F(PartImportTest, WhatCannotBeStoredIsSaidAndLeftOut) {
    Part("b100", FoundPart::NoParent, "日本");
    Part("b200");
    PartImport plan = Plan();
    ASSERT_TRUE(plan.Rows()[0].problem);
    EXPECT_EQ(plan.Rows()[0].problem->messageId, Message::NotEncodable);
    EXPECT_FALSE(plan.Rows()[0].isTicked);
    EXPECT_EQ(plan.Count(), (PartImport::Counts{1, 0, 0, 0, 1}));
    PartImportOptions options;
    options.caption = PartImportOptions::Caption::Folder;
    plan.SetOptions(options);
    EXPECT_FALSE(plan.Rows()[0].problem);
    EXPECT_TRUE(plan.Rows()[0].isTicked) << "as the user chose";
    plan.SetOptions({});
    plan.Apply(editor);
    EXPECT_EQ(Tree(), "b200\n");
}

TEST_F(PartImportTest, ASubmenuThatCannotBeStoredTakesItsPartsWithIt) {
    Part("b100", Folder("in", Folder("日本")));
    PartImport plan = Plan();
    // The path of the part cannot be stored either.
    EXPECT_TRUE(plan.Rows()[0].problem);
    EXPECT_TRUE(plan.Rows()[2].problem);
    EXPECT_EQ(plan.Count(), (PartImport::Counts{0, 0, 0, 0, 1}));
}

TEST_F(PartImportTest, APathWithAnAtSignCannotBeReferredTo) {
    Part("b@100");
    const PartImport plan = Plan();
    ASSERT_TRUE(plan.Rows()[0].problem);
    EXPECT_EQ(plan.Rows()[0].problem->messageId, Message::AddPartsAtSign);
    EXPECT_EQ(plan.Rows()[0].problem->arguments.front(), "D:\\Parts\\b@100\\partinfo.ini");
}

TEST_F(PartImportTest, OptionsThatCannotBeStoredConcernEachPart) {
    Part("b100", FoundPart::NoParent, "", {"a.bmp"});
    Part("b200");
    PartImportOptions options;
    options.defaultPicture = "C:\\日.bmp";
    PartImport plan = Plan(options);
    EXPECT_FALSE(plan.Rows()[0].problem);
    EXPECT_TRUE(plan.Rows()[1].problem);
    options = {};
    options.historyDir = "C:\\日\\%part%";
    plan.SetOptions(options);
    EXPECT_EQ(plan.Count().problems, 2u);
}

TEST_F(PartImportTest, AFullSubmenuTakesNoMore) {
    const MenuEntry& root = *editor.OpenMenu();
    for (int i = 0; i < 100; ++i)
        editor.AddPart("R", "old");
    const int room = MenuItemCollection::MaxCount - root.ChildCount();
    const std::size_t folder = Folder("Folder");
    Part("first", folder);
    Part("second", folder);
    for (int i = 0; i < room; ++i)
        Part("p" + std::to_string(i));
    Part("in a folder", Folder("Late"));
    PartImport plan = Plan();
    EXPECT_EQ(plan.Count().parts, static_cast<std::size_t>(room) + 1) << "the folder took one place";
    const PartImportRow& full = plan.Rows()[static_cast<std::size_t>(room) + 2];
    ASSERT_TRUE(full.problem);
    EXPECT_EQ(full.problem->messageId, Message::AddPartsNoRoom);
    EXPECT_EQ(full.problem->arguments, (std::vector<std::string>{"Main Menu", "32767"}));
    EXPECT_TRUE(plan.Rows().back().problem) << "its folder has no place";
    EXPECT_EQ(plan.Count().problems, 2u);
    plan.Tick(1, false);
    plan.Tick(2, false);
    EXPECT_EQ(plan.Count().parts, static_cast<std::size_t>(room)) << "the folder's place is free";
    EXPECT_EQ(plan.Count().problems, 1u);
    plan.Apply(editor);
    EXPECT_EQ(root.ChildCount(), MenuItemCollection::MaxCount);
}

TEST_F(PartImportTest, AnErrorChangesNothing) {
    Part("b100");
    Part("b200");
    const PartImport plan = Plan();
    // The menu is not the one that was planned for.
    for (int i = 0; i < MenuItemCollection::MaxCount - 1; ++i)
        editor.AddPart("R", "x");
    EXPECT_THROW(plan.Apply(editor), NeskError);
    EXPECT_EQ(editor.OpenMenu()->ChildCount(), MenuItemCollection::MaxCount - 1);
}

TEST_F(PartImportTest, TheCommonPartOfTheHistoryDirectory) {
    const auto common = [](const char* directory) {
        PartImportOptions options;
        options.historyDir = directory;
        return options.CommonHistoryDir();
    };
    EXPECT_EQ(common(" D:\\History "), "D:\\History");
    EXPECT_EQ(common("D:\\History\\%part%"), "D:\\History\\");
    EXPECT_EQ(common("D:\\History\\of %part%\\%part%\\x"), "D:\\History\\");
    EXPECT_EQ(common("%part%"), "");
    EXPECT_EQ(common(""), "");
}

TEST_F(PartImportTest, OptionsAreRemembered) {
    WindowMemory memory;
    memory.Load();
    EXPECT_EQ(PartImportOptions::In(memory), PartImportOptions());
    PartImportOptions options;
    options.PutInto(memory);
    options.caption = PartImportOptions::Caption::Folder;
    options.letters = LetterCase::Lower;
    options.submenus = false;
    options.pictures = "";
    options.defaultPicture = "C:\\a.bmp";
    options.historyDir = "D:\\%part%";
    options.PutInto(memory);
    ASSERT_TRUE(memory.Save());
    WindowMemory next;
    next.Load();
    EXPECT_EQ(PartImportOptions::In(next), options);
    PartImportOptions().PutInto(next);
    ASSERT_TRUE(next.Save());
    memory.Load();
    EXPECT_EQ(PartImportOptions::In(memory), PartImportOptions());
}

} // namespace
} // namespace nesk
