#include "partedit/PartReference.h"
#include "unit/CoreFixture.h"

namespace nesk {
namespace {

using modStringRes::FormatResString;
using modStringRes::LoadResString;

class PartReferenceTest : public testing::CoreTest {};

TEST_F(PartReferenceTest, PathsInReferences) {
    using PartReference::IniPath;
    EXPECT_EQ(PartReference::Make("D:\\Parts\\Bracket\\partinfo.ini"), "@D:\\Parts\\Bracket\\partinfo.ini@");
    EXPECT_EQ(IniPath("@D:\\Parts\\Bracket\\partinfo.ini@"), "D:\\Parts\\Bracket\\partinfo.ini");
    EXPECT_EQ(IniPath("@D:\\x.ini"), "D:\\x.ini") << "without a closing @ the whole rest counts";
    EXPECT_EQ(IniPath("@D:\\x.ini@and more@"), "D:\\x.ini");
    EXPECT_EQ(IniPath("@"), "");
    EXPECT_EQ(IniPath("@@"), "");
    EXPECT_EQ(IniPath("BRACKET"), "");
    EXPECT_EQ(IniPath("a@b@"), "");
    EXPECT_FALSE(PartReference::RefersToPart(""));
    EXPECT_FALSE(PartReference::RefersToPart(" @x@"));
    EXPECT_TRUE(PartReference::RefersToPart("@"));
}

TEST_F(PartReferenceTest, PathsThatAreNoReferences) {
    using PartReference::IsBarePath;
    for (const char* text : {"D:\\Parts\\X\\partinfo.ini", "partinfo.INI", "X\\Y", " D:\\X "})
        EXPECT_TRUE(IsBarePath(text)) << text;
    for (const char* text : {"", "P7", "@D:\\Parts\\X\\partinfo.ini@", "@", "ini", "P7.ini.x", "a/b"})
        EXPECT_FALSE(IsBarePath(text)) << text;
}

TEST_F(PartReferenceTest, ATypedPathIsAReference) {
    using PartReference::FromTyped;
    EXPECT_EQ(FromTyped("D:\\Parts\\X\\partinfo.ini"), "@D:\\Parts\\X\\partinfo.ini@");
    EXPECT_EQ(FromTyped("  D:\\Parts\\X\\PartInfo.INI "), "@D:\\Parts\\X\\PartInfo.INI@");
    for (const char* text :
         {"", " P7 ", "partinfo.ini", "D:\\X\\part.ini", "@D:\\X\\partinfo.ini", "D:\\a@b\\partinfo.ini"})
        EXPECT_EQ(FromTyped(text), text);
}

TEST_F(PartReferenceTest, FoldersOfParts) {
    EXPECT_EQ(PartReference::PartFolder("D:\\Parts\\Bracket\\partinfo.ini"), "D:\\Parts\\Bracket");
    EXPECT_EQ(PartReference::PartFolder("D:\\partinfo.ini"), "D:");
    EXPECT_EQ(PartReference::PartFolder("partinfo.ini"), std::nullopt);
    EXPECT_EQ(PartReference::PartFolder(""), std::nullopt);
}

TEST_F(PartReferenceTest, Descriptions) {
    station.Write("D:\\Parts\\Bracket\\partinfo.ini", "[Part]\r\nName=Bracket 7\r\n");
    EXPECT_EQ(PartReference::Description("@D:\\Parts\\Bracket\\partinfo.ini@"),
              FormatResString(32027, "Bracket 7"));
    EXPECT_EQ(PartReference::Description("@D:\\Parts\\None\\partinfo.ini@"), FormatResString(32027, ""));
    EXPECT_EQ(PartReference::Description("@"), FormatResString(32027, ""));
    EXPECT_EQ(PartReference::Description("BRACKET"), LoadResString(32028));
    EXPECT_EQ(PartReference::Description(""), LoadResString(32028));
}

TEST_F(PartReferenceTest, Problems) {
    using PartReference::Problem;
    station.Write("D:\\Parts\\Bracket\\partinfo.ini", "[Part]\r\nName=Bracket 7\r\n");
    station.Write("D:\\Parts\\Empty\\partinfo.ini", "[Part]\r\n");
    EXPECT_EQ(Problem("@D:\\Parts\\Bracket\\partinfo.ini@"), "");
    EXPECT_EQ(Problem("BRACKET"), "");
    EXPECT_EQ(Problem(""), "");
    EXPECT_EQ(Problem("D:\\Parts\\Bracket\\partinfo.ini"),
              "The program is a path without @ and is started as an identifier.");
    EXPECT_EQ(Problem("@"), LoadResString(34470));
    EXPECT_EQ(Problem("@D:\\Parts\\None\\partinfo.ini@"),
              "The file D:\\Parts\\None\\partinfo.ini does not exist.");
    EXPECT_EQ(Problem("@D:\\Parts\\Empty\\partinfo.ini@"),
              "The file D:\\Parts\\Empty\\partinfo.ini names no part.");
}

} // namespace
} // namespace nesk
