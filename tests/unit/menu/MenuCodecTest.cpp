// Menus and items to and from texts, without files, registry or messages.

#include "base/ByteSink.h"
#include "base/ByteSource.h"
#include "base/Messages.h"
#include "menu/BlockParser.h"
#include "menu/Menu.h"
#include "menu/MenuItem.h"
#include "menu/MenuItemCollection.h"
#include "menu/MenuKeys.h"
#include "menu/MenuReader.h"
#include "menu/MenuWriter.h"
#include "platform/TextEncoding.h"
#include "settings/RegEntry.h"
#include "unit/CoreFixture.h"
#include "unit/Errors.h"

#include <memory>
#include <sstream>
#include <string>
#include <vector>

namespace nesk {
namespace {

using nesk::testing::ErrorOf;

const std::string TwoItems = "BLOCK SUBMENU\r\n"
                             "\tCAPTION=Housing\r\n\tGRAPHIC=h.bmp\r\n\tPREVIEW=\r\n\tHELPFILE=\r\n"
                             "\tHELPTOPIC=0\r\n\tMENUTYPE=Part Program\r\n\tPROGRAMID=@C:\\a@\r\n"
                             "\tHISTORY_DIR=C:\\History\r\n\tHISTORY_TITLE=Housing\r\n"
                             "END\r\n"
                             "BLOCK SUBMENU\r\n"
                             "\tCAPTION=Covers\r\n\tGRAPHIC=\r\n\tPREVIEW=\r\n\tHELPFILE=\r\n"
                             "\tHELPTOPIC=7\r\n\tMENUTYPE=Menu\r\n\tPROGRAMID=\r\n"
                             "\tHISTORY_DIR=\r\n\tHISTORY_TITLE=\r\n"
                             "\tBLOCK SUBMENU\r\n"
                             "\t\tCAPTION=Front\r\n\t\tGRAPHIC=\r\n\t\tPREVIEW=\r\n\t\tHELPFILE=\r\n"
                             "\t\tHELPTOPIC=0\r\n\t\tMENUTYPE=Part Program\r\n\t\tPROGRAMID=p\r\n"
                             "\t\tHISTORY_DIR=\r\n\t\tHISTORY_TITLE=\r\n"
                             "\tEND\r\n"
                             "END\r\n";

class MenuCodecTest : public nesk::testing::CoreTest {
protected:
    MenuCodecTest() { m_menu.Initialize("C:\\Neskroot"); }

    // The parser of a text. A later call invalidates the previous parser.
    BlockParser& ParserOf(const std::string& text) {
        m_text = text;
        m_parser = std::make_unique<BlockParser>(MenuKeys);
        m_parser->Open(std::make_unique<TextSource>(m_text, "the clipboard"));
        return *m_parser;
    }

    std::vector<std::unique_ptr<MenuItem>> ReadItems(const std::string& text) {
        return MenuReader(ParserOf(text)).ReadItems(m_menu);
    }

    static std::string Written(const Menu& menu) {
        std::string text;
        TextSink sink(text);
        MenuWriter(sink).WriteMenu(menu);
        return text;
    }

