#include "settings/RegEntry.h"
#include "base/NeskError.h"
#include "platform/ErrorCode.h"
#include "unit/CoreFixture.h"

#include <algorithm>
#include <filesystem>
#include <tuple>

namespace nesk {
namespace {

using namespace std::string_literals;
using Texts = std::vector<std::string>;

const std::string Base = "SOFTWARE\\Quarndale\\";

class RegEntryTest : public nesk::testing::CoreTest {
protected:
    // The bytes of a value as stored in the registry; "none" if the value is missing.
    static std::string Raw(const std::string& key, const std::string& name) {
        platform::Registry& registry = platform::StationRegistry();
        platform::RegKey handle = 0;
        char data[512] = {};
        std::uint32_t size = sizeof data;
        std::uint32_t type = 0;
        // Without the key, the query fails, too.
        std::ignore = registry.OpenKey(platform::LocalMachine, Base + key, platform::RegAccess::Read, handle);
        const platform::ErrorCode result = registry.QueryValue(handle, name, &type, data, &size);
        std::ignore = registry.CloseKey(handle); // it is open only if the key exists
        return result == platform::ErrorCode::Success ? std::to_string(type) + ":" + std::string(data, size)
                                                      : "none";
    }

    // Writes bytes of any type below `Base`, or at a full path of their own.
    static void SetRaw(const std::string& path, const std::string& name, std::uint32_t type,
                       const std::string& data) {
        platform::Registry& registry = platform::StationRegistry();
        platform::RegKey handle = 0;
        ASSERT_EQ(registry.CreateKey(platform::LocalMachine, path, platform::RegAccess::ReadWrite, handle),
                  platform::ErrorCode::Success);
        ASSERT_EQ(registry.SetValue(handle, name, type, data), platform::ErrorCode::Success);
        ASSERT_EQ(registry.CloseKey(handle), platform::ErrorCode::Success);
    }

    static bool Exists(const std::string& path) {
        platform::RegKey handle = 0;
        const platform::ErrorCode result = platform::StationRegistry().OpenKey(
            platform::LocalMachine, path, platform::RegAccess::Read, handle);
        std::ignore = platform::StationRegistry().CloseKey(handle); // it is open only if the key exists
        return result == platform::ErrorCode::Success;
    }

