#include "checking/MenuCheck.h"

#include "unit/checking/CheckingFixture.h"
#include "unit/checking/FakeInspector.h"

#include <chrono>
#include <random>
#include <thread>

namespace nesk {
namespace {

using Kind = FindingKind;
using State = FileFacts::State;
using namespace std::chrono_literals;

class MenuCheckTest : public testing::CheckingTest {
protected:
    // Checks everything, with all files. Returns false when that takes longer than ten seconds.
    static bool Finish(MenuCheck& check) {
        const auto end = std::chrono::steady_clock::now() + 10s;
        while (!check.IsDone()) {
            if (std::chrono::steady_clock::now() > end) return false;
            if (!check.Step(5ms)) std::this_thread::sleep_for(1ms);
        }
        return true;
    }

    // "caption of the entry: text of the problem", in the order of the list.
    static std::vector<std::string> Listed(const MenuCheck& check) {
        std::vector<std::string> list;
        for (std::size_t i = 0; i < check.Count(); ++i) {
            const Finding finding = check.At(i);
            list.push_back(std::string(finding.entry->Caption()) + ": " + finding.Text());
        }
        return list;
    }

    std::vector<std::string> Found() {
        EXPECT_TRUE(Finish(check));
        return Listed(check);
    }

    // A part button without any problem.
    std::string GoodPart(const std::string& parent, const std::string& caption) {
        PartFields fields;
        fields.programId = "@C:\\Parts\\" + caption + "\\partinfo.ini@";
        return Part(parent, caption, fields);
    }

    using List = std::vector<std::string>;

