#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace nesk::platform {

/// Handle of an open registry key; 0 is none.
using RegKey = std::uint64_t;

/// The predefined root of the machine's settings. It is always open and never closed.
constexpr RegKey LocalMachine = 0x80000002;

/// Value types, with the registry's own numbers.
namespace RegType {
constexpr std::uint32_t None = 0;
constexpr std::uint32_t Text = 1;        // REG_SZ
constexpr std::uint32_t ExpandText = 2;  // REG_EXPAND_SZ
constexpr std::uint32_t Binary = 3;      // REG_BINARY
constexpr std::uint32_t Number = 4;      // REG_DWORD
constexpr std::uint32_t MultiText = 7;   // REG_MULTI_SZ
constexpr std::uint32_t LongNumber = 11; // REG_QWORD
} // namespace RegType

/// Access masks.
namespace RegAccess {
constexpr std::uint32_t Read = 0x20019;
constexpr std::uint32_t Write = 0x20006;
constexpr std::uint32_t ReadWrite = 0x2001F;
} // namespace RegAccess

/// The station's registry. Every operation answers with a result code (ErrorCode.h) and never throws.
///
/// Names and text data are bytes of the station's code page and sizes count those bytes, as in the ANSI
/// registry functions. Key and value names match without regard to case and keep the spelling they were
/// created with.
class Registry {
public:
    virtual ~Registry() = default;

    /// Opens `path` (levels separated by "\"; "" is `parent` itself) below `parent`. FileNotFound when a
    /// level is missing; BadPathName when the path begins with "\". On failure `key` is 0.
    virtual int OpenKey(RegKey parent, const std::string& path, std::uint32_t access, RegKey& key) = 0;

    /// As OpenKey, creating every missing level.
    virtual int CreateKey(RegKey parent, const std::string& path, std::uint32_t access, RegKey& key) = 0;

    /// Closes a key. InvalidHandle when it is not open; closing LocalMachine does nothing.
    virtual int CloseKey(RegKey key) = 0;

    /// Reads a value. On entry `size` is the capacity of `data`, afterwards the size of the value. A null
    /// `data` asks for the size alone. MoreData, with `size` set and `data` untouched, when the value is
    /// larger than the buffer; FileNotFound when there is none. Text is returned as it was stored: a
    /// terminating zero counts.
    virtual int QueryValue(RegKey key, const std::string& name, std::uint32_t* type, char* data,
                           std::uint32_t* size) = 0;

    /// Writes a value, replacing one of the same name. InvalidParameter for a name over 16,383 characters.
    virtual int SetValue(RegKey key, const std::string& name, std::uint32_t type, std::string_view data) = 0;

    /// Deletes a value; FileNotFound when there is none.
    virtual int DeleteValue(RegKey key, const std::string& name) = 0;

    /// Deletes the subkey `subKey` with its values. AccessDenied when it has subkeys, FileNotFound when
    /// missing.
    virtual int DeleteKey(RegKey parent, const std::string& subKey) = 0;

    /// Name of the subkey at 0-based `index`, in the order of the upper-cased names, zero-terminated in
    /// `name` of `capacity` bytes. NoMoreItems past the end; MoreData when the name with its zero does not
    /// fit.
    virtual int EnumKey(RegKey key, std::uint32_t index, char* name, std::uint32_t capacity) = 0;

    /// Name, type and data of the value at 0-based `index`, in the order in which the values were first
    /// written. `nameSize` is the capacity on entry and the length without the zero afterwards; `data` and
    /// `size` are as in QueryValue. NoMoreItems past the end; MoreData when the name with its zero or the
    /// data does not fit.
    virtual int EnumValue(RegKey key, std::uint32_t index, char* name, std::uint32_t* nameSize,
                          std::uint32_t* type, char* data, std::uint32_t* size) = 0;

    /// Begins a group of writes, which are stored together where the registry can do that: all of them or,
    /// when the program is killed before the group has ended, none. Other programs wait until then with
    /// writing. Groups may be nested; the outermost counts.
    virtual void BeginGroup() {}

    /// Ends a group. What was written in it may be found here not to be stored after all.
    virtual int EndGroup() { return 0; }

    /// Until EndReading, what other programs write is not seen, where the registry can do that: values that
    /// belong together are read together. Nothing is to be written in between.
    virtual void BeginReading() {}
    virtual void EndReading() {}

    /// Where the registry lies, for messages: a folder or file of the station, or the name of the system's
    /// own.
    virtual std::string Location() const = 0;
};

/// A group of writes from its construction to its End, or to its destruction.
class RegistryGroup {
public:
    explicit RegistryGroup(Registry& registry) : m_registry(registry) { m_registry.BeginGroup(); }
    ~RegistryGroup() { End(); }
    RegistryGroup(const RegistryGroup&) = delete;
    RegistryGroup& operator=(const RegistryGroup&) = delete;

    /// Stores what was written. Afterwards it does nothing.
    int End() {
        if (m_ended) return 0;
        m_ended = true;
        return m_registry.EndGroup();
    }

private:
    Registry& m_registry;
    bool m_ended = false;
};

/// Reads at one moment, from its construction to its destruction.
class RegistryReading {
public:
    explicit RegistryReading(Registry& registry) : m_registry(registry) { m_registry.BeginReading(); }
    ~RegistryReading() { m_registry.EndReading(); }
    RegistryReading(const RegistryReading&) = delete;
    RegistryReading& operator=(const RegistryReading&) = delete;

private:
    Registry& m_registry;
};

/// The registry of the station. Lives until the process ends.
Registry& StationRegistry();

} // namespace nesk::platform