    static Texts Subkeys(RegEntry& entry) {
        Texts names;
        const std::int16_t count = entry.Query(names);
        EXPECT_EQ(static_cast<std::size_t>(count), names.size());
        return names;
    }
};

TEST_F(RegEntryTest, WithoutAnOpenKey) {
    RegEntry entry;
    entry.SetString("A", "x");
    entry.SetBoolean("A", true);
    entry.DeleteValue("A");
    entry.DeleteKey("A");
    entry.Copy("B");
    EXPECT_EQ(entry.GetString("A"), "");
    EXPECT_EQ(entry.GetStringInternational("A", 1031), "");
    EXPECT_FALSE(entry.GetBoolean("A"));
    Texts names = {"kept"};
    std::vector<RegValue> values(1);
    EXPECT_EQ(entry.Query(names), 0);
    EXPECT_EQ(names, Texts{"kept"});
    EXPECT_EQ(entry.QueryValues(values), 0);
    EXPECT_TRUE(values.empty());
    EXPECT_FALSE(entry.TestKey("")) << "nothing was written";
}

TEST_F(RegEntryTest, StringsAreWrittenWithoutAZero) {
    RegEntry entry;
    entry.CreateKey("T");
    entry.SetString("A", "text");
    EXPECT_EQ(Raw("T", "A"), "1:text");
    entry.SetString("A", "Müller");
    EXPECT_EQ(Raw("T", "A"), "1:M\xFCller") << "a character is one byte";
    EXPECT_EQ(entry.GetString("A"), "Müller");
    EXPECT_EQ(entry.GetString("a"), "Müller") << "names match in any case";
    entry.SetString("A", std::string(1000, 'x'));
    EXPECT_EQ(entry.GetString("A"), "") << "written, but too long to be read";
}

#ifdef NESK_PORTABLE_STATION
// Windows has only one code page, the system's own.
TEST_F(RegEntryTest, StringsAreWrittenInTheCodePage) {
    RegEntry entry;
    entry.CreateKey("T");
    platform::SelectCodePage(1041);
    entry.SetString("B", "日本");
    EXPECT_EQ(Raw("T", "B"), "1:\x93\xFA\x96\x7B");
    EXPECT_EQ(entry.GetString("B"), "日本");
}
#endif

TEST_F(RegEntryTest, TheEmptyTextRemovesTheValue) {
    RegEntry entry;
    entry.CreateKey("T");
    entry.SetString("A", "text");
    entry.SetString("A", "");
    EXPECT_EQ(entry.GetString("A"), "");
    EXPECT_EQ(Raw("T", "A"), "none");
    entry.SetString("never there", "");
    EXPECT_EQ(Raw("T", "never there"), "none");
    entry.SetString("B", "text");
    entry.DeleteValue("b");
    entry.DeleteValue("b");
    EXPECT_EQ(Raw("T", "B"), "none");
}

TEST_F(RegEntryTest, ReadingStrings) {
    const std::string longest(255, 'a');
    const std::string umlauts(255, '\xFC');
    std::string decoded;
    for (int i = 0; i < 255; ++i)
        decoded += "ü";
    const struct {
        std::string data;
        std::string text;
    } table[] = {
        {"text", "text"},
        {"text\0"s, "text"},
        {"text\0\0"s, "text\0"s},
        {"te\0xt"s, "te\0xt"s},
        {"", ""},
        {"\0"s, ""},
        {" text ", " text "},
        {longest, longest},
        {longest + "\0"s, longest},
        {longest + "b", ""},
        {longest + "b\0"s, ""},
        {longest + "\0\0"s, ""},
        {umlauts, decoded},
        {umlauts + "\0"s, decoded},
        {umlauts + "\xFC", ""},
    };
    RegEntry entry;
    entry.CreateKey("T");
    for (const auto& row : table) {
        SetRaw(Base + "T", "A", platform::RegType::Text, row.data);
        EXPECT_EQ(entry.GetString("A"), row.text) << row.data.size() << " bytes";
    }
    SetRaw(Base + "T", "A", platform::RegType::Binary, "bytes");
    EXPECT_EQ(entry.GetString("A"), "bytes") << "the type does not matter";
    SetRaw(Base + "T", "A", platform::RegType::Number, "\x41\x42\0\0"s);
    EXPECT_EQ(entry.GetString("A"), "AB\0"s);
    EXPECT_EQ(entry.GetString("none"), "");
}

TEST_F(RegEntryTest, Booleans) {
    RegEntry entry;
    entry.CreateKey("T");
    const struct {
        const char* text;
        bool value;
    } table[] = {
        {"", false},      {"0", false},     {"no", false},  {"No", false},    {"NO", false}, {"false", false},
        {"FALSE", false}, {"FaLsE", false}, {"true", true}, {"1", true},      {"yes", true}, {"x", true},
        {"00", true},     {" 0", true},     {"no ", true},  {"False.", true}, {"n", true},   {"-1", true},
    };
    for (const auto& row : table) {
        entry.SetString("A", row.text);
        EXPECT_EQ(entry.GetBoolean("A"), row.value) << row.text;
    }
    EXPECT_FALSE(entry.GetBoolean("none"));
    entry.SetBoolean("A", true);
    EXPECT_EQ(Raw("T", "A"), "1:true");
    EXPECT_TRUE(entry.GetBoolean("A"));
    entry.SetBoolean("A", false);
    EXPECT_EQ(Raw("T", "A"), "1:false");
    EXPECT_FALSE(entry.GetBoolean("A"));
}

TEST_F(RegEntryTest, TestingKeys) {
    RegEntry entry;
    EXPECT_FALSE(entry.TestKey("T"));
    EXPECT_EQ(entry.LastResult(), platform::ErrorCode::FileNotFound);
    entry.CreateKey("T\\U");
    entry.SetString("Value", "x");
    EXPECT_TRUE(entry.TestKey("T"));
    EXPECT_EQ(entry.LastResult(), platform::ErrorCode::Success);
    EXPECT_TRUE(entry.TestKey("t\\u"));
    EXPECT_FALSE(entry.TestKey("T\\U\\Value")) << "a value is no key";
    EXPECT_FALSE(entry.TestKey("T\\V"));
    EXPECT_FALSE(entry.TestKey("日"));
    EXPECT_EQ(entry.GetString("Value"), "x") << "the open key stays open";
}

TEST_F(RegEntryTest, CreatingEveryLevel) {
    RegEntry entry;
    entry.CreateKey("A");
    entry.SetString("in", "A");
    entry.CreateKey("A\\B\\C");
    EXPECT_TRUE(Exists(Base + "A\\B"));
    EXPECT_EQ(entry.GetString("in"), "") << "C is open, not A";
    entry.SetString("in", "C");
    EXPECT_EQ(Raw("A\\B\\C", "in"), "1:C");
    EXPECT_EQ(Raw("A", "in"), "1:A");
    entry.CreateKey("a\\b");
    EXPECT_EQ(Subkeys(entry), Texts{"C"}) << "what exists is opened, whatever its case";
}

TEST_F(RegEntryTest, OpeningClosesTheKeyBefore) {
    RegEntry entry;
    entry.CreateKey("A");
    entry.SetString("in", "A");
    entry.CreateKey("B");
    entry.SetString("in", "B");
    entry.OpenKey("A");
    EXPECT_EQ(entry.GetString("in"), "A");
    entry.OpenKey("b");
    EXPECT_EQ(entry.GetString("in"), "B");
}

TEST_F(RegEntryTest, SubkeysComeInTheOrderOfTheirNames) {
    RegEntry entry;
    const std::string longest(254, 'z');
    for (const std::string name : {"beta", "Alpha", "ärger", "10", "9", "alphabet", "BETA2", longest.c_str()})
        entry.CreateKey("T\\" + name);
    entry.CreateKey("T\\beta\\below");
    entry.OpenKey("T");
    Texts names = {"before"};
    EXPECT_EQ(entry.Query(names), 8);
    EXPECT_EQ(names, (Texts{"before", "10", "9", "Alpha", "alphabet", "beta", "BETA2", longest, "ärger"}));
}

TEST_F(RegEntryTest, ANameTooLongToBeListedIsLeftOut) {
    RegEntry entry;
    for (const std::string name : {"a", "z"})
        entry.CreateKey("T\\" + name);
    entry.CreateKey("T\\" + std::string(255, 'k'));
    entry.OpenKey("T");
    EXPECT_EQ(Subkeys(entry), (Texts{"a", "z"}));
}

TEST_F(RegEntryTest, TextsOfAllLengthsAroundTheLimits) {
    RegEntry entry;
    entry.CreateKey("T");
    for (const std::size_t size : {199u, 200u, 254u, 255u, 256u, 257u, 16383u, 16384u, 1'000'000u}) {
        const std::string text(size, 't');
        entry.SetString("A", text);
        EXPECT_EQ(entry.GetString("A"), size <= 255 ? text : "") << size;
        std::vector<RegValue> values;
        ASSERT_EQ(entry.QueryValues(values), 1);
        EXPECT_TRUE(values[0].data == text) << "what is too long to be read is there all the same";
    }
}

TEST_F(RegEntryTest, NamesOfValuesAtTheirLimits) {
    RegEntry entry;
    entry.CreateKey("T");
    for (const std::size_t size : {0u, 1u, 255u, 256u, 16383u}) {
        const std::string name(size, 'n');
        entry.SetString(name, "x");
        EXPECT_EQ(entry.GetString(name), "x") << size;
    }
    std::vector<RegValue> values;
    EXPECT_EQ(entry.QueryValues(values), 5);
    const std::string tooLong(16384, 'n');
    EXPECT_THROW(entry.SetString(tooLong, "x"), NeskError);
    EXPECT_EQ(entry.GetString(tooLong), "");
    entry.DeleteValue(tooLong);
    EXPECT_EQ(entry.QueryValues(values), 5);
}

TEST_F(RegEntryTest, NamesOfKeysAtTheirLimits) {
    RegEntry entry;
    const std::string longest(255, 'k');
    entry.CreateKey("T\\" + longest);
    entry.SetString("A", "x");
#ifdef NESK_PORTABLE_STATION
    EXPECT_TRUE(entry.TestKey("T\\" + longest));
    const std::size_t tooLong = 256;
#else
    // Wine does not find the longest name, and creates keys with longer names than Windows does.
    const std::size_t tooLong = 16384;
#endif
    for (const std::size_t size : {tooLong, tooLong + 1, std::size_t{1'000'000}}) {
        const std::string name(size, 'k');
        EXPECT_FALSE(entry.TestKey("T\\" + name)) << size;
        EXPECT_THROW(entry.OpenKey("T\\" + name), NeskError) << size;
        EXPECT_THROW(entry.CreateKey("T\\" + name), NeskError) << size;
        EXPECT_EQ(entry.GetString("A"), "") << "no key is open";
    }
    // The last level can be copied and deleted although its name is too long to be listed.
    entry.OpenKey("");
    entry.DeleteKey("T\\" + longest);
    EXPECT_FALSE(entry.TestKey("T\\" + longest));
}

TEST_F(RegEntryTest, ValuesComeWithTheirTypes) {
    using namespace platform::RegType;
    const std::string big(70000, 'b');
    const std::string longName(300, 'n');
    SetRaw(Base + "T", "text", Text, "M\xFCller\0"s);
    SetRaw(Base + "T", "Number", Number, "\x01\0\0\0"s);
    SetRaw(Base + "T", "", ExpandText, "%x%");
    SetRaw(Base + "T", "multi", MultiText, "a\0b\0\0"s);
    SetRaw(Base + "T", longName, Binary, big + "\0"s);
    SetRaw(Base + "T", "empty", None, "");
    RegEntry entry;
    entry.OpenKey("T");
    std::vector<RegValue> values(3);
    EXPECT_EQ(entry.QueryValues(values), 6);
    Texts found;
    for (const RegValue& value : values)
        found.push_back(value.name.substr(0, 8) + "|" + std::to_string(value.type) + "|" +
                        value.data.substr(0, 8));
    Texts expected{"text|1|Müller",   "Number|4|\x01\0\0\0"s, "|2|%x%",
                   "multi|7|a\0b\0"s, "nnnnnnnn|3|bbbbbbbb",  "empty|0|"};
#ifndef NESK_PORTABLE_STATION
    // Windows guarantees no order of values, and Wine sorts them by name.
    std::sort(found.begin(), found.end());
    std::sort(expected.begin(), expected.end());
#endif
    EXPECT_EQ(found, expected);
    const auto longest = std::find_if(values.begin(), values.end(),
                                      [&](const RegValue& value) { return value.name == longName; });
    ASSERT_NE(longest, values.end());
    EXPECT_EQ(longest->data, big + "\0"s) << "bytes keep their zero";
    EXPECT_EQ(entry.QueryValues(values), 6) << "the values take the place of those before";
}

TEST_F(RegEntryTest, DeletingAKeyTakesEverythingBelow) {
    RegEntry entry;
    for (const char* key : {"T\\A\\1\\x", "T\\A\\2", "T\\A\\3\\y\\z", "T\\B"}) {
        entry.CreateKey(key);
        entry.SetString("v", "1");
    }
    entry.OpenKey("T");
    entry.DeleteKey("a");
    EXPECT_EQ(Subkeys(entry), Texts{"B"});
    EXPECT_FALSE(Exists(Base + "T\\A"));
    entry.DeleteKey("B");
    EXPECT_EQ(Subkeys(entry), Texts{});
    EXPECT_TRUE(Exists(Base + "T")) << "the open key itself stays";
}

// Creates a key at `key` with values and two levels below it.
void MakeExample(RegEntry& entry, const std::string& key) {
    entry.CreateKey(key + "\\Below\\Deep");
    entry.SetString("deep", "3");
    entry.OpenKey(key + "\\Below");
    entry.SetString("below", "2");
    entry.OpenKey(key);
    entry.SetString("name", "Müller");
}

TEST_F(RegEntryTest, Copying) {
    RegEntry entry;
    MakeExample(entry, "T");
    SetRaw(Base + "T", "number", platform::RegType::Number, "\x01\0\0\0"s);
    SetRaw(Base + "T", "terminated", platform::RegType::Text, "M\xFCller\0"s);
    SetRaw(Base + "T", "multi", platform::RegType::MultiText, "a\0b\0\0"s);
    SetRaw(Base + "Copy", "name", platform::RegType::Text, "old");
    SetRaw(Base + "Copy", "other", platform::RegType::Text, "stays");
    entry.Copy("Copy");
    EXPECT_EQ(Raw("Copy", "name"), "1:M\xFCller");
    EXPECT_EQ(Raw("Copy", "number"), "4:\x01\0\0\0"s);
    EXPECT_EQ(Raw("Copy", "terminated"), "1:M\xFCller\0"s) << "byte for byte";
    EXPECT_EQ(Raw("Copy", "multi"), "7:a\0b\0\0"s);
    EXPECT_EQ(Raw("Copy", "other"), "1:stays");
    EXPECT_EQ(Raw("Copy\\Below", "below"), "1:2");
    EXPECT_EQ(Raw("Copy\\Below\\Deep", "deep"), "1:3");
    EXPECT_EQ(entry.GetString("name"), "Müller") << "the open key stays open";
    entry.Copy("New\\Levels");
    EXPECT_EQ(Raw("New\\Levels\\Below\\Deep", "deep"), "1:3");
}

TEST_F(RegEntryTest, CopyingIntoTheKeyItself) {
    RegEntry entry;
    MakeExample(entry, "T");
    entry.Copy("T\\Below\\Copy");
    EXPECT_EQ(Raw("T\\Below\\Copy", "name"), "1:M\xFCller");
    EXPECT_EQ(Raw("T\\Below\\Copy\\Below\\Deep", "deep"), "1:3");
    EXPECT_FALSE(Exists(Base + "T\\Below\\Copy\\Below\\Copy")) << "only what was there before is copied";
    entry.Copy("T");
    EXPECT_EQ(entry.GetString("name"), "Müller");
}

TEST_F(RegEntryTest, TextsByLanguage) {
    RegEntry entry;
    entry.CreateKey("T");
    entry.SetString("Title", "plain");
    entry.SetString("TitleDEU", "deutsch");
    entry.SetString("TitleENU", "english");
    EXPECT_EQ(entry.GetStringInternational("Title", 1031), "deutsch");
    EXPECT_EQ(entry.GetStringInternational("Title", 1033), "english");
    EXPECT_EQ(entry.GetStringInternational("Title", 1036), "plain") << "there is no French text";
    EXPECT_EQ(entry.GetStringInternational("Title", 9999), "english") << "an unknown language is English";
    EXPECT_EQ(entry.GetStringInternational("Other", 1031), "");
}

TEST_F(RegEntryTest, ClassIds) {
    using platform::RegType::Text;
    const std::string classes = "SOFTWARE\\Classes\\";
    RegEntry entry;
    EXPECT_EQ(entry.GetClassID("Maker.Thing"), "");
    SetRaw(classes + "Maker.Thing\\CLSID", "", Text, "{1-2}\0"s);
    SetRaw(classes + "CLSID\\{1-2}\\InprocServer32", "", Text, "x.dll");
    SetRaw(classes + "CLSID\\{1-2}\\TypeLib", "", Text, "{7}");
    SetRaw(classes + "TypeLib\\{7}\\1.0", "", Text, "library");
    SetRaw(classes + "Maker.Other\\CLSID", "", Text, "{3}");
    SetRaw(classes + "CLSID\\{3}", "", Text, "other");
    SetRaw(classes + "TypeLib\\{8}", "", Text, "other");
    EXPECT_EQ(entry.GetClassID("Maker.Thing"), "{1-2}");
    EXPECT_EQ(entry.GetClassID("maker.thing"), "{1-2}");
    EXPECT_EQ(entry.GetClassID("Maker.None"), "");
    EXPECT_EQ(entry.GetClassID(""), "");
    for (const char* progId : {"", "Maker.None"})
        entry.RemoveProgID(progId);
    EXPECT_EQ(entry.GetClassID("Maker.Thing"), "{1-2}");
    entry.RemoveProgID("Maker.Thing");
    for (const char* gone : {"Maker.Thing", "CLSID\\{1-2}", "TypeLib\\{7}"})
        EXPECT_FALSE(Exists(classes + gone)) << gone;
    for (const char* stays : {"Maker.Other", "CLSID\\{3}", "TypeLib\\{8}"})
        EXPECT_TRUE(Exists(classes + stays)) << stays;
    entry.RemoveProgID("Maker.Other");
    EXPECT_FALSE(Exists(classes + "Maker.Other"));
    EXPECT_FALSE(Exists(classes + "CLSID\\{3}")) << "a class without a type library";
    EXPECT_TRUE(Exists(classes + "TypeLib\\{8}"));
}

} // namespace
} // namespace nesk
