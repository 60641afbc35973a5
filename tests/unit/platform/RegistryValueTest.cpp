#include "unit/platform/RegistryFixture.h"

namespace nesk::platform {
namespace {

using namespace std::string_literals;
using Names = std::vector<std::string>;

class RegistryValueTest : public testing::RegistryKeyFixture {};

TEST_F(RegistryValueTest, ReadsWhatWasWritten) {
    const RegKey key = Create("A");
    struct Sample {
        std::uint32_t type;
        std::string data;
    };
    for (const Sample& sample : std::vector<Sample>{{RegType::Text, "text"},
                                                    {RegType::Text, "text\0"s},
                                                    {RegType::Text, ""},
                                                    {RegType::Text, "\0"s},
                                                    {RegType::Text, "Gr\xF6\xDF\x65 \x80"},
                                                    {RegType::ExpandText, "%SystemRoot%\\\xFC"},
                                                    {RegType::MultiText, "one\0zw\xF6lf\0\0"s},
                                                    {RegType::Binary, "\x00\x81\xFF\xE4"s},
                                                    {RegType::Binary, ""},
                                                    {RegType::Number, "\x05\0\0\x80"s},
                                                    {RegType::LongNumber, "\x01\x02\x03\x04\x05\x06\x07\x88"},
                                                    {RegType::None, "\xE4\0"s},
                                                    {0xFFFFFFFF, "\xE4"}}) {
        ASSERT_EQ(ErrorCode::Success, Set(key, "x", sample.data, sample.type));
        std::string data(64, '#');
        auto size = static_cast<std::uint32_t>(data.size());
        std::uint32_t type = 77;
        ASSERT_EQ(ErrorCode::Success, Reg().QueryValue(key, "x", &type, data.data(), &size));
        EXPECT_EQ(sample.type, type);
        EXPECT_EQ(sample.data, data.substr(0, size));
        std::string rest(64 - size, '#');
#ifndef NESK_PORTABLE_STATION
        // If there is room, Windows adds a zero to a text that was stored without one.
        if (sample.type == RegType::Text || sample.type == RegType::ExpandText)
            if (!sample.data.empty() && sample.data.back() != '\0') rest.front() = '\0';
#endif
        EXPECT_EQ(rest, data.substr(size)) << "nothing else may be written behind the data";
    }
    EXPECT_EQ(Names{"x"}, Values(key));
}

TEST_F(RegistryValueTest, CountsBytesOfTheCodePage) {
    const RegKey key = Create("A");
    ASSERT_EQ(ErrorCode::Success, Set(key, "\xE4\xF6\xFC", "\xE4\xF6\xFC\x80"));
    std::uint32_t size = 0;
    ASSERT_EQ(ErrorCode::Success, Reg().QueryValue(key, "\xC4\xD6\xDC", nullptr, nullptr, &size));
    EXPECT_EQ(4U, size);
    std::array<char, 4> name{};
    std::uint32_t nameSize = 4;
    ASSERT_EQ(ErrorCode::Success, Reg().EnumValue(key, 0, name.data(), &nameSize, nullptr, nullptr, &size));
    EXPECT_EQ(3U, nameSize);
    EXPECT_STREQ("\xE4\xF6\xFC", name.data());
}

TEST_F(RegistryValueTest, GivesEveryByteOfATextBack) {
    for (const int language : {1033, 1041, 1042, 2052, 1028, 1049, 1032}) {
        SelectCodePage(language);
        const RegKey key = Create("A");
        std::string text;
        for (int byte = 1; byte < 256; ++byte) {
            text += static_cast<char>(byte);
            text += ' ';
        }
        ASSERT_EQ(ErrorCode::Success, Set(key, "x", text));
        EXPECT_EQ(text, Get(key, "x")) << language;
    }
}

#ifdef NESK_PORTABLE_STATION
// Windows has only one code page, the system's own.
TEST_F(RegistryValueTest, AnswersAQuestionMarkForWhatTheCodePageLacks) {
    SelectCodePage(1041);
    const RegKey key = Create("A\\\x95\x5C\x95\x69");
    ASSERT_EQ(ErrorCode::Success, Set(key, "\x95\x5C", "<\x95\x5C>\0"s));
    SelectCodePage(1033);
    EXPECT_EQ(Names{"??"}, Subkeys(Create("A")));
    std::array<char, 16> name{};
    std::array<char, 16> data{};
    std::uint32_t nameSize = 16;
    std::uint32_t size = 16;
    ASSERT_EQ(ErrorCode::Success,
              Reg().EnumValue(key, 0, name.data(), &nameSize, nullptr, data.data(), &size));
    EXPECT_STREQ("?", name.data());
    EXPECT_EQ("<?>\0"s, std::string(data.data(), size));
}
#endif

TEST_F(RegistryValueTest, MatchesValuesWithoutRegardToCase) {
    const RegKey key = Create("A");
    ASSERT_EQ(ErrorCode::Success, Set(key, "Gr\xF6sse", "1"));
    ASSERT_EQ(ErrorCode::Success, Set(key, "GR\xD6SSE", "2"));
    EXPECT_EQ("2", Get(key, "gr\xF6sse"));
    EXPECT_EQ(Names{"Gr\xF6sse"}, Values(key)) << "the spelling is the first one";
}

TEST_F(RegistryValueTest, HasAValueWithoutName) {
    const RegKey key = Create("A");
    EXPECT_EQ(std::nullopt, Get(key, ""));
    ASSERT_EQ(ErrorCode::Success, Set(key, "", "default"));
    EXPECT_EQ("default", Get(key, ""));
    EXPECT_EQ(Names{""}, Values(key));
}

TEST_F(RegistryValueTest, FollowsTheRulesOfSizes) {
    const RegKey key = Create("A");
    ASSERT_EQ(ErrorCode::Success, Set(key, "x", "12345"));
    std::string data = "########";
    for (std::uint32_t capacity = 0; capacity < 5; ++capacity) {
        std::uint32_t size = capacity;
        EXPECT_EQ(ErrorCode::MoreData, Reg().QueryValue(key, "x", nullptr, data.data(), &size));
        EXPECT_EQ(5U, size);
        EXPECT_EQ("########", data);
    }
    std::uint32_t size = 5;
    EXPECT_EQ(ErrorCode::Success, Reg().QueryValue(key, "x", nullptr, data.data(), &size));
    EXPECT_EQ("12345###", data);

    std::uint32_t type = 77;
    size = 0;
    EXPECT_EQ(ErrorCode::Success, Reg().QueryValue(key, "x", &type, nullptr, &size));
    EXPECT_EQ(5U, size);
    EXPECT_EQ(RegType::Text, type);
    type = 77;
    EXPECT_EQ(ErrorCode::Success, Reg().QueryValue(key, "x", &type, nullptr, nullptr));
    EXPECT_EQ(RegType::Text, type);
    EXPECT_EQ(ErrorCode::InvalidParameter, Reg().QueryValue(key, "x", nullptr, data.data(), nullptr));
    EXPECT_EQ(ErrorCode::FileNotFound, Reg().QueryValue(key, "y", nullptr, data.data(), &size));
}

TEST_F(RegistryValueTest, HoldsLargeValues) {
    const RegKey key = Create("A");
    std::string large(1 << 20, 'x');
    large[1000] = '\xE4';
    ASSERT_EQ(ErrorCode::Success, Set(key, "x", large));
    EXPECT_EQ(large, Get(key, "x"));
    ASSERT_EQ(ErrorCode::Success, Set(key, "x", "small"));
    EXPECT_EQ("small", Get(key, "x"));
}

TEST_F(RegistryValueTest, LimitsTheLengthOfAValueName) {
    const RegKey key = Create("A");
    const std::string longest(16383, 'n');
    ASSERT_EQ(ErrorCode::Success, Set(key, longest, "1"));
    EXPECT_EQ("1", Get(key, longest));
    EXPECT_EQ(ErrorCode::InvalidParameter, Set(key, longest + "n", "1"));
    EXPECT_EQ(std::nullopt, Get(key, longest + "n"));
}

TEST_F(RegistryValueTest, DeletesValues) {
    const RegKey key = Create("A");
    ASSERT_EQ(ErrorCode::Success, Set(key, "Gr\xF6sse", "1"));
    ASSERT_EQ(ErrorCode::Success, Set(key, "other", "2"));
    EXPECT_EQ(ErrorCode::Success, Reg().DeleteValue(key, "GR\xD6SSE"));
    EXPECT_EQ(Names{"other"}, Values(key));
    EXPECT_EQ(ErrorCode::FileNotFound, Reg().DeleteValue(key, "Gr\xF6sse"));
}

#ifdef NESK_PORTABLE_STATION
// Windows does this too but does not guarantee it; Wine sorts values by name.
TEST_F(RegistryValueTest, EnumeratesValuesInTheOrderOfTheirFirstWriting) {
    const RegKey key = Create("A");
    for (const char* name : {"z", "m", "a", "", "b"})
        ASSERT_EQ(ErrorCode::Success, Set(key, name, name));
    ASSERT_EQ(ErrorCode::Success, Set(key, "M", "again"));
    EXPECT_EQ((Names{"z", "m", "a", "", "b"}), Values(key));
    ASSERT_EQ(ErrorCode::Success, Reg().DeleteValue(key, "z"));
    ASSERT_EQ(ErrorCode::Success, Set(key, "z", "new"));
    EXPECT_EQ((Names{"m", "a", "", "b", "z"}), Values(key));
}
#endif

TEST_F(RegistryValueTest, EndsAnEnumeration) {
    const RegKey key = Create("A");
    std::array<char, 16> buffer{};
    std::uint32_t size = 16;
    EXPECT_EQ(ErrorCode::NoMoreItems, Reg().EnumKey(key, 0, buffer.data(), 16));
    EXPECT_EQ(ErrorCode::NoMoreItems, Reg().EnumKey(Root(), 1, buffer.data(), 16));
    EXPECT_EQ(ErrorCode::NoMoreItems, Reg().EnumKey(Root(), 0xFFFFFFFF, buffer.data(), 16));
    EXPECT_EQ(ErrorCode::NoMoreItems,
              Reg().EnumValue(key, 0, buffer.data(), &size, nullptr, nullptr, nullptr));
}

TEST_F(RegistryValueTest, NeedsRoomForANameAndItsZero) {
    const RegKey key = Create("A");
    Create("abcd", key);
    ASSERT_EQ(ErrorCode::Success, Set(key, "efgh", "1"));
    for (std::uint32_t capacity = 0; capacity < 5; ++capacity) {
        std::string name = "########";
        std::uint32_t size = capacity;
        EXPECT_EQ(ErrorCode::MoreData, Reg().EnumKey(key, 0, name.data(), capacity));
        EXPECT_EQ("########", name);
        EXPECT_EQ(ErrorCode::MoreData,
                  Reg().EnumValue(key, 0, name.data(), &size, nullptr, nullptr, nullptr));
#ifdef NESK_PORTABLE_STATION
        // Wine writes the part of the name that fits.
        EXPECT_EQ("########", name);
#else
        EXPECT_EQ(std::string(8 - capacity, '#'), name.substr(capacity));
#endif
    }
    std::string name = "########";
    std::uint32_t size = 5;
    EXPECT_EQ(ErrorCode::Success, Reg().EnumKey(key, 0, name.data(), 5));
    EXPECT_EQ("abcd\0###"s, name);
    EXPECT_EQ(ErrorCode::Success, Reg().EnumValue(key, 0, name.data(), &size, nullptr, nullptr, nullptr));
    EXPECT_EQ("efgh\0###"s, name);
    EXPECT_EQ(4U, size);
}

TEST_F(RegistryValueTest, EnumeratesTypeAndData) {
    const RegKey key = Create("A");
    ASSERT_EQ(ErrorCode::Success, Set(key, "number", "\x01\x02\x03\x04", RegType::Number));
    std::array<char, 16> name{};
    std::string data = "########";
    std::uint32_t nameSize = 16;
    std::uint32_t type = 77;
    std::uint32_t size = 3;
    EXPECT_EQ(ErrorCode::MoreData,
              Reg().EnumValue(key, 0, name.data(), &nameSize, &type, data.data(), &size));
    EXPECT_EQ(4U, size);
    EXPECT_EQ("########", data);
    nameSize = 16;
    EXPECT_EQ(ErrorCode::Success, Reg().EnumValue(key, 0, name.data(), &nameSize, &type, data.data(), &size));
    EXPECT_EQ(RegType::Number, type);
    EXPECT_EQ("\x01\x02\x03\x04####", data);
    nameSize = 16;
    size = 0;
    EXPECT_EQ(ErrorCode::Success, Reg().EnumValue(key, 0, name.data(), &nameSize, &type, nullptr, &size));
    EXPECT_EQ(4U, size);
}

} // namespace
} // namespace nesk::platform
