#include "settings/PrinterChoice.h"

#include "unit/CoreFixture.h"

namespace nesk::PrinterChoice {
namespace {

using platform::PrinterSetupResult;
using platform::PrinterValues;

class PrinterChoiceTest : public nesk::testing::CoreTest {
protected:
    PrinterValues Taken(PrinterSetupResult result) const {
        PrinterValues values = before;
        Take(values, chosen, result);
        return values;
    }

    const PrinterValues before{"Laser", "laserdrv", "1", "9", "7", "-3", "100"};
    const PrinterValues chosen{"PDF", "file", "2", "8", "7", "-4", "75"};
};

TEST_F(PrinterChoiceTest, ThePrinterIsShown) {
    EXPECT_EQ(Shown(before), "Printer: Laser");
    EXPECT_EQ(Shown({}), "No printer is chosen.");
    EXPECT_EQ(Texts(before).title, "Printer setup");
    EXPECT_NE(Texts(before).missing.find("\"Laser\""), std::string::npos);
}

TEST_F(PrinterChoiceTest, WhatIsChosenIsTaken) {
    EXPECT_EQ(Taken(PrinterSetupResult::Confirmed), chosen);
    EXPECT_EQ(Taken(PrinterSetupResult::Cancelled), before);
}

TEST_F(PrinterChoiceTest, AStandInIsTakenOnPurposeAlone) {
    Expect(modMessageBox::Result::Yes);
    EXPECT_EQ(Taken(PrinterSetupResult::StandIn), chosen);
    for (const std::int16_t answer : {modMessageBox::Result::No, modMessageBox::Result::None}) {
        Expect(answer);
        EXPECT_EQ(Taken(PrinterSetupResult::StandIn),
                  (PrinterValues{"Laser", "laserdrv", "2", "8", "7", "-4", "75"}));
    }
    EXPECT_EQ(messages.front().title, "Printer setup");
    EXPECT_EQ(messages.front().options, 0x124) << "Yes and No, a question, and No is the default";
    for (const char* name : {"\"Laser\"", "\"PDF\""})
        EXPECT_NE(messages.front().text.find(name), std::string::npos) << name;
}

} // namespace
} // namespace nesk::PrinterChoice
