#include "base/NeskError.h"
#include "behaviour/Table.h"
#include "platform/ErrorCode.h"
#include "platform/Registry.h"
#include "settings/RegEntry.h"
#include "unit/platform/TempStation.h"

#include <array>
#include <functional>
#include <tuple>

namespace nesk::behaviour {

namespace {

using namespace std::string_literals;
using platform::RegKey;
namespace RegAccess = platform::RegAccess;
namespace RegType = platform::RegType;

platform::Registry& Reg() {
    return platform::StationRegistry();
}

std::string Number(std::int64_t number) {
    return std::to_string(number);
}

// Closes a key. No case depends on the result.
void Close(RegKey key) {
    std::ignore = Reg().CloseKey(key);
}

// The key that the cases work below.
class Root {
public:
    Root() {
        // Without the key, the answers of all cases differ.
        std::ignore = Reg().CreateKey(platform::LocalMachine, "SOFTWARE\\Quarndale\\Table",
                                      RegAccess::ReadWrite, m_key);
    }
    ~Root() { Close(m_key); }
    Root(const Root&) = delete;
    Root& operator=(const Root&) = delete;

    operator RegKey() const { return m_key; } // converts to its key wherever one is expected

private:
    RegKey m_key = 0;
};

RegKey Create(RegKey parent, const std::string& path) {
    RegKey key = 0;
    // Without the key, the answers of all following cases differ.
    std::ignore = Reg().CreateKey(parent, path, RegAccess::ReadWrite, key);
    return key;
}

platform::ErrorCode Open(RegKey parent, const std::string& path) {
    RegKey key = 0;
    const platform::ErrorCode result = Reg().OpenKey(parent, path, RegAccess::ReadWrite, key);
    if (result == platform::ErrorCode::Success) Close(key);
    return result;
}

// Result, type, size and data of a value that is read into a buffer of `capacity` bytes.
std::string Query(RegKey key, const std::string& name, std::uint32_t capacity) {
    std::string data(capacity, '#');
    std::uint32_t size = capacity;
    std::uint32_t type = 99;
    const platform::ErrorCode result = Reg().QueryValue(key, name, &type, data.data(), &size);
    const bool isRead = result == platform::ErrorCode::Success;
    std::string answer = Number(platform::Number(result));
    if (isRead) answer += " type " + Number(type);
    if (isRead || result == platform::ErrorCode::MoreData) answer += " size " + Number(size);
    return isRead ? answer + " " + data.substr(0, size) : answer;
}

std::string SubkeyNames(RegKey key) {
    std::string names;
    std::array<char, 300> name{};
    std::uint32_t index = 0;
    platform::ErrorCode result = platform::ErrorCode::Success;
    while ((result = Reg().EnumKey(key, index++, name.data(), name.size())) == platform::ErrorCode::Success)
        names.append(name.data()).append(" ");
    return names + Number(platform::Number(result));
}

void AddKeys(Table& table, RegKey root) {
    RegKey key = 0;
    table.Add("registry open missing", Open(root, "none"));
    table.Add("registry open missing level", Open(root, "none\\a"));
    table.Add("registry open rooted", Open(root, "\\none"));
    table.Add("registry create rooted", Reg().CreateKey(root, "\\x", RegAccess::ReadWrite, key));
    table.Add("registry create levels", Reg().CreateKey(root, "A\\B\\C", RegAccess::ReadWrite, key));
    Close(key);
    for (const char* path : {"A", "a\\b", "A\\B\\C", "A\\", "A\\B\\", "A\\X", ""})
        table.Add("registry open "s + path, Open(root, path));
    table.Add("registry delete with subkeys", Reg().DeleteKey(root, "A"));
    table.Add("registry delete missing", Reg().DeleteKey(root, "none"));
    table.Add("registry delete level", Reg().DeleteKey(root, "A\\B\\C"));
    table.Add("registry delete other case", Reg().DeleteKey(root, "a\\B"));
    table.Add("registry deleted is gone", Open(root, "A\\B"));
    table.Add("registry delete last", Reg().DeleteKey(root, "A"));
    table.Add("registry name of 255",
              Reg().CreateKey(root, std::string(255, 'k'), RegAccess::ReadWrite, key));
    Close(key);
    for (const char* name : {"b", "C", "a", "\xE4", "Z", "10", "9", "\xC5", "B2", "a b", "A1"})
        Close(Create(root, "Order\\"s + name));
    key = Create(root, "Order");
    table.Add("registry order", SubkeyNames(key));
    std::array<char, 4> small{};
    table.Add("registry enumerate into 2 bytes", Reg().EnumKey(key, 4, small.data(), 2));
    table.Add("registry enumerate past the end", Reg().EnumKey(key, 1000, small.data(), small.size()));
    Close(key);
    key = Create(root, "Gone");
    // The following cases show whether the key is gone.
    std::ignore = Reg().DeleteKey(root, "Gone");
    table.Add("registry write to a deleted key", Reg().SetValue(key, "x", RegType::Text, "1"));
    table.Add("registry read from a deleted key", Query(key, "x", 8));
    Close(key);
    table.Add("registry no such handle", Query(0, "x", 8));
}

void AddValues(Table& table, RegKey root) {
    const RegKey key = Create(root, "Values");
    table.Add("registry query missing", Query(key, "none", 8));
    table.Add("registry delete missing value", Reg().DeleteValue(key, "none"));
    struct Sample {
        const char* name;
        std::uint32_t type;
        std::string data;
    };
    std::string bytes;
    for (int byte = 1; byte < 256; ++byte)
        bytes += static_cast<char>(byte);
    const std::array samples = {
        Sample{"Text", RegType::Text, "text\0"s},
        Sample{"Open", RegType::Text, "text"},
        Sample{"Empty", RegType::Text, ""},
        Sample{"Zero", RegType::Text, "\0"s},
        Sample{"Expand", RegType::ExpandText, "%windir%\0"s},
        Sample{"Multi", RegType::MultiText, "a\0b\0\0"s},
        Sample{"Number", RegType::Number, "\1\2\3\4"},
        Sample{"Long", RegType::LongNumber, "12345678"},
        Sample{"Binary", RegType::Binary, "\0\xFF\x80"s},
        Sample{"None", RegType::None, "x"},
        Sample{"Bytes", RegType::Binary, bytes},
        Sample{"", RegType::Text, "default\0"s},
    };
    for (const Sample& sample : samples) {
        const std::string name = "registry value "s + sample.name;
        table.Add(name + " set", Reg().SetValue(key, sample.name, sample.type, sample.data));
        for (const std::uint32_t capacity : {0U, 1U, 4U, 5U, 300U})
            table.Add(name + " in " + Number(capacity), Query(key, sample.name, capacity));
    }
    table.Add("registry other case", Query(key, "TEXT", 300));
    table.Add("registry replace", Reg().SetValue(key, "TEXT", RegType::Binary, "new"));
    table.Add("registry replaced", Query(key, "Text", 300));
    table.Add("registry delete value", Reg().DeleteValue(key, "tEXT"));
    table.Add("registry deleted value", Query(key, "Text", 300));
    // Every character of the code page is read back; undefined bytes are left out.
    std::string text;
    for (int byte = 0x20; byte < 256; ++byte)
        if (byte != 0x7F && byte != 0x81 && byte != 0x8D && byte != 0x8F && byte != 0x90 && byte != 0x9D)
            text += static_cast<char>(byte);
    std::ignore = Reg().SetValue(key, "All", RegType::Text, text); // read back at once
    table.Add("registry text of all characters", Query(key, "All", 300));
    Close(key);
}

std::string Try(const std::function<std::string()>& act) {
    try {
        return act();
    } catch (const NeskError& error) {
        return "error " + Number(error.number) + " " + error.source + " " + Number(error.messageId);
    }
}

// The settings as the program accesses them.
void AddSettings(Table& table) {
    RegEntry entry;
    table.Add("settings open missing", Try([&] { return entry.OpenKey("Missing"), "opened"s; }));
    table.Add("settings create", Try([&] { return entry.CreateKey("Made\\Deep"), "created"s; }));
    table.Add("settings test", entry.TestKey("made\\DEEP") ? 1 : 0);
    for (const std::size_t length : {1U, 254U, 255U, 256U, 1000U}) {
        entry.SetString("Length", std::string(length, 'x'));
        table.Add("settings text of " + Number(static_cast<std::int64_t>(length)), entry.GetString("Length"));
    }
    entry.SetString("Umlaut", "M\xC3\xA4\xC3\x9F");
    table.Add("settings umlaut", entry.GetString("Umlaut"));
    entry.SetString("Umlaut", "");
    table.Add("settings empty removes", entry.GetString("Umlaut"));
    table.Add("settings not encodable", Try([&] { return entry.SetString("x", "\xD0\x96"), "set"s; }));
}

} // namespace

void AddRegistryCases(Table& table) {
    {
        const TempStation station;
        const Root root;
        AddKeys(table, root);
        AddValues(table, root);
    }
    const TempStation station;
    AddSettings(table);
}

} // namespace nesk::behaviour