    std::shared_ptr<testing::FakeInspector> files = std::make_shared<testing::FakeInspector>();
    MenuCheck check{editor, files};
};

TEST_F(MenuCheckTest, AMenuWithoutProblems) {
    const std::string folder = editor.AddSubmenu("R", "Brackets");
    GoodPart(folder, "Small");
    GoodPart("R", "Large");
    EXPECT_EQ(Found(), List{});
    EXPECT_EQ(check.WorstBelow(*editor.OpenMenu()), Severity::None);
}

TEST_F(MenuCheckTest, CaptionsOfSiblingsThatLookTheSame) {
    const std::string folder = editor.AddSubmenu("R", "Bore");
    GoodPart("R", " bore ");
    GoodPart(folder, "Bore");
    EXPECT_EQ(Found(), (List{"Bore: Another entry of this submenu has the caption \"Bore\" too",
                             " bore : Another entry of this submenu has the caption \" bore \" too"}));
    editor.SetCaption("R.2", "Shaft");
    EXPECT_EQ(Found(), List{});
    editor.Undo();
    EXPECT_EQ(Found().size(), 2u);
    editor.Remove(folder);
    EXPECT_EQ(Found(), List{});
}

TEST_F(MenuCheckTest, EmptyCaptionsAndSubmenus) {
    const std::string folder = editor.AddSubmenu("R", "");
    editor.AddPart(folder, "  ");
    editor.AddSubmenu(folder, "Empty");
    EXPECT_EQ(Found(), (List{": The caption is empty", "  : The caption is empty",
                             "  : The button starts no part program", "Empty: The submenu has no entries"}));
    editor.Remove("R.1");
    EXPECT_EQ(Found(), List{"Main Menu: The submenu has no entries"});
}

TEST_F(MenuCheckTest, WhatTheScreenHolds) {
    CheckOptions options;
    options.buttonsPerScreen = 2;
    options.captionFits = [](std::string_view caption) { return caption.size() <= 8; };
    check.SetOptions(options);
    GoodPart("R", "A");
    GoodPart("R", "B");
    EXPECT_EQ(Found(), List{});
    GoodPart("R", "123456789");
    EXPECT_EQ(Found(), (List{"Main Menu: The submenu has 3 entries; a screen shows 2",
                             "123456789: The caption \"123456789\" does not fit on its button"}));
    editor.SetCaption("R.3", std::string(100, 'x'));
    EXPECT_TRUE(Found().at(1).ends_with(": The caption \"" + std::string(60, 'x') +
                                        "...\" does not fit on its button"))
        << "a long caption is beside the text already";
    options.buttonsPerScreen = 3;
    options.captionFits = {};
    check.SetOptions(options);
    EXPECT_EQ(Found(), List{});
}

TEST_F(MenuCheckTest, FilesOfAPart) {
    PartFields fields;
    fields.graphic = "C:\\p\\a.bmp";
    fields.preview = "C:\\p\\b.bmp";
    fields.programId = "@C:\\q\\partinfo.ini@";
    fields.helpFile = "C:\\h.chm";
    fields.historyDir = "C:\\hist";
    Part("R", "P", fields);
    EXPECT_EQ(Found(), List{});
    files->Set("C:\\p\\a.bmp", {State::NoPicture, ""});
    files->Set("C:\\p\\b.bmp", {State::TooLarge, ""});
    files->Set("C:\\q\\partinfo.ini", {State::Good, ""});
    files->Set("C:\\h.chm", {State::WrongKind, ""});
    files->Set("C:\\hist", {State::Missing, ""});
    check.RefreshFiles();
    EXPECT_EQ(Found(), (List{"P: Not a picture that can be shown: C:\\p\\a.bmp",
                             "P: Picture too large to be shown: C:\\p\\b.bmp",
                             "P: No part name in C:\\q\\partinfo.ini", "P: A folder, not a file: C:\\h.chm",
                             "P: Missing folder: C:\\hist"}));
    EXPECT_EQ(check.At(2).severity, Severity::Error);
    EXPECT_EQ(check.At(4).severity, Severity::Warning);
    EXPECT_EQ(check.CountOf(Severity::Error), 1u);
    EXPECT_EQ(check.CountOf(Severity::Warning), 4u);
    EXPECT_EQ(check.At(4).field, TextField::HistoryDir);
    EXPECT_TRUE(check.At(4).fixes.test(static_cast<std::size_t>(Fix::MakeFolder)));

    for (const State state : {State::Missing, State::Unreadable})
        for (const char* path : {"C:\\p\\a.bmp", "C:\\p\\b.bmp", "C:\\q\\partinfo.ini", "C:\\h.chm"}) {
            files->Set(path, {state, ""});
            check.RefreshFiles();
            const std::string text =
                std::string("P: ") + (state == State::Missing ? "Missing" : "Unreadable") + " file: " + path;
            const List found = Found();
            EXPECT_EQ(std::count(found.begin(), found.end(), text), 1) << text;
        }
    files->Set("C:\\hist", {State::WrongKind, ""});
    check.RefreshFiles();
    EXPECT_EQ(Found().back(), "P: A file, not a folder: C:\\hist");
    files->Set("C:\\hist", {State::Unreadable, ""});
    check.RefreshFiles();
    EXPECT_EQ(Found().back(), "P: Unreadable folder: C:\\hist");
}

TEST_F(MenuCheckTest, ASubmenuHasAPictureAndNoOtherFile) {
    const std::string folder = editor.AddSubmenu("R", "Brackets");
    GoodPart(folder, "A");
    editor.SetGraphic(folder, "C:\\gone.bmp");
    editor.SetGraphic("R", "C:\\logo.bmp");
    files->Set("C:\\gone.bmp", {State::Missing, ""});
    files->Set("C:\\logo.bmp", {State::Missing, ""});
    EXPECT_EQ(Found(),
              (List{"Main Menu: Missing file: C:\\logo.bmp", "Brackets: Missing file: C:\\gone.bmp"}));
}

TEST_F(MenuCheckTest, APlainProgramIsNotLookedUp) {
    PartFields fields;
    fields.programId = "PROGRAM7";
    Part("R", "P", fields);
    EXPECT_EQ(Found(), List{});
    EXPECT_EQ(files->Looks(), 0);
    fields.programId = "@@";
    editor.SetPart("R.1", fields);
    EXPECT_EQ(Found(), List{"P: The button starts no part program"});
}

TEST_F(MenuCheckTest, APathThatIsNoReferenceIsAnIdentifier) {
    const std::string id = Part("R", "P");
    for (const char* path : {"D:\\Parts\\X\\partinfo.ini", "X\\Y", "partinfo.INI"}) {
        PartFields fields;
        fields.programId = path;
        editor.SetPart(id, fields);
        EXPECT_EQ(Found(), List{std::string("P: The program is a path without @ and is started as an "
                                            "identifier: ") +
                                path});
        ASSERT_EQ(check.Count(), 1u);
        EXPECT_EQ(check.At(0).severity, Severity::Warning) << "it may be meant so";
        EXPECT_TRUE(check.At(0).fixes.test(static_cast<std::size_t>(Fix::Edit)));
        EXPECT_FALSE(check.At(0).fixes.test(static_cast<std::size_t>(Fix::Clear)));
    }
    EXPECT_EQ(files->Looks(), 0);
}

TEST_F(MenuCheckTest, ATopicNeedsAHelpFile) {
    PartFields fields;
    fields.programId = "P";
    fields.helpTopic = 12;
    Part("R", "P", fields);
    EXPECT_EQ(Found(), List{"P: There is a help topic (12), but no help file"});
    fields.helpFile = "C:\\h.chm";
    editor.SetPart("R.1", fields);
    EXPECT_EQ(Found(), List{});
}

TEST_F(MenuCheckTest, TitlesThatTwoPartsShare) {
    PartFields fields;
    fields.historyTitle = "Bore";
    fields.programId = "A";
    Part("R", "A", fields);
    Part("R", "A again", fields);
    EXPECT_EQ(Found(), List{}) << "two buttons of one part share its history";
    fields.programId = "B";
    fields.historyTitle = "BORE";
    Part("R", "B", fields);
    EXPECT_EQ(Found(), (List{"A: The history title \"Bore\" is also that of \"B\" in Main Menu",
                             "A again: The history title \"Bore\" is also that of \"B\" in Main Menu",
                             "B: The history title \"BORE\" is also that of \"A\" in Main Menu"}));
    fields.historyTitle = "";
    editor.SetPart("R.3", fields);
    EXPECT_EQ(Found(), List{});
}

#ifdef NESK_PORTABLE_STATION
// On Windows the code page is the machine's.
TEST_F(MenuCheckTest, CharactersThatTheCodePageDoesNotHave) {
    platform::SelectCodePage(1032);
    station.Write("C:\\Neskroot\\menu.cfg",
                  "BLOCK MENU\n BLOCK SUBMENU\n CAPTION=a\xD2z\n MENUTYPE=P\n PROGRAMID=x\n END\nEND\n");
    editor.Open("C:\\Neskroot", "C:\\Neskroot\\menu.cfg");
    const List found = Found();
    ASSERT_EQ(found.size(), 1u);
    EXPECT_TRUE(found[0].ends_with("The byte D2 is no character of code page 1253: a\U0010FED2z"))
        << found[0];
    EXPECT_EQ(check.At(0).severity, Severity::Hint);
    platform::SelectCodePage(1033);
    editor.SetCaption("R.1", "\u0152uvre");
    platform::SelectCodePage(1032);
    EXPECT_EQ(Found(), List{"\u0152uvre: Code page 1253 does not have the character \"\u0152\": \u0152uvre"});
    EXPECT_EQ(check.At(0).severity, Severity::Error);
}
#endif

TEST_F(MenuCheckTest, OnlyThePathOfAnEditIsLookedUp) {
    for (int i = 0; i < 20; ++i)
        GoodPart("R", "part " + std::to_string(i));
    EXPECT_EQ(Found(), List{});
    EXPECT_EQ(files->Looks(), 20);
    files->Set("C:\\gone.bmp", {State::Missing, ""});
    editor.SetGraphic("R.7", "C:\\gone.bmp");
    EXPECT_EQ(Found(), List{"part 6: Missing file: C:\\gone.bmp"});
    EXPECT_EQ(files->Looks(), 21);
    EXPECT_EQ(check.WorstOf(*editor.Find("R.7")), Severity::Warning);
    EXPECT_EQ(check.WorstOf(*editor.OpenMenu()), Severity::None);
    EXPECT_EQ(check.WorstBelow(*editor.OpenMenu()), Severity::Warning);
}

TEST_F(MenuCheckTest, ADriveThatDoesNotAnswerHoldsUpNothing) {
    files->Block("D:");
    PartFields fields;
    fields.programId = "x";
    fields.graphic = "D:\\slow.bmp";
    Part("R", "Slow", fields);
    editor.AddPart("R", "Other");
    while (check.Step(5ms)) {
    }
    EXPECT_EQ(Listed(check), List{"Other: The button starts no part program"});
    EXPECT_FALSE(check.IsDone());
    files->Set("D:\\slow.bmp", {State::Missing, ""});
    files->ComeBack("D:");
    EXPECT_EQ(Found(),
              (List{"Slow: Missing file: D:\\slow.bmp", "Other: The button starts no part program"}));
}

TEST_F(MenuCheckTest, ClosingAndSavingTheMenu) {
    editor.AddPart("R", "A");
    EXPECT_EQ(Found().size(), 1u);
    editor.Save("C:\\Neskroot\\menu.cfg");
    EXPECT_EQ(Found().size(), 1u);
    editor.Close();
    EXPECT_EQ(Found(), List{});
    EXPECT_EQ(check.CountOf(Severity::Error), 0u);
}

// Whatever was edited, the problems are those of a check that begins anew.
TEST_F(MenuCheckTest, AfterRandomEditsNothingIsForgotten) {
    for (unsigned seed = 1; seed <= 40; ++seed) {
        std::mt19937 random(seed);
        const auto below = [&](std::size_t limit) { return random() % limit; };
        editor.Open("C:\\Neskroot", "C:\\Neskroot\\none.cfg");
        files->Set("C:\\gone", {State::Missing, ""});
        EntryIds ids{"R"};
        const auto any = [&] { return ids[below(ids.size())]; };
        for (int step = 0; step < 60; ++step) {
            PartFields fields;
            fields.programId = below(2) == 0 ? "x" : "";
            fields.graphic = below(3) == 0 ? "C:\\gone" : "";
            fields.historyTitle = below(2) == 0 ? "title " + std::to_string(below(3)) : "";
            const std::string caption =
                below(5) == 0 ? "" : std::string(1, static_cast<char>('a' + below(6)));
            try {
                switch (below(10)) {
                case 0:
                case 1: ids.push_back(editor.AddPart(any(), caption)); break;
                case 2: ids.push_back(editor.AddSubmenu(any(), caption)); break;
                case 3: editor.SetCaption(any(), caption); break;
                case 4: editor.SetPart(any(), fields); break;
                case 5: editor.Remove(any()); break;
                case 6: ids.push_back(editor.MoveTo(any(), any(), 0)); break;
                case 7: editor.MoveUp(any()); break;
                case 8: editor.Undo(); break;
                default: editor.Redo(); break;
                }
            } catch (const NeskError&) {
                continue; // a move that is not possible
            }
            // Sometimes the check is in the middle of its work when the next edit comes.
            if (below(3) == 0) continue;
            if (below(2) == 0) {
                check.Step(0ms);
                continue;
            }
            ASSERT_TRUE(Finish(check));
            MenuCheck fresh(editor, files);
            ASSERT_TRUE(Finish(fresh));
            ASSERT_EQ(Listed(check), Listed(fresh)) << "seed " << seed << ", step " << step;
        }
    }
}

} // namespace
} // namespace nesk
