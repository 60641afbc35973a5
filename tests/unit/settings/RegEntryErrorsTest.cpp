#include "base/Messages.h"
#include "platform/ErrorCode.h"
#include "settings/RegEntry.h"
#include "shell/modUtilities.h"
#include "unit/CoreFixture.h"
#include "unit/Errors.h"

#include <algorithm>
#include <functional>
#include <map>
#include <set>

namespace nesk {
namespace {

using nesk::testing::ErrorOf;
using platform::Registry;
using platform::RegKey;
using Texts = std::vector<std::string>;
using platform::ErrorCode;

// The station's registry with injected failures. Keeps a list of the open keys.
class FailingRegistry final : public Registry {
public:
    std::map<std::string, ErrorCode> failures; // "operation name" and its result code
    std::function<ErrorCode(std::uint32_t index, char* name, std::uint32_t capacity)>
        enumKey; // replaces the real one
    std::set<RegKey> open;
    std::set<std::uint32_t> accesses;

    ErrorCode OpenKey(RegKey parent, const std::string& path, std::uint32_t access, RegKey& key) override {
        accesses.insert(access);
        const ErrorCode failure = Failure("open " + path);
        return Opened(failure != ErrorCode::Success ? failure : m_registry.OpenKey(parent, path, access, key),
                      key);
    }
    ErrorCode CreateKey(RegKey parent, const std::string& path, std::uint32_t access, RegKey& key) override {
        accesses.insert(access);
        const ErrorCode failure = Failure("create " + path);
        return Opened(
            failure != ErrorCode::Success ? failure : m_registry.CreateKey(parent, path, access, key), key);
    }
    ErrorCode CloseKey(RegKey key) override {
        open.erase(key);
        return m_registry.CloseKey(key);
    }
    ErrorCode QueryValue(RegKey key, const std::string& name, std::uint32_t* type, char* data,
                         std::uint32_t* size) override {
        const ErrorCode failure = Failure("query " + name);
        return failure != ErrorCode::Success ? failure : m_registry.QueryValue(key, name, type, data, size);
    }
    ErrorCode SetValue(RegKey key, const std::string& name, std::uint32_t type,
                       std::string_view data) override {
        const ErrorCode failure = Failure("set " + name);
        return failure != ErrorCode::Success ? failure : m_registry.SetValue(key, name, type, data);
    }
    ErrorCode DeleteValue(RegKey key, const std::string& name) override {
        const ErrorCode failure = Failure("delete value " + name);
        return failure != ErrorCode::Success ? failure : m_registry.DeleteValue(key, name);
    }
    ErrorCode DeleteKey(RegKey parent, const std::string& subKey) override {
        const ErrorCode failure = Failure("delete " + subKey);
        return failure != ErrorCode::Success ? failure : m_registry.DeleteKey(parent, subKey);
    }
    ErrorCode EnumKey(RegKey key, std::uint32_t index, char* name, std::uint32_t capacity) override {
        return enumKey ? enumKey(index, name, capacity) : m_registry.EnumKey(key, index, name, capacity);
    }
    ErrorCode EnumValue(RegKey key, std::uint32_t index, char* name, std::uint32_t* nameSize,
                        std::uint32_t* type, char* data, std::uint32_t* size) override {
        return m_registry.EnumValue(key, index, name, nameSize, type, data, size);
    }
    std::string Location() const override { return m_registry.Location(); }

private:
    ErrorCode Failure(const std::string& call) const {
        const auto found = failures.find(call);
        return found != failures.end() ? found->second : ErrorCode::Success;
    }

    ErrorCode Opened(ErrorCode result, RegKey& key) {
        if (result == ErrorCode::Success)
            open.insert(key);
        else
            key = 0;
        return result;
    }

    Registry& m_registry = platform::StationRegistry();
};

class RegEntryErrorsTest : public nesk::testing::CoreTest {
protected:
    RegEntryErrorsTest() {
        RegEntry entry;
        entry.CreateKey("T\\Below\\Deep");
        entry.SetString("deep", "3");
        entry.OpenKey("T\\Below");
        entry.SetString("below", "2");
        entry.OpenKey("T");
        entry.SetString("name", "1");
    }

