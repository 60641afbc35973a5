#include "settings/RegistryList.h"

#include "settings/RegEntry.h"
#include "unit/CoreFixture.h"

namespace nesk {
namespace {

using Texts = std::vector<std::string>;

class RegistryListTest : public testing::CoreTest {
protected:
    static void Add(const std::string& key, const std::string& displayName) {
        RegEntry entry;
        entry.CreateKey(key);
        entry.SetString("Name", displayName);
    }
};

TEST_F(RegistryListTest, EntriesComeInTheRegistrysOrder) {
    Add("Machines\\M2", "Portal");
    Add("Machines\\M1", "Bridge");
    Add("Machines\\M3", "Arm");
    Add("Users\\U1", "Nobody's machine");
    Texts names;
    RegEntry entry;
    entry.OpenKey("Machines");
    entry.Query(names);
    const RegistryList list("Machines");
    ASSERT_EQ(list.DisplayNames().size(), 3u);
    for (int i = 0; i < 3; ++i) {
        const std::string key = "Machines\\" + names[static_cast<std::size_t>(i)];
        EXPECT_EQ(list.KeyAt(i), key);
        entry.OpenKey(key);
        EXPECT_EQ(list.DisplayNames()[static_cast<std::size_t>(i)], entry.GetString("Name"));
    }
}

TEST_F(RegistryListTest, EqualNamesAreTwoEntries) {
    Add("Users\\A", "Smith");
    Add("Users\\B", "Smith");
    const RegistryList list("Users");
    EXPECT_EQ(list.DisplayNames(), (Texts{"Smith", "Smith"}));
    EXPECT_EQ(list.KeyAt(0), "Users\\A");
    EXPECT_EQ(list.KeyAt(1), "Users\\B");
}

TEST_F(RegistryListTest, AnEntryWithoutANameIsAnEmptyLine) {
    Add("Machines\\M1", "Bridge");
    Add("Machines\\M2", "");
    const RegistryList list("Machines");
    EXPECT_EQ(list.DisplayNames(), (Texts{"Bridge", ""}));
    EXPECT_EQ(list.KeyAt(1), "Machines\\M2");
}

TEST_F(RegistryListTest, AnEntryIsFoundByItsKey) {
    Add("Machines\\M1", "Bridge");
    Add("Machines\\M2", "Portal");
    const RegistryList list("Machines");
    for (int i = 0; i < 2; ++i)
        EXPECT_EQ(list.PositionOf(list.KeyAt(i)), i);
    EXPECT_EQ(list.PositionOf("machines\\m2"), list.PositionOf("Machines\\M2"));
    for (const char* key : {"", "M1", "Machines\\M3", "Users\\M1"})
        EXPECT_EQ(list.PositionOf(key), -1) << key;
}

TEST_F(RegistryListTest, PositionsOutsideHaveNoKey) {
    Add("Machines\\M1", "Bridge");
    const RegistryList list("Machines");
    EXPECT_EQ(list.KeyAt(-1), "");
    EXPECT_EQ(list.KeyAt(1), "");
}

TEST_F(RegistryListTest, AKeyWithoutSubkeysIsAnEmptyList) {
    RegEntry entry;
    entry.CreateKey("Machines");
    entry.SetString("Name", "not an entry");
    const RegistryList list("Machines");
    EXPECT_TRUE(list.DisplayNames().empty());
    EXPECT_EQ(list.KeyAt(0), "");
}

TEST_F(RegistryListTest, FiveHundredEntries) {
    for (int i = 0; i < 500; ++i)
        Add("Machines\\M" + std::to_string(10000 + i), "machine " + std::to_string(i));
    const RegistryList list("Machines");
    ASSERT_EQ(list.DisplayNames().size(), 500u);
    EXPECT_EQ(list.DisplayNames().back(), "machine 499");
    EXPECT_EQ(list.KeyAt(499), "Machines\\M10499");
}

TEST_F(RegistryListTest, EntriesWhoseNamesCannotBeShown) {
    const std::string longest(255, 'x');
    Add("Machines\\1", longest);
    Add("Machines\\2", longest + "x");
    Add("Machines\\3", "line\nbreak\ttab");
    const RegistryList list("Machines");
    EXPECT_EQ(list.DisplayNames(), (Texts{longest, "", "line\nbreak\ttab"}))
        << "too long a text is read as none";
}

#ifdef NESK_PORTABLE_STATION
// On this station the list is made with this program, so a list that was never made is not an error.
TEST_F(RegistryListTest, AMissingKeyIsAnEmptyList) {
    EXPECT_TRUE(RegistryList("Machines").DisplayNames().empty()) << "without a store at all";
    Add("Users\\U1", "Smith");
    EXPECT_TRUE(RegistryList("Machines").DisplayNames().empty());
    EXPECT_TRUE(messages.empty());
}

TEST_F(RegistryListTest, AStoreThatCannotBeReadIsReported) {
    station.BreakSettings();
    Expect();
    EXPECT_TRUE(RegistryList("Machines").DisplayNames().empty());
    ASSERT_EQ(messages.size(), 1u);
    EXPECT_NE(messages[0].text.find("5001"), std::string::npos) << messages[0].text;
}
#else
TEST_F(RegistryListTest, AMissingKeyIsReported) {
    Add("Users\\U1", "Smith");
    Expect();
    const RegistryList list("Machines");
    EXPECT_TRUE(list.DisplayNames().empty());
    ASSERT_EQ(messages.size(), 1u);
    EXPECT_NE(messages[0].text.find("5001"), std::string::npos) << messages[0].text;
    EXPECT_NE(messages[0].text.find("SOFTWARE\\Quarndale\\Machines"), std::string::npos) << messages[0].text;
}
#endif

} // namespace
} // namespace nesk
