#include "settings/OptionsModel.h"

#include "base/NeskError.h"
#include "settings/NeskRegistry.h"
#include "settings/RegEntry.h"
#include "unit/CoreFixture.h"
#include "unit/Errors.h"

namespace nesk {
namespace {

using modStringRes::LoadResString;
using OptionsModel::Fault;
using OptionsModel::Field;
using OptionsModel::Numbers;

class OptionsModelTest : public testing::CoreTest {
protected:
    OptionsModelTest() {
        for (const char* folder : {"Root", "Slides", "Pictures"})
            station.Write(std::string("C:\\") + folder + "\\x.txt", "");
        fields.root = "C:\\Root";
        fields.slides = "C:\\Slides";
        fields.bitmap = "C:\\Pictures";
        fields.machine = "Bridge";
        fields.user = "Smith";
        fields.maxParts = "20";
        fields.sampleSize = "5";
        fields.historyDirectory = "C:\\History";
    }

    // The message about a box, with its label as shown to the user.
    static std::string CheckText(const std::string& label) { return LoadResString(32067) + " " + label; }

    std::optional<Fault> Check() { return OptionsModel::Check(fields, numbers); }

    // Checks the number of parts. Returns the stored number, or the text that replaces a refused one.
    std::string MaxParts(const std::string& text) {
        fields.maxParts = text;
        fields.sampleSize = "0";
        const std::optional<Fault> fault = Check();
        if (!fault) return std::to_string(numbers.maxParts);
        EXPECT_EQ(fault->field, Field::MaxParts) << text;
        EXPECT_EQ(fault->message, LoadResString(32086)) << text;
        return "refused: " + fault->replacement.value_or("no replacement");
    }

    // Does the same for the sample size.
    std::string SampleSize(const std::string& text, const std::string& parts = "20") {
        fields.maxParts = parts;
        fields.sampleSize = text;
        const std::optional<Fault> fault = Check();
        if (!fault) return std::to_string(numbers.sampleSize);
        EXPECT_EQ(fault->field, Field::SampleSize) << text;
        EXPECT_EQ(fault->message, CheckText("Sample size")) << text;
        return "refused: " + fault->replacement.value_or("no replacement");
    }

    static void Add(const std::string& key, const std::string& displayName) {
        RegEntry entry;
        entry.CreateKey(key);
        entry.SetString("Name", displayName);
    }

