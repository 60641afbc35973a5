#include "checking/EntryDetails.h"

#include "base/Messages.h"
#include "shell/FieldMessage.h"
#include "unit/checking/CheckingFixture.h"

namespace nesk {
namespace {

class EntryDetailsTest : public testing::CheckingTest {
protected:
    EntryDetailsTest() {
        station.Write("C:\\History\\readme.txt", "");
        a = Part("R", "A");
        b = Part("R", "B");
        folder = editor.AddSubmenu("R", "Folder");
    }

    std::string ValueOf(DetailField field) const {
        const DetailValue value = details.ValueOf(field);
        if (!value.isEnabled) return "disabled";
        return value.differs ? "differs" : "'" + value.text + "'";
    }

    std::size_t Steps() const { return editor.History().UndoNames().size(); }

    std::string a;
    std::string b;
    std::string folder;
    EntryDetails details{editor};
};

TEST_F(EntryDetailsTest, EachFieldOfAPartIsOneStep) {
    details.Select({a});
    EXPECT_EQ(ValueOf(DetailField::Caption), "'A'");
    EXPECT_EQ(ValueOf(DetailField::HelpTopic), "'0'");
    const std::pair<DetailField, std::string> texts[] = {
        {DetailField::Caption, "New"},
        {DetailField::Program, "@C:\\p\\partinfo.ini@"},
        {DetailField::Picture, "C:\\a.bmp"},
        {DetailField::Preview, "C:\\b.bmp"},
        {DetailField::HelpFile, "C:\\h.chm"},
        {DetailField::HelpTopic, "12"},
        {DetailField::HistoryDir, "C:\\History"},
        {DetailField::HistoryTitle, "Bore"},
    };
    static_assert(std::size(texts) == DetailFieldCount);
    for (const auto& [field, text] : texts) {
        const std::size_t before = Steps();
        EXPECT_FALSE(details.WhyNot(field, text));
        EXPECT_TRUE(details.Set(field, text));
        EXPECT_EQ(ValueOf(field), "'" + text + "'");
        EXPECT_EQ(Steps(), before + 1);
        EXPECT_FALSE(details.Set(field, text)) << "the same text is no step";
        EXPECT_EQ(Steps(), before + 1);
    }
}

TEST_F(EntryDetailsTest, ASubmenuHasCaptionAndPicture) {
    for (const std::string& id : {folder, std::string("R")}) {
        details.Select({id});
        for (std::size_t i = 0; i < DetailFieldCount; ++i) {
            const auto field = static_cast<DetailField>(i);
            const bool isThere = field == DetailField::Caption || field == DetailField::Picture;
            EXPECT_EQ(details.ValueOf(field).isEnabled, isThere) << i;
        }
    }
    details.Select({});
    EXPECT_EQ(ValueOf(DetailField::Caption), "disabled");
    details.Select({"R.99"});
    EXPECT_EQ(ValueOf(DetailField::Caption), "disabled");
}

TEST_F(EntryDetailsTest, SeveralPartsShowWhatTheyShare) {
    details.Select({a});
    details.Set(DetailField::Picture, "C:\\a.bmp");
    details.Select({a, b});
    EXPECT_EQ(ValueOf(DetailField::Caption), "disabled");
    EXPECT_EQ(ValueOf(DetailField::HistoryTitle), "disabled");
    EXPECT_EQ(ValueOf(DetailField::Picture), "differs");
    EXPECT_EQ(ValueOf(DetailField::Preview), "''");
    const std::size_t before = Steps();
    EXPECT_TRUE(details.Set(DetailField::Picture, "C:\\b.bmp"));
    EXPECT_EQ(Steps(), before + 1);
    EXPECT_EQ(ValueOf(DetailField::Picture), "'C:\\b.bmp'");
    details.Select({a, folder});
    EXPECT_EQ(ValueOf(DetailField::Picture), "differs");
    EXPECT_EQ(ValueOf(DetailField::Preview), "disabled");
}

TEST_F(EntryDetailsTest, AHistoryDirectoryMustExist) {
    details.Select({a});
    const auto refusal = details.WhyNot(DetailField::HistoryDir, "C:\\Nowhere");
    ASSERT_TRUE(refusal);
    EXPECT_EQ(refusal->message, FieldMessage::Text(Message::HistoryFolder));
    EXPECT_NE(refusal->reason, "");
    EXPECT_FALSE(details.WhyNot(DetailField::HistoryDir, " C:\\History "));
    EXPECT_FALSE(details.WhyNot(DetailField::HistoryDir, " "));
}

TEST_F(EntryDetailsTest, AHistoryGetsTheCaptionAsItsTitle) {
    details.Select({a, b});
    EXPECT_TRUE(details.Set(DetailField::HistoryDir, " C:\\History "));
    EXPECT_EQ(Item(a).HistoryDir(), "C:\\History");
    EXPECT_EQ(Item(a).HistoryTitle(), "A");
    EXPECT_EQ(Item(b).HistoryTitle(), "B");
    details.Select({a});
    EXPECT_TRUE(details.WhyNot(DetailField::HistoryTitle, " "));
    EXPECT_TRUE(details.Set(DetailField::HistoryTitle, " Own "));
    EXPECT_EQ(Item(a).HistoryTitle(), "Own");
    EXPECT_TRUE(details.Set(DetailField::HistoryDir, "C:\\History\\"));
    EXPECT_EQ(Item(a).HistoryTitle(), "Own");
    EXPECT_TRUE(details.Set(DetailField::HistoryDir, ""));
    EXPECT_FALSE(details.WhyNot(DetailField::HistoryTitle, ""));
}

TEST_F(EntryDetailsTest, ATopicThatIsNoNumberStays) {
    details.Select({a});
    EXPECT_TRUE(details.Set(DetailField::HelpTopic, "7"));
    for (const char* text : {"", "99999999999", "x"})
        EXPECT_FALSE(details.Set(DetailField::HelpTopic, text)) << text;
    EXPECT_EQ(Item(a).HelpTopic(), 7);
}

TEST_F(EntryDetailsTest, ATypedPathOfAPartBecomesItsReference) {
    details.Select({a, b});
    EXPECT_TRUE(details.Set(DetailField::Program, " D:\\Parts\\X\\PARTINFO.ini "));
    EXPECT_EQ(Item(a).ProgramID(), "@D:\\Parts\\X\\PARTINFO.ini@");
    EXPECT_EQ(Item(b).ProgramID(), "@D:\\Parts\\X\\PARTINFO.ini@");
    EXPECT_FALSE(details.Set(DetailField::Program, "@D:\\Parts\\X\\PARTINFO.ini@"));
    for (const char* text :
         {"P7", " P7", "D:\\Parts\\X\\part.ini", "partinfo.ini", "D:\\a@b\\partinfo.ini", ""}) {
        details.Set(DetailField::Program, text);
        EXPECT_EQ(Item(a).ProgramID(), text) << "an identifier stays as it is typed";
    }
}

TEST_F(EntryDetailsTest, FieldsWithOneDialogAreOneStep) {
    details.Select({a});
    const std::size_t before = Steps();
    EXPECT_TRUE(details.SetHelp("C:\\h.chm", 3));
    EXPECT_TRUE(details.SetHistory("C:\\History\\", "T"));
    EXPECT_EQ(Steps(), before + 2);
    EXPECT_EQ(Item(a).HelpFile(), "C:\\h.chm");
    EXPECT_EQ(Item(a).HelpTopic(), 3);
    EXPECT_EQ(Item(a).HistoryDir(), "C:\\History\\");
    EXPECT_EQ(Item(a).HistoryTitle(), "T");
}

TEST_F(EntryDetailsTest, ATextThatCannotBeStoredIsRefused) {
    details.Select({a});
    EXPECT_THROW(details.Set(DetailField::Caption, "two\nlines"), NeskError);
    EXPECT_EQ(Item(a).Caption(), "A");
}

} // namespace
} // namespace nesk
