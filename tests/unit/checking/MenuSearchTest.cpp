#include "checking/MenuSearch.h"

#include "unit/checking/CheckingFixture.h"

#include <chrono>

namespace nesk {
namespace {

using namespace std::chrono_literals;

class MenuSearchTest : public testing::CheckingTest {
protected:
    // Captions of the entries found, in the order in which Next goes through them.
    std::vector<std::string> Found(const std::string& text) {
        search.SetText(text);
        while (search.Step(10ms)) {
        }
        return Listed();
    }

    std::vector<std::string> Listed() {
        std::vector<std::string> captions;
        const MenuEntry* entry = search.NextFrom(nullptr);
        for (std::size_t i = 0; i < search.Count(); ++i, entry = search.Next(entry))
            captions.emplace_back(entry->Caption());
        return captions;
    }

    using Captions = std::vector<std::string>;

    MenuSearch search{editor};
};

TEST_F(MenuSearchTest, EveryFieldIsSearched) {
    PartFields fields;
    const std::pair<std::string PartFields::*, std::string> texts[] = {
        {&PartFields::graphic, "C:\\p\\alpha.bmp"}, {&PartFields::preview, "C:\\p\\beta.bmp"},
        {&PartFields::programId, "GAMMA7"},         {&PartFields::helpFile, "C:\\h\\delta.chm"},
        {&PartFields::historyDir, "C:\\epsilon"},   {&PartFields::historyTitle, "Zeta"},
    };
    for (const auto& [field, text] : texts) {
        PartFields one;
        one.*field = text;
        Part("R", "part of " + text.substr(text.size() - 3), one);
    }
    for (const char* text : {"alpha", "beta", "gamma", "delta", "epsilon", "zeta"})
        EXPECT_EQ(Found(text).size(), 1u) << text;
    EXPECT_EQ(Found("PART OF").size(), 6u);
    EXPECT_EQ(Found("main menu"), Captions{"Main Menu"});
    EXPECT_EQ(Found("nowhere"), Captions{});
}

TEST_F(MenuSearchTest, CaseAndAccentsDoNotMatter) {
    Part("R", "Gehäuse");
    EXPECT_EQ(Found("GEHAU"), Captions{"Gehäuse"});
    EXPECT_EQ(Found("gehÄuse"), Captions{"Gehäuse"});
}

TEST_F(MenuSearchTest, ATextDoesNotReachFromOneFieldIntoTheNext) {
    PartFields fields;
    fields.graphic = "lid.bmp";
    Part("R", "Housing", fields);
    EXPECT_EQ(Found("housinglid"), Captions{});
}

TEST_F(MenuSearchTest, TheNameOfThePartIsFoundWhenItIsRead) {
    station.Write("C:\\Parts\\A\\partinfo.ini", "[Part]\r\nName=Bearing\r\n");
    PartFields fields;
    fields.programId = "@C:\\Parts\\A\\partinfo.ini@";
    const std::string id = Part("R", "one", fields);
    search.SetText("bear");
    search.FinishTexts();
    EXPECT_EQ(search.Count(), 0u);
    EXPECT_FALSE(search.IsDone());
    while (search.Step(1ms)) {
    }
    EXPECT_TRUE(search.IsDone());
    EXPECT_EQ(search.FoundByName(), 1u);
    EXPECT_EQ(Listed(), Captions{"one"});
    EXPECT_TRUE(search.Matches(*editor.Find(id)));
    EXPECT_EQ(Found("parts\\a"), Captions{"one"}) << "the path is searched as well";
    station.Write("C:\\Parts\\A\\partinfo.ini", "[Part]\r\nName=Gear\r\n");
    EXPECT_EQ(Found("gear"), Captions{}) << "a name is read once";
    search.ForgetNames();
    EXPECT_EQ(Found("gea"), Captions{"one"});
}

TEST_F(MenuSearchTest, SaysWhichFieldHasTheText) {
    station.Write("C:\\Parts\\A\\partinfo.ini", "[Part]\r\nName=Bearing\r\n");
    PartFields fields;
    fields.programId = "@C:\\Parts\\A\\partinfo.ini@";
    fields.helpFile = "C:\\Help\\Lid.hlp";
    fields.graphic = "lid.bmp";
    const MenuEntry& entry = *editor.Find(Part("R", "Cover", fields));
    const auto field = [&](const char* text) {
        Found(text);
        const auto found = search.FoundBesideCaption(entry);
        return found ? found->field + ": " + found->text : std::string();
    };
    EXPECT_EQ(field("COV"), "") << "the caption";
    EXPECT_EQ(field("lid"), "Picture: lid.bmp") << "the first field";
    EXPECT_EQ(field("hlp"), "Help file: C:\\Help\\Lid.hlp");
    EXPECT_EQ(field("bear"), "Part name: Bearing");
    EXPECT_EQ(field("nowhere"), "");
    EXPECT_EQ(field(""), "");
}

TEST_F(MenuSearchTest, NextAndPreviousFollowTheTree) {
    Part("R", "x1");
    const std::string submenu = editor.AddSubmenu("R", "inner");
    Part(submenu, "x2");
    Part("R", "x3");
    EXPECT_EQ(Found("x"), (Captions{"x1", "x2", "x3"}));
    const MenuEntry* second = editor.Find("R.2.1");
    EXPECT_EQ(search.NumberOf(*second), 2u);
    EXPECT_EQ(search.NumberOf(*editor.Find("R.2")), 0u);
    EXPECT_EQ(search.Next(editor.Find("R.2")), second);
    EXPECT_EQ(search.NextFrom(second), second);
    EXPECT_EQ(search.Previous(second)->Caption(), "x1");
    EXPECT_EQ(search.Previous(editor.Find("R.1"))->Caption(), "x3") << "goes round";
    EXPECT_EQ(search.Next(editor.Find("R.3"))->Caption(), "x1");
}

TEST_F(MenuSearchTest, LongerAndShorterTexts) {
    Part("R", "abc");
    Part("R", "abd");
    Part("R", "ac");
    EXPECT_EQ(Found("a").size(), 4u) << "with the main menu";
    EXPECT_EQ(Found("ab"), (Captions{"abc", "abd"}));
    EXPECT_EQ(Found("abd"), Captions{"abd"});
    EXPECT_EQ(Found("ab"), (Captions{"abc", "abd"}));
    EXPECT_EQ(Found(""), Captions{});
    EXPECT_FALSE(search.IsActive());
}

TEST_F(MenuSearchTest, EditsAreFollowed) {
    Part("R", "lid one");
    Part("R", "lid two");
    EXPECT_EQ(Found("lid").size(), 2u);
    editor.SetCaption("R.1", "cover");
    EXPECT_FALSE(search.Step(10ms));
    EXPECT_EQ(Listed(), Captions{"lid two"});
    Part("R", "lid three");
    while (search.Step(10ms)) {
    }
    EXPECT_EQ(Listed(), (Captions{"lid two", "lid three"}));
    editor.Remove("R.2");
    while (search.Step(10ms)) {
    }
    EXPECT_EQ(Listed(), Captions{"lid three"});
    editor.Undo();
    editor.MoveDown("R.2");
    while (search.Step(10ms)) {
    }
    EXPECT_EQ(Listed(), (Captions{"lid three", "lid two"}));
    editor.Close();
    EXPECT_FALSE(search.Step(10ms));
    EXPECT_EQ(search.Count(), 0u);
    EXPECT_EQ(search.Next(nullptr), nullptr);
}

TEST_F(MenuSearchTest, ChangedProgramGivesItsOwnName) {
    station.Write("C:\\A\\partinfo.ini", "[Part]\r\nName=First\r\n");
    station.Write("C:\\B\\partinfo.ini", "[Part]\r\nName=Second\r\n");
    PartFields fields;
    fields.programId = "@C:\\A\\partinfo.ini@";
    const std::string id = Part("R", "part", fields);
    EXPECT_EQ(Found("second"), Captions{});
    fields.programId = "@C:\\B\\partinfo.ini@";
    editor.SetPart(id, fields);
    while (search.Step(10ms)) {
    }
    EXPECT_EQ(Listed(), Captions{"part"});
}

// A save replaces a tree that has much unused memory by a copy.
TEST_F(MenuSearchTest, ASaveThatCopiesTheTree) {
    MenuEditor small(platform::StationFiles(), 100);
    MenuSearch inCopy(small);
    small.Open("C:\\Neskroot", "C:\\Neskroot\\menu.cfg");
    for (int i = 0; i < 50; ++i)
        small.AddPart("R", "lid " + std::to_string(i));
    inCopy.SetText("lid 4");
    inCopy.FinishTexts();
    EXPECT_EQ(inCopy.Count(), 11u);
    for (int i = 1; i <= 40; ++i)
        small.Remove("R." + std::to_string(i));
    for (int i = 0; i < 30; ++i) // fills the memory with texts that are replaced
        small.SetCaption("R", std::string(100'000, 'a') + std::to_string(i));
    const Menu* before = small.OpenMenu();
    small.Save("C:\\Neskroot\\menu.cfg");
    ASSERT_NE(small.OpenMenu(), before);
    inCopy.FinishTexts();
    EXPECT_EQ(inCopy.Count(), 10u);
    EXPECT_EQ(inCopy.NumberOf(*small.Find("R.41")), 1u);
    EXPECT_EQ(inCopy.Next(nullptr), small.Find("R.41"));
}

TEST_F(MenuSearchTest, SubmenusThatLeadToMatches) {
    const std::string a = editor.AddSubmenu("R", "a");
    const std::string b = editor.AddSubmenu(a, "b");
    Part(b, "needle");
    Part(a, "hay");
    editor.AddSubmenu("R", "empty");
    Part("R", "needle too");
    search.SetText("needle");
    EXPECT_EQ(search.LeadsToMatch(*editor.Find("R")), (std::vector<bool>{true, false, true}));
    EXPECT_EQ(search.LeadsToMatch(*editor.Find(a)), (std::vector<bool>{true, false}));
    EXPECT_EQ(search.LeadsToMatch(*editor.Find(b)), (std::vector<bool>{true}));
    EXPECT_EQ(search.LeadsToMatch(*editor.Find("R.2")), std::vector<bool>{});
    editor.Remove(b);
    EXPECT_EQ(search.LeadsToMatch(*editor.Find("R")), (std::vector<bool>{false, false, true}));
}

TEST_F(MenuSearchTest, SmallSlicesFindTheSame) {
    for (int i = 0; i < 1000; ++i)
        editor.AddPart("R", "part " + std::to_string(i));
    search.SetText("part 99");
    int slices = 1;
    while (search.Step(std::chrono::milliseconds::zero()))
        ++slices;
    EXPECT_GT(slices, 5);
    EXPECT_EQ(search.Count(), 11u);
}

TEST_F(MenuSearchTest, ADeepMenu) {
    constexpr int Levels = 200'000;
    std::string bytes = "BLOCK MENU\r\n";
    for (int i = 0; i < Levels; ++i)
        bytes += "BLOCK SUBMENU\r\nCAPTION=" + std::string(i + 1 == Levels ? "deepest" : "x") + "\r\n";
    station.Write("C:\\Neskroot\\menu.cfg", bytes);
    editor.Close();
    editor.Open("C:\\Neskroot", "C:\\Neskroot\\menu.cfg");
    EXPECT_EQ(Found("deepest"), Captions{"deepest"});
    EXPECT_EQ(search.LeadsToMatch(*editor.Find("R")), std::vector<bool>{true});
}

} // namespace
} // namespace nesk
