#include "settings/RegistryListEditor.h"

#include "base/Messages.h"
#include "base/NeskError.h"
#include "settings/RegEntry.h"
#include "settings/RegistryList.h"
#include "unit/CoreFixture.h"

namespace nesk {
namespace {

using Texts = std::vector<std::string>;

class RegistryListEditorTest : public testing::CoreTest {};

TEST_F(RegistryListEditorTest, OnlyAStationThatIsAFolderHasItsListsMadeHere) {
#ifdef NESK_PORTABLE_STATION
    EXPECT_TRUE(RegistryListEditor::MayEdit());
#else
    EXPECT_FALSE(RegistryListEditor::MayEdit());
#endif
}

TEST_F(RegistryListEditorTest, EntriesGetFreeKeys) {
    EXPECT_EQ(RegistryListEditor::Add("Machines", "  Bridge "), "Machines\\M1");
    EXPECT_EQ(RegistryListEditor::Add("Machines", "Arm"), "Machines\\M2");
    EXPECT_EQ(RegistryListEditor::Add("Users", "Smith"), "Users\\U1");
    EXPECT_EQ(RegistryList("Machines").DisplayNames(), (Texts{"Bridge", "Arm"}));
    RegistryListEditor::Remove("Machines\\M1");
    EXPECT_EQ(RegistryList("Machines").DisplayNames(), (Texts{"Arm"}));
    EXPECT_EQ(RegistryListEditor::Add("Machines", "Portal"), "Machines\\M1") << "the key is free again";
    EXPECT_EQ(RegistryList("Users").DisplayNames(), (Texts{"Smith"}));
}

TEST_F(RegistryListEditorTest, RemovingTakesWhatLiesBelow) {
    RegistryListEditor::Add("Machines", "Bridge");
    RegEntry().CreateKey("Machines\\M1\\Probes");
    RegistryListEditor::Remove("Machines\\M1");
    EXPECT_FALSE(RegEntry().TestKey("Machines\\M1"));
    EXPECT_THROW(RegistryListEditor::Remove("Machines\\M1"), NeskError) << "it is gone already";
}

TEST_F(RegistryListEditorTest, WhatIsChosenOrStoredStays) {
    const std::vector<std::string> inUse = {"Users\\U2", "users\\u1"};
    EXPECT_FALSE(RegistryListEditor::MayRemove("Users\\U2", inUse));
    EXPECT_FALSE(RegistryListEditor::MayRemove("Users\\U1", inUse)) << "case does not matter";
    EXPECT_TRUE(RegistryListEditor::MayRemove("Users\\U3", inUse));
    EXPECT_TRUE(RegistryListEditor::MayRemove("Users\\U3", {"", ""}));
    EXPECT_FALSE(RegistryListEditor::MayRemove("", inUse)) << "nothing is selected";
}

TEST_F(RegistryListEditorTest, NamesThatCannotBeStored) {
    const auto problem = [](int message) { return modStringRes::LoadResString(message); };
    EXPECT_EQ(RegistryListEditor::NameProblem("Bridge"), "");
    EXPECT_EQ(RegistryListEditor::NameProblem(std::string(255, 'x')), "");
    EXPECT_EQ(RegistryListEditor::NameProblem(""), problem(Message::NameNeeded));
    EXPECT_EQ(RegistryListEditor::NameProblem("   "), problem(Message::NameNeeded));
    EXPECT_EQ(RegistryListEditor::NameProblem(std::string(256, 'x')), problem(Message::NameTooLong));
    EXPECT_EQ(RegistryListEditor::NameProblem("日"), problem(Message::NameNotStorable));
    EXPECT_EQ(RegistryListEditor::NameProblem("a\nb"), problem(Message::NameNotStorable));
}

} // namespace
} // namespace nesk