    Menu m_menu;

private:
    std::string m_text;
    std::unique_ptr<BlockParser> m_parser;
};

TEST_F(MenuCodecTest, ItemsComeBackAsTheyWereWritten) {
    const auto items = ReadItems(TwoItems);
    ASSERT_EQ(items.size(), 2u);
    EXPECT_EQ(items[0]->Caption(), "Housing");
    EXPECT_EQ(items[0]->HistoryTitle(), "Housing");
    EXPECT_EQ(items[1]->HelpTopic(), 7);
    ASSERT_EQ(items[1]->ChildCount(), 1);
    EXPECT_EQ(items[1]->Children()->Item(1).Caption(), "Front");
    EXPECT_EQ(m_menu.ChildCount(), 0) << "they are nobody's children yet";

    std::string text;
    TextSink sink(text);
    MenuWriter(sink).WriteItems(std::vector<const MenuItem*>{items[0].get(), items[1].get()});
    EXPECT_EQ(text, TwoItems);
}

TEST_F(MenuCodecTest, ItemsGetTheCountersOfTheirNewParent) {
    m_menu.SubMenus().Add("First", MenuItem::SubmenuType);
    auto items = ReadItems(TwoItems);
    ASSERT_EQ(items.size(), 2u);
    for (auto& item : items)
        m_menu.SubMenus().Append(std::move(item));
    EXPECT_EQ(m_menu.Children()->Item(2).ID(), "R.2");
    EXPECT_EQ(m_menu.Children()->Item(3).Children()->Item(1).ID(), "R.3.1");
}

TEST_F(MenuCodecTest, AnIndentMovesEveryLine) {
    const auto items = ReadItems(TwoItems);
    std::string text;
    TextSink sink(text);
    items.at(1)->SaveToFile(sink, 2);
    std::string expected;
    std::istringstream covers(TwoItems.substr(TwoItems.find("BLOCK", 1)));
    for (std::string line; std::getline(covers, line);)
        expected += "\t\t" + line + "\n";
    EXPECT_EQ(text, expected);
}

TEST_F(MenuCodecTest, NoItemsInAnEmptyText) {
    EXPECT_TRUE(ReadItems("").empty());
    EXPECT_TRUE(ReadItems("\r\n  \r\n; a comment\r\n").empty());
}

TEST_F(MenuCodecTest, ATextThatHoldsNoItemsIsRefusedWithItsLine) {
    const struct {
        std::string text;
        int line;
        int message;
    } rows[] = {
        {"Hello", 1, Message::BlockSyntax},
        {"CAPTION=x\r\n", 1, Message::MenuNotABlock},
        {"\r\nEND\r\n", 2, Message::MenuNotABlock},
        {"BLOCK MENU\r\nEND\r\n", 1, Message::MenuUnknownBlock},
        {TwoItems + "BLOCK SUBMENU\r\nCAPTION=x\r\n", 35, Message::MenuBlockNotEnded},
        {TwoItems + "BLOCK SUBMENU\r\nHELPTOPIC=x\r\nEND\r\n", 35, Message::TypeMismatch},
    };
    for (const auto& row : rows) {
        const NeskError error = ErrorOf([&] { ReadItems(row.text); });
        EXPECT_EQ(error.line, row.line) << row.text;
        EXPECT_EQ(error.messageId, row.message) << row.text;
        EXPECT_EQ(error.file, "") << row.text;
    }
    EXPECT_EQ(m_menu.ChildCount(), 0);
}

TEST_F(MenuCodecTest, AWholeMenuThroughAText) {
    const std::string text = "BLOCK MENU\r\n\tCAPTION=Cell\r\n\tGRAPHIC=\r\nEND\r\n";
    EXPECT_TRUE(MenuReader(ParserOf(text)).ReadMenu(m_menu));
    EXPECT_EQ(Written(m_menu), text);
    Menu other;
    other.Initialize("");
    EXPECT_FALSE(MenuReader(ParserOf("BLOCK MENU\r\nCAPTION=Cut")).ReadMenu(other)) << "no end";
    EXPECT_EQ(other.Caption(), "Cut");
}

TEST_F(MenuCodecTest, AMessageNamesTheSource) {
    const NeskError error = ErrorOf([&] { MenuReader(ParserOf("Hello=you")).ReadMenu(m_menu); });
    EXPECT_EQ(error.messageId, Message::MenuNotAMenuFile);
    EXPECT_EQ(error.arguments, std::vector<std::string>{"the clipboard"});
}

TEST_F(MenuCodecTest, ReadingRegistersNothing) {
    ReadItems(TwoItems);
    const std::string menu = "BLOCK MENU\r\n" + TwoItems + "END\r\n";
    MenuReader(ParserOf(menu)).ReadMenu(m_menu);
    EXPECT_FALSE(RegEntry().TestKey("Orvane\\HistoryList"));
    EXPECT_TRUE(messages.empty());

    int ends = 0;
    Menu other;
    other.Initialize("");
    MenuReader(ParserOf(menu), [&](const MenuItem&) { ++ends; }).ReadMenu(other);
    EXPECT_EQ(ends, 3) << "the handler sees each item once";
}

TEST_F(MenuCodecTest, ADeepListNeedsNoDeepStack) {
    constexpr int Levels = 200'000;
    std::string text;
    for (int i = 0; i < Levels; ++i)
        text += "BLOCK SUBMENU\r\n";
    for (int i = 0; i < Levels; ++i)
        text += "END\r\n";
    const auto items = ReadItems(text);
    ASSERT_EQ(items.size(), 1u);
    EXPECT_EQ(items[0]->CountBelow(), Levels - 1);
}

TEST_F(MenuCodecTest, ACharacterWithoutACodeIsRefused) {
    platform::SelectCodePage(1033);
    MenuItem& item = m_menu.SubMenus().Add("\xE6\xA4\x9C", MenuItem::PartType);
    std::string text;
    TextSink sink(text);
    EXPECT_EQ(ErrorOf([&] { item.SaveToFile(sink, 0); }).number, 5000);
}

} // namespace
} // namespace nesk
