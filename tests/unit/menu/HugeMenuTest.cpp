#include "base/Messages.h"
#include "editing/MenuChange.h"
#include "editing/MenuEditor.h"
#include "menu/MenuItem.h"
#include "menu/MenuItemCollection.h"
#include "shell/modUtilities.h"
#include "unit/CoreFixture.h"
#include "unit/FileBytes.h"

#include <filesystem>

namespace nesk {
namespace {

using nesk::testing::FileBytes;

const std::string Folder = "C:\\Neskroot";
const std::string Path = Folder + "\\menu.cfg";

class HugeMenuTest : public nesk::testing::CoreTest {
protected:
    std::optional<NeskError> OpenWith(const std::string& bytes) {
        station.Write(Path, bytes);
        return m_editor.Open(Folder, Path);
    }

    // Saves the menu, opens it again and saves it once more: both files must be the same.
    void ExpectSavedAndReadAlike() {
        m_editor.Save(Path);
        const std::string saved = FileBytes(Path);
        EXPECT_FALSE(m_editor.Open(Folder, Path).has_value());
        m_editor.Save(Path);
        EXPECT_TRUE(FileBytes(Path) == saved);
    }

    static std::string Repeat(const std::string& text, int times) {
        std::string result;
        result.reserve(text.size() * static_cast<std::size_t>(times));
        for (int i = 0; i < times; ++i)
            result += text;
        return result;
    }