    OptionsFields fields;
    Numbers numbers;
};

TEST_F(OptionsModelTest, CompleteFieldsPass) {
    EXPECT_FALSE(Check().has_value());
    EXPECT_EQ(numbers.maxParts, 20);
    EXPECT_EQ(numbers.sampleSize, 5);
}

TEST_F(OptionsModelTest, FaultsAreFoundInTheirOrder) {
    fields.root = "C:\\Gone";
    fields.slides = "";
    fields.bitmap = "C:\\Root\\x.txt"; // a file is not a folder
    fields.machine = "";
    fields.user = "";
    fields.maxParts = "1000";
    fields.sampleSize = "1";
    const auto next = [this](Field field, const std::string& message, const std::string& reason) {
        const std::optional<Fault> fault = Check();
        ASSERT_TRUE(fault.has_value()) << message;
        EXPECT_EQ(fault->field, field) << message;
        EXPECT_EQ(fault->message, message);
        EXPECT_EQ(fault->reason, reason);
        EXPECT_EQ(fault->replacement.has_value(), field == Field::MaxParts || field == Field::SampleSize);
    };
    next(Field::Root, CheckText("Root folder"), "The folder C:\\Gone does not exist.");
    fields.root = "C:\\Root";
    next(Field::Slides, CheckText("Slide folder"), "No folder is named.");
    fields.slides = "C:\\Slides";
    next(Field::Bitmap, CheckText("Picture folder"), "C:\\Root\\x.txt is a file and not a folder.");
    fields.bitmap = "C:\\Pictures";
    next(Field::Machine, CheckText("Machine"), "No machine is chosen.");
    fields.machine = " ";
    next(Field::User, CheckText("User"), "No user is chosen.");
    fields.user = "Smith";
    next(Field::MaxParts, LoadResString(32086), "");
    fields.maxParts = "999";
    next(Field::SampleSize, CheckText("Sample size"),
         "The sample size must be 0, or from 2 to the number of parts in a history (999).");
    EXPECT_EQ(OptionsModel::FaultTitle(), LoadResString(32067));
}

TEST_F(OptionsModelTest, FoldersMayEndInSeparators) {
    fields.root = "C:\\Root\\";
    fields.slides = "C:\\Slides\\";
    EXPECT_FALSE(Check().has_value());
}

TEST_F(OptionsModelTest, PartsInAHistory) {
    EXPECT_EQ(MaxParts("1"), "1");
    EXPECT_EQ(MaxParts("999"), "999");
    EXPECT_EQ(MaxParts(" 35 "), "35");
    EXPECT_EQ(MaxParts("12 parts"), "12");
    EXPECT_EQ(MaxParts("0.6"), "1");
    EXPECT_EQ(MaxParts("1.5"), "2");
    EXPECT_EQ(MaxParts("2.5"), "2");
    EXPECT_EQ(MaxParts("3.5"), "4");
    EXPECT_EQ(MaxParts(""), "refused: 0");
    EXPECT_EQ(MaxParts("   "), "refused: 0");
    EXPECT_EQ(MaxParts("many"), "refused: 0");
    EXPECT_EQ(MaxParts("0"), "refused: 0");
    EXPECT_EQ(MaxParts("-0"), "refused: 0");
    EXPECT_EQ(MaxParts("0.5"), "refused: 0.5");
    EXPECT_EQ(MaxParts("-7"), "refused: -7");
    EXPECT_EQ(MaxParts("-99999"), "refused: -99999");
    EXPECT_EQ(MaxParts("999.25"), "refused: 999.25");
    EXPECT_EQ(MaxParts("1000"), "refused: 1000");
    EXPECT_EQ(MaxParts("0001000"), "refused: 1000");
    EXPECT_EQ(MaxParts("123456789"), "refused: 123456789");
    EXPECT_EQ(MaxParts("1e20"), "refused: 1E+20");
}

TEST_F(OptionsModelTest, SampleSizes) {
    EXPECT_EQ(SampleSize(""), "0");
    EXPECT_EQ(SampleSize("  "), "0");
    EXPECT_EQ(SampleSize("0"), "0");
    EXPECT_EQ(SampleSize("2"), "2");
    EXPECT_EQ(SampleSize(" 20 "), "20");
    EXPECT_EQ(SampleSize("-3"), "-3");
    EXPECT_EQ(SampleSize("2.5"), "2");
    EXPECT_EQ(SampleSize("3.5"), "4");
    EXPECT_EQ(SampleSize("1"), "refused: 1");
    EXPECT_EQ(SampleSize("1.0"), "refused: 1");
    // The value is compared before it is rounded.
    EXPECT_EQ(SampleSize("0.6"), "1");
    EXPECT_EQ(SampleSize("1.4"), "1");
    EXPECT_EQ(SampleSize("21"), "refused: 21");
    EXPECT_EQ(SampleSize("20.5"), "refused: 20.5");
    // The value is compared with the stored number of parts.
    EXPECT_EQ(SampleSize("2", "1.5"), "2");
    EXPECT_EQ(SampleSize("3", "2.5"), "refused: 3");
}

TEST_F(OptionsModelTest, NumbersThatNothingCanHoldAreErrors) {
    fields.maxParts = "1e999";
    EXPECT_EQ(testing::ErrorOf([this] { Check(); }).number, RuntimeError::Overflow);
    fields.maxParts = "20";
    fields.sampleSize = "-40000";
    EXPECT_EQ(testing::ErrorOf([this] { Check(); }).number, RuntimeError::Overflow);
}

TEST_F(OptionsModelTest, WithoutAHistoryNumbersAreNotChecked) {
    for (const char* directory : {"", "   "}) {
        fields.historyDirectory = directory;
        fields.maxParts = "1000";
        fields.sampleSize = "1";
        numbers = {7, 7};
        EXPECT_FALSE(Check().has_value());
        EXPECT_EQ(numbers.maxParts, 0);
        EXPECT_EQ(numbers.sampleSize, 0);
    }
}

TEST_F(OptionsModelTest, WithoutAHistoryBothNumbersShowZero) {
    EXPECT_TRUE(OptionsModel::ApplyHistoryRule(fields));
    EXPECT_EQ(fields.maxParts, "20");
    fields.historyDirectory = "  ";
    EXPECT_FALSE(OptionsModel::ApplyHistoryRule(fields));
    EXPECT_EQ(fields.maxParts, "0");
    EXPECT_EQ(fields.sampleSize, "0");
}

TEST_F(OptionsModelTest, TrailingSeparators) {
    using OptionsModel::StripTrailingSeparators;
    EXPECT_EQ(StripTrailingSeparators("C:\\Data\\\\"), "C:\\Data");
    EXPECT_EQ(StripTrailingSeparators("C:\\Data"), "C:\\Data");
    EXPECT_EQ(StripTrailingSeparators("C:\\Data\\ "), "C:\\Data\\ ");
    EXPECT_EQ(StripTrailingSeparators("\\"), "");
    EXPECT_EQ(StripTrailingSeparators(""), "");
}

TEST_F(OptionsModelTest, NamesComeFromTheRegistry) {
    Add("Machines\\M1", "Bridge 900");
    Add("Machines\\M2", "");
    std::string name = "before";
    OptionsModel::ShowName("Machines\\M9", name);
    EXPECT_EQ(name, "before");
    OptionsModel::ShowName("Machines\\M1", name);
    EXPECT_EQ(name, "Bridge 900");
    OptionsModel::ShowName("Machines\\M2", name);
    EXPECT_EQ(name, "");
}

TEST_F(OptionsModelTest, LoadAndApplyCarryEverySetting) {
    Add("Machines\\M1", "Bridge 900");
    Add("Users\\U1", "Smith");
    NeskRegistry settings;
    settings.NeskRoot = "C:\\Root\\";
    settings.DefaultSlideDirectory = "C:\\Slides\\\\";
    settings.DefaultBitmapDirectory = "C:\\Pictures\\";
    settings.HistoryDirectory = "C:\\History\\";
    settings.HistoryTitle = "Title";
    settings.HistoryMaxParts = 35;
    settings.SampleSize = -3;
    settings.NeskMachine = "Machines\\M1";
    settings.NeskUser = "Users\\U1";
    settings.ExitKey = "77";
    settings.PrinterDevice = "a";
    settings.PrinterDriver = "b";
    settings.PrinterOrientation = "c";
    settings.PrinterPaperSize = "d";
    settings.PrinterPaperBin = "e";
    settings.PrinterQuality = "f";
    settings.PrinterZoom = "g";
    const OptionsFields loaded = OptionsModel::Load(settings);
    EXPECT_EQ(loaded.root, "C:\\Root\\");
    EXPECT_EQ(loaded.machine, "Bridge 900");
    EXPECT_EQ(loaded.user, "Smith");
    EXPECT_EQ(loaded.maxParts, "35");
    EXPECT_EQ(loaded.sampleSize, "-3");
    EXPECT_EQ(loaded.printer, (platform::PrinterValues{"a", "b", "c", "d", "e", "f", "g"}));

    NeskRegistry stored;
    stored.ExitKey = "kept";
    OptionsModel::Apply(loaded, {35, -3}, stored);
    EXPECT_EQ(stored.NeskRoot, "C:\\Root");
    EXPECT_EQ(stored.DefaultSlideDirectory, "C:\\Slides");
    EXPECT_EQ(stored.DefaultBitmapDirectory, "C:\\Pictures");
    EXPECT_EQ(stored.HistoryDirectory, "C:\\History\\") << "taken as the history dialog gave it";
    EXPECT_EQ(stored.HistoryTitle, "Title");
    EXPECT_EQ(stored.HistoryMaxParts, 35);
    EXPECT_EQ(stored.SampleSize, -3);
    EXPECT_EQ(stored.NeskMachine, "Machines\\M1");
    EXPECT_EQ(stored.NeskUser, "Users\\U1");
    EXPECT_EQ(stored.ExitKey, "kept");
    EXPECT_EQ(stored.PrinterDevice, "a");
    EXPECT_EQ(stored.PrinterDriver, "b");
    EXPECT_EQ(stored.PrinterOrientation, "c");
    EXPECT_EQ(stored.PrinterPaperSize, "d");
    EXPECT_EQ(stored.PrinterPaperBin, "e");
    EXPECT_EQ(stored.PrinterQuality, "f");
    EXPECT_EQ(stored.PrinterZoom, "g");
}

TEST_F(OptionsModelTest, LoadAppliesTheHistoryRule) {
    NeskRegistry settings;
    settings.HistoryMaxParts = 20;
    settings.SampleSize = 5;
    const OptionsFields loaded = OptionsModel::Load(settings);
    EXPECT_EQ(loaded.maxParts, "0");
    EXPECT_EQ(loaded.sampleSize, "0");
    EXPECT_EQ(loaded.machine, "");
}

TEST_F(OptionsModelTest, RootFoldersThatCanBeMade) {
    station.Write("C:\\Data\\file", "");
    for (const char* root : {"C:\\New", "c:\\Data\\New\\", "\\\\server\\share\\x"})
        EXPECT_TRUE(OptionsModel::RootCanBeMade(root)) << root;
    for (const char* root : {"", "C:\\Data", "C:\\Data\\file", "New", "C:", "C:\\", "C:New", "\\New", "\\\\",
                             "1:\\x", "Q:\\New"})
        EXPECT_FALSE(OptionsModel::RootCanBeMade(root)) << root;
}

} // namespace
} // namespace nesk