    static void ExpectError(const NeskError& error, int number, const char* source, int messageId,
                            const Texts& arguments) {
        EXPECT_EQ(error.number, number);
        EXPECT_EQ(error.source, source);
        EXPECT_EQ(error.messageId, messageId);
        EXPECT_EQ(error.arguments, arguments);
        for (const std::string& argument : arguments)
            EXPECT_NE(modUtilities::MessageText(error).find(argument), std::string::npos) << argument;
    }

    // After a failed open or create no key is open: reads return nothing and writes do nothing.
    void ExpectNoKey(RegEntry& entry) {
        EXPECT_TRUE(m_registry.open.empty());
        EXPECT_EQ(entry.GetString("name"), "");
        EXPECT_FALSE(entry.GetBoolean("name"));
        entry.SetString("name", "changed");
        entry.SetString("name", "");
        RegEntry check;
        check.OpenKey("T");
        EXPECT_EQ(check.GetString("name"), "1");
    }

    FailingRegistry m_registry;
};

TEST_F(RegEntryErrorsTest, OpeningAMissingKey) {
    RegEntry entry(m_registry);
    entry.OpenKey("T");
    const NeskError error = ErrorOf([&] { entry.OpenKey("T\\None"); });
    ExpectError(error, 5001, "RegEntry.OpenInternal", Message::RegKeyNotOpened,
                {"SOFTWARE\\Quarndale\\T\\None"});
    EXPECT_EQ(entry.LastResult(), ErrorCode::FileNotFound);
    ExpectNoKey(entry);
    entry.OpenKey("T");
    EXPECT_EQ(entry.GetString("name"), "1") << "the object stays usable";
}

TEST_F(RegEntryErrorsTest, OpeningWithoutTheRight) {
    m_registry.failures["open SOFTWARE\\Quarndale\\T"] = ErrorCode::AccessDenied;
    RegEntry entry(m_registry);
    const NeskError error = ErrorOf([&] { entry.OpenKey("T"); });
    ExpectError(error, 5001, "RegEntry.OpenInternal", Message::RegKeyNotOpened, {"SOFTWARE\\Quarndale\\T"});
    EXPECT_EQ(entry.LastResult(), ErrorCode::AccessDenied);
    ExpectNoKey(entry);
    EXPECT_FALSE(entry.TestKey("T"));
}

TEST_F(RegEntryErrorsTest, EveryKeyIsOpenedForReadingAndWriting) {
    RegEntry entry(m_registry);
    entry.CreateKey("New\\Level");
    entry.OpenKey("T");
    entry.TestKey("T");
    entry.Copy("Copy");
    entry.DeleteKey("Below");
    EXPECT_EQ(m_registry.accesses, std::set<std::uint32_t>{0x2001F});
}

TEST_F(RegEntryErrorsTest, NoKeyIsLeftOpen) {
    {
        RegEntry entry(m_registry);
        entry.CreateKey("New\\Level");
        entry.OpenKey("T");
        EXPECT_TRUE(entry.TestKey("T\\Below"));
        entry.Copy("Copy\\Of");
        entry.DeleteKey("Below");
        entry.GetClassID("Maker.Thing");
        entry.RemoveProgID("Maker.Thing");
        EXPECT_EQ(m_registry.open.size(), 1u);
    }
    EXPECT_TRUE(m_registry.open.empty());
}

TEST_F(RegEntryErrorsTest, CreatingALevelFails) {
    const struct {
        const char* level;
        int messageId;
    } table[] = {{"A", Message::RegLevelNotCreated},
                 {"B", Message::RegLevelNotCreated},
                 {"C", Message::RegKeyNotOpened}};
    for (const auto& row : table) {
        m_registry.failures = {{std::string("create ") + row.level, ErrorCode::AccessDenied}};
        RegEntry entry(m_registry);
        entry.OpenKey("T");
        const NeskError error = ErrorOf([&] { entry.CreateKey("A\\B\\C"); });
        EXPECT_EQ(error.number, 5000) << row.level;
        EXPECT_EQ(error.source, "RegEntry.CreateInternal") << row.level;
        EXPECT_EQ(error.messageId, row.messageId) << row.level;
        EXPECT_EQ(error.arguments, Texts{row.level});
        EXPECT_EQ(entry.LastResult(), ErrorCode::AccessDenied);
        ExpectNoKey(entry);
    }
    m_registry.failures = {{"create SOFTWARE", ErrorCode::AccessDenied},
                           {"open SOFTWARE", ErrorCode::AccessDenied}};
    RegEntry entry(m_registry);
    EXPECT_EQ(ErrorOf([&] { entry.CreateKey("A"); }).messageId, Message::RegLevelNotCreated)
        << "of the base path";
}

TEST_F(RegEntryErrorsTest, MessagesByTheirNumbers) {
    m_registry.failures = {{"create A", ErrorCode::AccessDenied}, {"set name", ErrorCode::AccessDenied}};
    RegEntry entry(m_registry);
    EXPECT_EQ(ErrorOf([&] { entry.OpenKey("None"); }).messageId, 32001);
    EXPECT_EQ(ErrorOf([&] { entry.CreateKey("A\\B"); }).messageId, 32002);
    EXPECT_EQ(ErrorOf([&] { entry.CreateKey("A"); }).messageId, 32001);
    entry.OpenKey("T");
    EXPECT_EQ(ErrorOf([&] { entry.SetString("name", "x"); }).messageId, 32003);
    EXPECT_EQ(ErrorOf([&] { entry.DeleteKey("None"); }).messageId, 32001);
}

TEST_F(RegEntryErrorsTest, KeysWhoseNameTheCodePageCannotHold) {
    RegEntry entry(m_registry);
    ExpectError(ErrorOf([&] { entry.OpenKey("日"); }), 5001, "RegEntry.OpenInternal",
                Message::RegKeyNotOpened, {"SOFTWARE\\Quarndale\\日"});
    ExpectError(ErrorOf([&] { entry.CreateKey("日"); }), 5000, "RegEntry.CreateInternal",
                Message::RegKeyNotOpened, {"日"});
    ExpectNoKey(entry);
    entry.OpenKey("T");
    ExpectError(ErrorOf([&] { entry.DeleteKey("日"); }), 5001, "RegEntry.CopyInternal",
                Message::RegKeyNotOpened, {"日"});
    entry.SetString("", "default");
    EXPECT_EQ(entry.GetString("日"), "");
    entry.DeleteValue("日");
    entry.SetString("日", "");
    EXPECT_EQ(entry.GetString(""), "default") << "the value without a name is another one";
    ExpectError(ErrorOf([&] { entry.SetString("日", "x"); }), 5002, "RegEntry.SetValue",
                Message::RegValueNotWritten, {"日"});
}

TEST_F(RegEntryErrorsTest, AValueThatCannotBeWritten) {
    m_registry.failures["set name"] = ErrorCode::AccessDenied;
    RegEntry entry(m_registry);
    entry.OpenKey("T");
    ExpectError(ErrorOf([&] { entry.SetString("name", "x"); }), 5002, "RegEntry.SetValue",
                Message::RegValueNotWritten, {"name"});
    ExpectError(ErrorOf([&] { entry.SetBoolean("name", true); }), 5002, "RegEntry.SetValue",
                Message::RegValueNotWritten, {"name"});
    EXPECT_EQ(entry.GetString("name"), "1");
    entry.SetString("other", "x");
    EXPECT_EQ(entry.GetString("other"), "x") << "the key is still open";
}

TEST_F(RegEntryErrorsTest, ATextThatTheCodePageCannotHold) {
    RegEntry entry(m_registry);
    entry.OpenKey("T");
    ExpectError(ErrorOf([&] { entry.SetString("name", "Teil 日本"); }), 5002, "RegEntry.SetValue",
                Message::RegNotEncodable, {"name", "日", "1252"});
    EXPECT_EQ(entry.GetString("name"), "1") << "never a question mark in its place";
}

TEST_F(RegEntryErrorsTest, FailuresThatAreNotTold) {
    m_registry.failures = {{"delete value name", ErrorCode::AccessDenied},
                           {"query below", ErrorCode::AccessDenied}};
    RegEntry entry(m_registry);
    entry.OpenKey("T");
    entry.DeleteValue("name");
    entry.SetString("name", "");
    EXPECT_EQ(entry.GetString("name"), "1");
    entry.OpenKey("T\\Below");
    EXPECT_EQ(entry.GetString("below"), "");
    EXPECT_FALSE(entry.GetBoolean("below"));
}

TEST_F(RegEntryErrorsTest, DeletingAMissingKey) {
    RegEntry entry(m_registry);
    entry.OpenKey("T");
    ExpectError(ErrorOf([&] { entry.DeleteKey("None"); }), 5001, "RegEntry.CopyInternal",
                Message::RegKeyNotOpened, {"None"});
    EXPECT_EQ(m_registry.open.size(), 1u);
    EXPECT_EQ(entry.GetString("name"), "1");
}

TEST_F(RegEntryErrorsTest, ASubkeyThatCannotBeOpenedEndsTheDeletion) {
    m_registry.failures["open Deep"] = ErrorCode::AccessDenied;
    RegEntry entry(m_registry);
    entry.OpenKey("T");
    ExpectError(ErrorOf([&] { entry.DeleteKey("Below"); }), 5001, "RegEntry.CopyInternal",
                Message::RegKeyNotOpened, {"Deep"});
    EXPECT_EQ(m_registry.open.size(), 1u) << "only T is open";
    EXPECT_TRUE(entry.TestKey("T\\Below\\Deep"));
}

TEST_F(RegEntryErrorsTest, ASubkeyThatCannotBeDeletedIsMetOnce) {
    m_registry.failures["delete Deep"] = ErrorCode::AccessDenied;
    RegEntry entry(m_registry);
    entry.OpenKey("T");
    entry.DeleteKey("Below");
    EXPECT_TRUE(entry.TestKey("T\\Below\\Deep"));
    EXPECT_EQ(m_registry.open.size(), 1u);
}

TEST_F(RegEntryErrorsTest, ListingANameWithoutItsZero) {
    m_registry.enumKey = [](std::uint32_t, char* name, std::uint32_t capacity) {
        std::fill_n(name, capacity, 'x');
        return ErrorCode::Success;
    };
    RegEntry entry(m_registry);
    entry.OpenKey("T");
    Texts names;
    const NeskError error = ErrorOf([&] { entry.Query(names); });
    ExpectError(error, 5000, "RegEntry.Query", Message::NoEndingZero, {});
    EXPECT_EQ(modUtilities::MessageText(error), "No ending 0 found");
    EXPECT_TRUE(names.empty());
}

TEST_F(RegEntryErrorsTest, ListingMoreSubkeysThanCanBeCounted) {
    std::uint32_t count = 32767;
    m_registry.enumKey = [&](std::uint32_t index, char* name, std::uint32_t capacity) {
        EXPECT_EQ(capacity, 255u);
        name[0] = 'k';
        name[1] = '\0';
        return index < count ? ErrorCode::Success : ErrorCode::NoMoreItems;
    };
    RegEntry entry(m_registry);
    entry.OpenKey("T");
    Texts names;
    EXPECT_EQ(entry.Query(names), 32767);
    count = 32768;
    EXPECT_EQ(ErrorOf([&] { entry.Query(names); }).number, RuntimeError::Overflow);
}

TEST_F(RegEntryErrorsTest, CopyingFails) {
    const struct {
        const char* failing;
        int number;
        int messageId;
        const char* argument;
    } table[] = {
        {"create Copy", 5000, Message::RegKeyNotOpened, "Copy"},
        {"set name", 5002, Message::RegValueNotWritten, "name"},
        {"set below", 5002, Message::RegValueNotWritten, "below"},
        {"set deep", 5002, Message::RegValueNotWritten, "deep"},
        {"create Below", 5000, Message::RegKeyNotOpened, "Below"},
        {"create Deep", 5000, Message::RegKeyNotOpened, "Deep"},
        {"open Below", 5001, Message::RegKeyNotOpened, "Below"},
        {"open Deep", 5001, Message::RegKeyNotOpened, "Deep"},
    };
    RegEntry entry(m_registry);
    for (const auto& row : table) {
        m_registry.failures.clear();
        entry.CreateKey("");
        if (entry.TestKey("Copy")) entry.DeleteKey("Copy");
        entry.OpenKey("T");
        m_registry.failures[row.failing] = ErrorCode::AccessDenied;
        const NeskError error = ErrorOf([&] { entry.Copy("Copy"); });
        ExpectError(error, row.number, "RegEntry.CopyInternal", row.messageId, {row.argument});
        EXPECT_EQ(m_registry.open.size(), 1u) << row.failing << ": only T is open";
        EXPECT_EQ(entry.GetString("name"), "1") << row.failing;
    }
}

} // namespace
} // namespace nesk
