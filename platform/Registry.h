#pragma once

#include "platform/ErrorCode.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <tuple>

namespace nesk::platform {

/// Handle of an open registry key; 0 is no key.
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

/// The station's registry. Every operation returns a result code (ErrorCode.h) and never throws.
///
/// Names and text data are bytes of the station's code page, and sizes count those bytes, as in the ANSI
/// registry functions. Key and value names are compared without regard to case and keep the spelling with
/// which they were created.
class Registry {
public:
    virtual ~Registry() = default;

    /// Opens the key at `path` below `parent`. Levels are separated by "\"; "" is `parent` itself.
    /// FileNotFound when a level is missing; BadPathName when the path begins with "\". On failure `key` is
    /// 0.
    virtual ErrorCode OpenKey(RegKey parent, const std::string& path, std::uint32_t access, RegKey& key) = 0;

    /// Like OpenKey, but creates missing levels.
    virtual ErrorCode CreateKey(RegKey parent, const std::string& path, std::uint32_t access,
                                RegKey& key) = 0;

    /// Closes a key. InvalidHandle when it is not open; closing LocalMachine does nothing.
    virtual ErrorCode CloseKey(RegKey key) = 0;

    /// Reads a value. `size` is the capacity of `data` on entry and the size of the value afterwards. With a
    /// null `data` only the size is queried. MoreData, with `size` set and `data` untouched, when the value
    /// is larger than the buffer; FileNotFound when the value does not exist. Text is returned as it was
    /// stored, including any terminating zero.
    virtual ErrorCode QueryValue(RegKey key, const std::string& name, std::uint32_t* type, char* data,
                                 std::uint32_t* size) = 0;

    /// Writes a value, replacing any value of the same name. InvalidParameter for a name over 16,383
    /// characters.
    virtual ErrorCode SetValue(RegKey key, const std::string& name, std::uint32_t type,
                               std::string_view data) = 0;

    /// Deletes a value; FileNotFound when it does not exist.
    virtual ErrorCode DeleteValue(RegKey key, const std::string& name) = 0;

    /// Deletes the subkey `subKey` with its values. AccessDenied when it has subkeys, FileNotFound when it is
    /// missing.
    virtual ErrorCode DeleteKey(RegKey parent, const std::string& subKey) = 0;

    /// Gets the name of the subkey at 0-based `index`, in the order of the upper-cased names, as a
    /// zero-terminated string in `name` of `capacity` bytes. NoMoreItems past the end; MoreData when the name
    /// with its zero does not fit.
    virtual ErrorCode EnumKey(RegKey key, std::uint32_t index, char* name, std::uint32_t capacity) = 0;

    /// Gets the name, type and data of the value at 0-based `index`, in the order in which the values were
    /// first written. `nameSize` is the capacity on entry and the length without the zero afterwards; `data`
    /// and `size` are as in QueryValue. NoMoreItems past the end; MoreData when the name with its zero or the
    /// data does not fit.
    virtual ErrorCode EnumValue(RegKey key, std::uint32_t index, char* name, std::uint32_t* nameSize,
                                std::uint32_t* type, char* data, std::uint32_t* size) = 0;

    /// Begins a group of writes. Where the registry supports it, a group is a transaction: all its writes are
    /// stored, or none if the program is killed before the end of the group. Other programs must wait until
    /// then to write. Groups may be nested; only the outermost takes effect.
    virtual void BeginGroup() {}

    /// Ends a group. May report that the writes of the group could not be stored.
    virtual ErrorCode EndGroup() { return ErrorCode::Success; }

    /// Begins a consistent read: where the registry supports it, writes of other programs are not visible
    /// until EndReading, so that related values are read together. Write nothing before EndReading.
    virtual void BeginReading() {}
    virtual void EndReading() {}

    /// Where the registry is stored, for messages: a folder or file of the station, or the name of the
    /// system's own registry.
    virtual std::string Location() const = 0;
};

/// A group of writes, from construction to End or destruction.
class RegistryGroup {
public:
    explicit RegistryGroup(Registry& registry) : m_registry(registry) { m_registry.BeginGroup(); }
    /// Ends the group like End, but cannot report a failure; without an error, End is called before.
    ~RegistryGroup() { std::ignore = End(); }
    RegistryGroup(const RegistryGroup&) = delete;
    RegistryGroup& operator=(const RegistryGroup&) = delete;

    /// Stores the writes. Further calls do nothing.
    ErrorCode End() {
        if (m_ended) return ErrorCode::Success;
        m_ended = true;
        return m_registry.EndGroup();
    }

private:
    Registry& m_registry;
    bool m_ended = false;
};

/// A consistent read, from construction to destruction.
class RegistryReading {
public:
    explicit RegistryReading(Registry& registry) : m_registry(registry) { m_registry.BeginReading(); }
    ~RegistryReading() { m_registry.EndReading(); }
    RegistryReading(const RegistryReading&) = delete;
    RegistryReading& operator=(const RegistryReading&) = delete;

private:
    Registry& m_registry;
};

/// The registry of the station. Exists until the process ends.
Registry& StationRegistry();

} // namespace nesk::platform