    MenuEditor m_editor;
};

TEST_F(HugeMenuTest, AMillionLevelsAreEditedAndTakenBack) {
    constexpr int Levels = 1000000;
    ASSERT_FALSE(OpenWith("BLOCK MENU\n" + Repeat("BLOCK SUBMENU\n", Levels)).has_value());
    const std::string deepest = "R" + Repeat(".1", Levels);
    const std::string middle = "R" + Repeat(".1", Levels / 2);
    ASSERT_NE(m_editor.Find(deepest), nullptr);
    EXPECT_EQ(m_editor.Find(deepest)->ID(), deepest);
    EXPECT_EQ(m_editor.Find(deepest + ".1"), nullptr);
    EXPECT_TRUE(m_editor.CommandsFor(deepest).remove);
    EXPECT_TRUE(m_editor.SetCaption(deepest, "deepest"));
    EXPECT_EQ(m_editor.AddPart(deepest, "part"), deepest + ".1");
    EXPECT_TRUE(m_editor.Remove(middle));
    EXPECT_EQ(m_editor.Find(deepest), nullptr);
    EXPECT_TRUE(m_editor.Undo());
    ASSERT_NE(m_editor.Find(deepest + ".1"), nullptr);
    EXPECT_EQ(m_editor.Find(deepest)->Caption(), "deepest");
    EXPECT_TRUE(m_editor.Redo());
    // The undo history now owns half a million levels.
    m_editor.Close();
    EXPECT_FALSE(m_editor.IsOpen());
}

TEST_F(HugeMenuTest, AMillionEntriesAreCopiedAndPasted) {
    constexpr int Submenus = 40, Parts = 25000;
    const std::string submenu =
        "BLOCK SUBMENU\n" + Repeat("BLOCK SUBMENU\nMENUTYPE=Part Program\nEND\n", Parts) + "END\n";
    ASSERT_FALSE(
        OpenWith("BLOCK MENU\nBLOCK SUBMENU\n" + Repeat(submenu, Submenus) + "END\nEND\n").has_value());
    const std::string text = m_editor.CopyText({"R.1"});
    EXPECT_EQ(m_editor.Paste(text, "R", 1), EntryIds{"R.2"});
    EXPECT_EQ(m_editor.Find("R.2")->CountBelow(), std::int64_t{Submenus} * (Parts + 1));
    EXPECT_TRUE(m_editor.Undo());
    EXPECT_EQ(m_editor.Find("R.2"), nullptr);
    // The same with an error at its end: nothing is pasted.
    EXPECT_THROW(m_editor.Paste(text + "END", "R", 1), NeskError);
    EXPECT_EQ(m_editor.OpenMenu()->ChildCount(), 1);
}

// A 32-bit program has no memory for the text of many more levels: their lines are indented.
TEST_F(HugeMenuTest, AHundredThousandLevelsAreCopied) {
    constexpr int Levels = 100000;
    ASSERT_FALSE(OpenWith("BLOCK MENU\n" + Repeat("BLOCK SUBMENU\n", Levels)).has_value());
    const std::string deepest = "R" + Repeat(".1", Levels);
    EXPECT_EQ(Uppermost(*m_editor.OpenMenu(), {deepest, "R.1"}), EntryIds{"R.1"});
    EXPECT_EQ(Uppermost(*m_editor.OpenMenu(), {deepest, deepest + ".1"}), EntryIds{deepest});
    EXPECT_EQ(m_editor.Duplicate({"R.1"}), EntryIds{"R.2"});
    EXPECT_NE(m_editor.Find("R.2" + Repeat(".1", Levels - 1)), nullptr);
    EXPECT_TRUE(m_editor.Remove(EntryIds{"R.1", "R.2"}));
    EXPECT_TRUE(m_editor.Undo());
    EXPECT_NE(m_editor.Find(deepest), nullptr);
}

TEST_F(HugeMenuTest, HalfAMillionLevelsAreMovedAndTakenBack) {
    constexpr int Levels = 1000000;
    ASSERT_FALSE(OpenWith("BLOCK MENU\n" + Repeat("BLOCK SUBMENU\n", Levels)).has_value());
    const std::string deepest = "R" + Repeat(".1", Levels);
    const std::string middle = "R" + Repeat(".1", Levels / 2);
    EXPECT_EQ(m_editor.WhyNotMoveTo(middle, deepest)->messageId, Message::MoveIntoItself);
    EXPECT_EQ(m_editor.MoveTo(middle, "R", 1), "R.2");
    EXPECT_EQ(m_editor.Find(deepest), nullptr);
    EXPECT_NE(m_editor.Find("R.2" + Repeat(".1", Levels / 2)), nullptr);
    EXPECT_TRUE(m_editor.Undo());
    EXPECT_NE(m_editor.Find(deepest), nullptr);
}

TEST_F(HugeMenuTest, SubmenusThatAreFull) {
    constexpr int Most = MenuItemCollection::MaxCount;
    const std::string children = Repeat("BLOCK SUBMENU\nCAPTION=child\nEND\n", Most);
    ASSERT_FALSE(OpenWith("BLOCK MENU\nBLOCK SUBMENU\n" + children + "END\n" + "END\n").has_value());
    EXPECT_EQ(m_editor.Find("R.1")->ChildCount(), Most);
    EXPECT_NE(m_editor.Find("R.1." + std::to_string(Most)), nullptr);
    ExpectSavedAndReadAlike();
    EXPECT_EQ(m_editor.Find("R.1")->ChildCount(), Most);
}

TEST_F(HugeMenuTest, OneChildMoreThanASubmenuHolds) {
    constexpr int Most = MenuItemCollection::MaxCount;
    const auto failure =
        OpenWith("BLOCK MENU\nBLOCK SUBMENU\n" + Repeat("BLOCK SUBMENU\nEND\n", Most + 1) + "END\nEND\n");
    ASSERT_TRUE(failure.has_value());
    EXPECT_EQ(failure->messageId, Message::TooManyChildren);
    EXPECT_EQ(failure->file, Path);
    EXPECT_EQ(failure->line, 2 + 2 * (Most + 1)) << "the line that ends the child";
    EXPECT_TRUE(m_editor.IsIncomplete());
    EXPECT_EQ(m_editor.CheckSave(Path), SaveHazard::Incomplete);
}

TEST_F(HugeMenuTest, AValueOfAHundredMegabytes) {
    const std::string value(100'000'000, 'v');
    ASSERT_FALSE(OpenWith("BLOCK MENU\nCAPTION=" + value + "\nEND\n").has_value());
    EXPECT_TRUE(m_editor.Find("R")->Caption() == value);
    const std::string other = Folder + "\\other.cfg"; // a new file, which needs no backup
    m_editor.Save(other);
    EXPECT_TRUE(FileBytes(other) == "BLOCK MENU\r\n\tCAPTION=" + value + "\r\n\tGRAPHIC=\r\nEND\r\n");
}

TEST_F(HugeMenuTest, AValueOfManyCharactersThatTheCodePageLacks) {
    // Each byte takes four bytes in memory.
    ASSERT_FALSE(OpenWith("BLOCK MENU\nGRAPHIC=" + std::string(3'000'000, '\x81') + "\nEND\n").has_value());
    m_editor.SetCaption("R", "x");
    ExpectSavedAndReadAlike();
    EXPECT_NE(FileBytes(Path).find("GRAPHIC=" + std::string(3'000'000, '\x81') + "\r\n"), std::string::npos);
}

TEST_F(HugeMenuTest, KeysAndBlocksOfMegabytes) {
    const std::string word(3'000'000, 'x');
    EXPECT_FALSE(OpenWith("BLOCK MENU " + word + "\n" + word + "=1\n\xFC" + word + "=1\nEND\n").has_value());
    EXPECT_EQ(OpenWith("BLOCK MENU\nBLOCK " + word + "\nEND\nEND\n")->messageId, Message::MenuUnknownBlock);
    EXPECT_EQ(OpenWith("BLOCK " + word + "\n")->messageId, Message::MenuNotAMenuFile);
    EXPECT_EQ(OpenWith(word + "\n")->messageId, Message::BlockSyntax);
}

// A message box with the whole text could not be shown.
TEST_F(HugeMenuTest, ErrorsShowTheBeginningOfALongText) {
    const auto failure =
        OpenWith("BLOCK MENU\nBLOCK SUBMENU\nHELPTOPIC=" + std::string(10'000'000, 'x') + "\nEND\nEND\n");
    ASSERT_TRUE(failure.has_value());
    EXPECT_EQ(failure->messageId, Message::TypeMismatch);
    const std::string text = modUtilities::ErrorText(*failure);
    EXPECT_LT(text.size(), 2000u);
    EXPECT_NE(text.find(std::string(1000, 'x') + "..."), std::string::npos);
    EXPECT_NE(text.find(Path), std::string::npos);
    std::string umlauts;
    for (int i = 0; i < 999; ++i)
        umlauts += "ü";
    const NeskError error(5000, "", Message::TypeMismatch, {"x" + umlauts});
    const std::string shortened = modUtilities::MessageText(error);
    EXPECT_NE(shortened.find("ü..."), std::string::npos) << "cut between characters";
    const NeskError whole(5000, "", Message::TypeMismatch, {std::string(1000, 'y')});
    EXPECT_NE(modUtilities::MessageText(whole).find(std::string(1000, 'y')), std::string::npos);
    EXPECT_EQ(modUtilities::MessageText(whole).find("..."), std::string::npos);
}

TEST_F(HugeMenuTest, ManyLinesThatSayNothing) {
    const std::string lines = Repeat("\n;\n \t\r\n", 2'000'000);
    ASSERT_FALSE(OpenWith("BLOCK MENU\n" + lines + "CAPTION=x\nEND\n" + lines).has_value());
    EXPECT_EQ(m_editor.Find("R")->Caption(), "x");
    EXPECT_EQ(OpenWith(lines + "x")->line, 6'000'001);
}

} // namespace
} // namespace nesk
