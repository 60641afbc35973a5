#include "unit/platform/RegistryFixture.h"

namespace nesk::platform {
namespace {

using Names = std::vector<std::string>;

class RegistryTest : public testing::RegistryKeyFixture {};

// --- keys ----------------------------------------------------------------------------------------

TEST_F(RegistryTest, CreatesEveryLevel) {
    Create("SOFTWARE\\Maker\\Product");
    EXPECT_EQ(ErrorCode::Success, OpenResult("SOFTWARE"));
    EXPECT_EQ(ErrorCode::Success, OpenResult("SOFTWARE\\Maker"));
    EXPECT_EQ(ErrorCode::Success, OpenResult("SOFTWARE\\Maker\\Product"));
    EXPECT_EQ(ErrorCode::FileNotFound, OpenResult("SOFTWARE\\Maker\\Other"));
    EXPECT_EQ(ErrorCode::FileNotFound, OpenResult("Maker"));
    EXPECT_EQ(ErrorCode::FileNotFound, OpenResult("SOFTWARE\\Product"));
}

TEST_F(RegistryTest, OpensBelowAKey) {
    const RegKey maker = Create("SOFTWARE\\Maker");
    const RegKey product = Create("Product\\Part", maker);
    ASSERT_EQ(ErrorCode::Success, Set(product, "x", "1"));
    RegKey again = 0;
    ASSERT_EQ(ErrorCode::Success, Reg().OpenKey(maker, "product\\part", RegAccess::Read, again));
    EXPECT_NE(product, again);
    EXPECT_EQ("1", Get(again, "x"));
}

TEST_F(RegistryTest, EmptyPathIsTheParent) {
    const RegKey maker = Create("Maker");
    RegKey same = 0;
    ASSERT_EQ(ErrorCode::Success, Reg().OpenKey(maker, "", RegAccess::ReadWrite, same));
    EXPECT_NE(maker, same);
    ASSERT_EQ(ErrorCode::Success, Set(same, "x", "1"));
    EXPECT_EQ("1", Get(maker, "x"));
    EXPECT_EQ(ErrorCode::Success, Reg().CloseKey(same));
    EXPECT_EQ("1", Get(maker, "x"));
    RegKey root = 0;
    ASSERT_EQ(ErrorCode::Success, Reg().OpenKey(Root(), "", RegAccess::Read, root));
    EXPECT_EQ(Names{"Maker"}, Subkeys(root));
}

TEST_F(RegistryTest, CreatingAKeyThatExistsKeepsIt) {
    const RegKey first = Create("Maker\\Product");
    ASSERT_EQ(ErrorCode::Success, Set(first, "x", "1"));
    const RegKey second = Create("MAKER\\PRODUCT");
    EXPECT_EQ("1", Get(second, "x"));
    EXPECT_EQ(Names{"Maker"}, Subkeys(Root()));
    EXPECT_EQ(Names{"Product"}, Subkeys(Create("Maker")));
}

TEST_F(RegistryTest, JudgesSeparators) {
    Create("A\\B");
    EXPECT_EQ(ErrorCode::BadPathName, OpenResult("\\A"));
    EXPECT_EQ(ErrorCode::BadPathName, OpenResult("\\"));
    EXPECT_EQ(ErrorCode::Success, OpenResult("A\\"));
    EXPECT_EQ(ErrorCode::Success, OpenResult("A\\B\\"));
    EXPECT_EQ(ErrorCode::Success, OpenResult("A\\\\B"));
    RegKey key = 1;
    EXPECT_EQ(ErrorCode::BadPathName, Reg().CreateKey(Root(), "\\C", RegAccess::ReadWrite, key));
    EXPECT_EQ(0U, key);
    Create("C\\\\D\\");
    EXPECT_EQ(ErrorCode::Success, OpenResult("C\\D"));
    // A slash is an ordinary character.
    EXPECT_EQ(ErrorCode::FileNotFound, OpenResult("A/B"));
}

TEST_F(RegistryTest, MatchesKeysWithoutRegardToCase) {
    Create("Maschinen\\Pr\xE4zision");
    EXPECT_EQ(ErrorCode::Success, OpenResult("MASCHINEN\\PR\xC4ZISION"));
    EXPECT_EQ(ErrorCode::Success, OpenResult("maschinen\\pr\xE4zision"));
    EXPECT_EQ(ErrorCode::FileNotFound, OpenResult("Maschinen\\Prazision"));
    EXPECT_EQ(Names{"Pr\xE4zision"}, Subkeys(Create("MASCHINEN")));
}

TEST_F(RegistryTest, LimitsTheLengthOfAKeyName) {
    const std::string longest(255, '\xE4');
    EXPECT_EQ(ErrorCode::Success, Set(Create("A\\" + longest), "x", "1"));
    EXPECT_EQ(Names{longest}, Subkeys(Create("A")));
#ifdef NESK_PORTABLE_STATION
    // Wine creates keys with longer names, unlike Windows.
    RegKey key = 1;
    EXPECT_EQ(ErrorCode::InvalidParameter,
              Reg().CreateKey(Root(), "B\\" + longest + "x\\C", RegAccess::ReadWrite, key));
    EXPECT_EQ(0U, key);
    EXPECT_EQ(ErrorCode::FileNotFound, OpenResult("B")) << "nothing may be created by halves";
#endif
}

#ifdef NESK_PORTABLE_STATION
// Windows has only one code page, the system's own.
TEST_F(RegistryTest, CountsCharactersOfTwoBytesOnce) {
    SelectCodePage(1041);
    std::string longest;
    for (int i = 0; i < 255; ++i)
        longest += "\x83\x5C";
    Create(longest);
    EXPECT_EQ(Names{longest}, Subkeys(Root()));
    RegKey key = 0;
    EXPECT_EQ(ErrorCode::InvalidParameter, Reg().CreateKey(Root(), longest + "x", RegAccess::ReadWrite, key));
}
#endif

// --- handles -------------------------------------------------------------------------------------

TEST_F(RegistryTest, RefusesAHandleThatIsNotOpen) {
    const RegKey closed = Create("A");
    ASSERT_EQ(ErrorCode::Success, Reg().CloseKey(closed));
    std::vector<RegKey> notOpen{RegKey{0}, RegKey{12345}, closed};
#ifdef NESK_PORTABLE_STATION
    // On Windows the root of the user's settings is always open too.
    notOpen.push_back(0x80000001);
#endif
    for (const RegKey key : notOpen) {
        RegKey opened = 1;
        std::array<char, 16> buffer{};
        std::uint32_t size = 16;
        std::uint32_t nameSize = 16;
        EXPECT_EQ(ErrorCode::InvalidHandle, Reg().OpenKey(key, "x", RegAccess::Read, opened));
        EXPECT_EQ(0U, opened);
        EXPECT_EQ(ErrorCode::InvalidHandle, Reg().CreateKey(key, "x", RegAccess::Read, opened));
        EXPECT_EQ(ErrorCode::InvalidHandle, Reg().CloseKey(key));
        EXPECT_EQ(ErrorCode::InvalidHandle, Reg().QueryValue(key, "x", nullptr, buffer.data(), &size));
        EXPECT_EQ(ErrorCode::InvalidHandle, Set(key, "x", "1"));
        EXPECT_EQ(ErrorCode::InvalidHandle, Reg().DeleteValue(key, "x"));
        EXPECT_EQ(ErrorCode::InvalidHandle, Reg().DeleteKey(key, "x"));
        EXPECT_EQ(ErrorCode::InvalidHandle, Reg().EnumKey(key, 0, buffer.data(), 16));
        EXPECT_EQ(ErrorCode::InvalidHandle,
                  Reg().EnumValue(key, 0, buffer.data(), &nameSize, nullptr, nullptr, nullptr));
    }
}

TEST_F(RegistryTest, TellsThatTheKeyWasDeleted) {
    const RegKey key = Create("A\\B");
    ASSERT_EQ(ErrorCode::Success, Reg().DeleteKey(Root(), "A\\B"));
    std::array<char, 16> buffer{};
    std::uint32_t size = 16;
    std::uint32_t nameSize = 16;
    RegKey opened = 1;
    EXPECT_EQ(ErrorCode::KeyDeleted, Reg().OpenKey(key, "x", RegAccess::Read, opened));
    EXPECT_EQ(ErrorCode::KeyDeleted, Reg().CreateKey(key, "x", RegAccess::ReadWrite, opened));
    EXPECT_EQ(0U, opened);
    EXPECT_EQ(ErrorCode::KeyDeleted, Reg().QueryValue(key, "x", nullptr, buffer.data(), &size));
    EXPECT_EQ(ErrorCode::KeyDeleted, Set(key, "x", "1"));
    EXPECT_EQ(ErrorCode::KeyDeleted, Reg().DeleteValue(key, "x"));
    EXPECT_EQ(ErrorCode::KeyDeleted, Reg().DeleteKey(key, "x"));
    EXPECT_EQ(ErrorCode::KeyDeleted, Reg().EnumKey(key, 0, buffer.data(), 16));
    EXPECT_EQ(ErrorCode::KeyDeleted,
              Reg().EnumValue(key, 0, buffer.data(), &nameSize, nullptr, nullptr, nullptr));
    // A new key of the same name is a different key.
    ASSERT_EQ(ErrorCode::Success, Set(Create("A\\B"), "x", "1"));
    EXPECT_EQ(ErrorCode::KeyDeleted, Reg().QueryValue(key, "x", nullptr, buffer.data(), &size));
    EXPECT_EQ(ErrorCode::Success, Reg().CloseKey(key));
}

TEST_F(RegistryTest, KeepsTheRootOpen) {
    EXPECT_EQ(ErrorCode::Success, Reg().CloseKey(LocalMachine));
    EXPECT_EQ(ErrorCode::Success, Reg().CloseKey(LocalMachine));
    RegKey key = 0;
    ASSERT_EQ(ErrorCode::Success,
              Reg().OpenKey(LocalMachine, "SOFTWARE\\Quarndale\\Test", RegAccess::ReadWrite, key));
    ASSERT_EQ(ErrorCode::Success, Set(key, "x", "1"));
    EXPECT_EQ("1", Get(Root(), "x"));
    EXPECT_EQ(ErrorCode::Success, Reg().CloseKey(key));
#ifdef NESK_PORTABLE_STATION
    // On Windows a test must not write into the real root.
    ASSERT_EQ(ErrorCode::Success, Set(LocalMachine, "x", "1"));
    EXPECT_EQ("1", Get(LocalMachine, "x"));
    EXPECT_EQ(Names{"x"}, Values(LocalMachine));
#endif
}

TEST_F(RegistryTest, AsksForTheRightsOfAHandle) {
    Create("A\\B");
    const RegKey reading = Create("A", Root(), RegAccess::Read);
    RegKey key = 1;
    EXPECT_EQ(ErrorCode::AccessDenied, Set(reading, "x", "1"));
    EXPECT_EQ(ErrorCode::AccessDenied, Reg().DeleteValue(reading, "x"));
#ifdef NESK_PORTABLE_STATION
    // When Windows creates a subkey, it checks the rights of the key itself and not those of the handle, as
    // documented.
    EXPECT_EQ(ErrorCode::AccessDenied, Reg().CreateKey(reading, "C", RegAccess::ReadWrite, key));
    EXPECT_EQ(0U, key);
#endif
    EXPECT_EQ(Names{"B"}, Subkeys(reading));
    EXPECT_EQ(std::nullopt, Get(reading, "x"));
    ASSERT_EQ(ErrorCode::Success, Reg().OpenKey(reading, "B", RegAccess::ReadWrite, key));

    const RegKey writing = Create("A", Root(), RegAccess::Write);
    std::array<char, 16> buffer{};
    std::uint32_t size = 16;
    std::uint32_t nameSize = 16;
    EXPECT_EQ(ErrorCode::Success, Set(writing, "x", "1"));
    EXPECT_EQ(ErrorCode::AccessDenied, Reg().QueryValue(writing, "x", nullptr, buffer.data(), &size));
    EXPECT_EQ(ErrorCode::AccessDenied, Reg().EnumKey(writing, 0, buffer.data(), 16));
    EXPECT_EQ(ErrorCode::AccessDenied,
              Reg().EnumValue(writing, 0, buffer.data(), &nameSize, nullptr, nullptr, nullptr));
    EXPECT_EQ(ErrorCode::Success, Reg().DeleteValue(writing, "x"));
    EXPECT_NE(0U, Create("C", writing));
}

// --- deleting and enumerating --------------------------------------------------------------------

TEST_F(RegistryTest, DeletesAKeyWithItsValues) {
    ASSERT_EQ(ErrorCode::Success, Set(Create("A\\B"), "x", "1"));
    ASSERT_EQ(ErrorCode::Success, Set(Create("A"), "x", "2"));
    EXPECT_EQ(ErrorCode::Success, Reg().DeleteKey(Create("A"), "b"));
    EXPECT_EQ(ErrorCode::FileNotFound, OpenResult("A\\B"));
    EXPECT_EQ("2", Get(Create("A"), "x"));
    EXPECT_EQ(Names{}, Values(Create("A\\B")));
}

TEST_F(RegistryTest, DeletesNoKeyThatHasSubkeys) {
    const RegKey key = Create("A\\B\\C");
    ASSERT_EQ(ErrorCode::Success, Set(key, "x", "1"));
    EXPECT_EQ(ErrorCode::AccessDenied, Reg().DeleteKey(Root(), "A"));
    EXPECT_EQ(ErrorCode::AccessDenied, Reg().DeleteKey(Root(), "A\\B"));
    EXPECT_EQ("1", Get(key, "x"));
    EXPECT_EQ(ErrorCode::Success, Reg().DeleteKey(Root(), "A\\B\\C"));
    EXPECT_EQ(ErrorCode::Success, Reg().DeleteKey(Root(), "A\\B"));
    EXPECT_EQ(ErrorCode::Success, Reg().DeleteKey(Root(), "A"));
    EXPECT_EQ(Names{}, Subkeys(Root()));
}

TEST_F(RegistryTest, RefusesToDeleteWhatIsNoSubkey) {
    const RegKey key = Create("A");
    EXPECT_EQ(ErrorCode::FileNotFound, Reg().DeleteKey(Root(), "B"));
    EXPECT_EQ(ErrorCode::FileNotFound, Reg().DeleteKey(key, "A"));
    EXPECT_EQ(ErrorCode::BadPathName, Reg().DeleteKey(Root(), "\\A"));
    EXPECT_EQ(ErrorCode::BadPathName, Reg().DeleteKey(key, "\\"));
    EXPECT_EQ(ErrorCode::InvalidParameter, Reg().DeleteKey(key, ""));
    EXPECT_EQ(ErrorCode::Success, OpenResult("A"));
}

TEST_F(RegistryTest, EnumeratesSubkeysInTheOrderOfTheirUpperCasedNames) {
    for (const char* name : {"b", "C", "a", "\xE4", "Z", "10", "9", "\xC5", "B2"})
        Create(name);
    EXPECT_EQ((Names{"10", "9", "a", "b", "B2", "C", "Z", "\xE4", "\xC5"}), Subkeys(Root()));
#ifdef NESK_PORTABLE_STATION
    // Wine sorts by lower-case names, which puts this one before all letters.
    Create("_");
    EXPECT_EQ((Names{"10", "9", "a", "b", "B2", "C", "Z", "_", "\xE4", "\xC5"}), Subkeys(Root()));
#endif
}

TEST_F(RegistryTest, EnumeratesOnlyWhatBelongsToTheKey) {
    ASSERT_EQ(ErrorCode::Success, Set(Create("A\\B\\C"), "deep", "1"));
    ASSERT_EQ(ErrorCode::Success, Set(Create("A"), "x", "1"));
    EXPECT_EQ(Names{"B"}, Subkeys(Create("A")));
    EXPECT_EQ(Names{"x"}, Values(Create("A")));
    EXPECT_EQ(Names{}, Values(Create("A\\B")));
    EXPECT_EQ(Names{}, Subkeys(Create("A\\B\\C")));
}

} // namespace
} // namespace nesk::platform
