#include "partedit/DriveChoice.h"

#include "shell/modUtilities.h"
#include "unit/CoreFixture.h"
#include "unit/Errors.h"

namespace nesk::DriveChoice {
namespace {

class DriveChoiceTest : public nesk::testing::CoreTest {};

TEST_F(DriveChoiceTest, DrivesAreListedInCapitals) {
    station.AddDrive('D');
    EXPECT_EQ(Labels(), (std::vector<std::string>{"C:", "D:", "Z:"}));
}

TEST_F(DriveChoiceTest, AListedDriveStandsForItsRoot) {
    EXPECT_EQ(Root("c:"), "C:\\");
    EXPECT_EQ(Root("D: [Data]"), "D:\\");
    EXPECT_EQ(Root(""), "");
    EXPECT_EQ(Root("1:"), "");
    EXPECT_EQ(Letter("z:"), 'Z');
    EXPECT_EQ(Letter(":"), '\0');
}

TEST_F(DriveChoiceTest, ADriveIsFoundByItsLetter) {
    const std::vector<std::string> labels{"c:", "d:", "z:"};
    EXPECT_EQ(IndexOf(labels, 'C'), 0);
    EXPECT_EQ(IndexOf(labels, 'z'), 2);
    EXPECT_EQ(IndexOf(labels, 'E'), -1);
}

TEST_F(DriveChoiceTest, ADriveThatIsNotReadyIsAnError) {
    EXPECT_NO_THROW(RequireReady('C'));
    const NeskError error = nesk::testing::ErrorOf([] { RequireReady('d'); });
    EXPECT_EQ(error.number, 71);
    EXPECT_NE(modUtilities::MessageText(error).find("D:\\"), std::string::npos);
}

} // namespace
} // namespace nesk::DriveChoice
