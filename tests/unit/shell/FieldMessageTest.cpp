#include "shell/FieldMessage.h"

#include "unit/CoreFixture.h"

namespace nesk::FieldMessage {
namespace {

class FieldMessageTest : public nesk::testing::CoreTest {};

TEST_F(FieldMessageTest, ALabelIsReadWithoutItsMark) {
    EXPECT_EQ(PlainLabel("&Slide folder"), "Slide folder");
    EXPECT_EQ(PlainLabel("Prin&ter setup..."), "Printer setup...");
    EXPECT_EQ(PlainLabel("Slides && pictures"), "Slides & pictures");
    EXPECT_EQ(PlainLabel("&Slides && &&pictures"), "Slides & &pictures");
    EXPECT_EQ(PlainLabel("Slides &"), "Slides ");
    EXPECT_EQ(PlainLabel(""), "");
    EXPECT_EQ(PlainLabel("\u30D5\u30A1\u30A4\u30EB(&F)"), "\u30D5\u30A1\u30A4\u30EB");
    EXPECT_EQ(PlainLabel("\u958B\u304F(&O)..."), "\u958B\u304F...");
    EXPECT_EQ(PlainLabel("("), "(");
    EXPECT_EQ(PlainLabel("(&"), "(");
    EXPECT_EQ(PlainLabel("(&F"), "(F");
    EXPECT_EQ(PlainLabel("(&&)"), "(&)");
}

TEST_F(FieldMessageTest, TheMessageNamesTheField) {
    EXPECT_EQ(Text(32037), "Please check the field History folder");
    EXPECT_EQ(Title(), "Please check the field");
}

TEST_F(FieldMessageTest, AFolderIsRefusedForAReason) {
    station.Write("C:\\file.txt", "");
    EXPECT_EQ(FolderReason(""), "No folder is named.");
    EXPECT_EQ(FolderReason("  "), "No folder is named.");
    EXPECT_EQ(FolderReason("C:\\None"), "The folder C:\\None does not exist.");
    EXPECT_EQ(FolderReason("Q:\\None"),
              "There is no drive Q: here. Connect the drive, or choose another folder.");
    EXPECT_EQ(FolderReason("c:\\None"), "The folder c:\\None does not exist.");
    EXPECT_EQ(FolderReason("C:\\file.txt"), "C:\\file.txt is a file and not a folder.");
}

} // namespace
} // namespace nesk::FieldMessage
