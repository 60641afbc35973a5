#pragma once

#include "platform/ErrorCode.h"
#include "platform/Registry.h"
#include "platform/TextEncoding.h"
#include "unit/platform/TempStation.h"

#include <array>
#include <gtest/gtest.h>
#include <optional>
#include <string>
#include <tuple>
#include <vector>

namespace nesk::platform::testing {

/// A fresh station with an empty registry.
class RegistryFixture : public ::testing::Test {
protected:
    RegistryFixture() { SelectCodePage(1033); }
    ~RegistryFixture() override { SelectCodePage(1033); }

    static Registry& Reg() { return StationRegistry(); }

    /// The key that paths are relative to.
    static RegKey Root() { return s_root; }

    /// Opens a key and creates its missing parts; returns 0 and fails the test if that is not possible.
    static RegKey Create(const std::string& path, RegKey parent = Root(),
                         std::uint32_t access = RegAccess::ReadWrite) {
        RegKey key = 0;
        EXPECT_EQ(ErrorCode::Success, Reg().CreateKey(parent, path, access, key)) << path;
        EXPECT_NE(0U, key);
        return key;
    }

    /// The result of opening a key. The key is closed again.
    static ErrorCode OpenResult(const std::string& path, std::uint32_t access = RegAccess::ReadWrite) {
        RegKey key = 1;
        const ErrorCode result = Reg().OpenKey(Root(), path, access, key);
        if (result == ErrorCode::Success) {
            EXPECT_NE(0U, key);
            EXPECT_EQ(ErrorCode::Success, Reg().CloseKey(key));
        } else {
            EXPECT_EQ(0U, key);
        }
        return result;
    }

    static ErrorCode Set(RegKey key, const std::string& name, std::string_view data,
                         std::uint32_t type = RegType::Text) {
        return Reg().SetValue(key, name, type, data);
    }

    /// The data of a value; nothing if the value is missing.
    static std::optional<std::string> Get(RegKey key, const std::string& name) {
        std::uint32_t size = 0;
        if (Reg().QueryValue(key, name, nullptr, nullptr, &size) != ErrorCode::Success) return std::nullopt;
        std::string data(size, '#');
        EXPECT_EQ(ErrorCode::Success, Reg().QueryValue(key, name, nullptr, data.data(), &size));
        EXPECT_EQ(data.size(), size);
        return data;
    }

    static std::vector<std::string> Subkeys(RegKey key) {
        std::vector<std::string> names;
        std::array<char, 512> name{};
        while (Reg().EnumKey(key, static_cast<std::uint32_t>(names.size()), name.data(), 512) ==
               ErrorCode::Success)
            names.emplace_back(name.data());
        return names;
    }

    static std::vector<std::string> Values(RegKey key) {
        std::vector<std::string> names;
        for (;;) {
            std::array<char, 512> name{};
            std::uint32_t size = 512;
            const auto index = static_cast<std::uint32_t>(names.size());
            if (Reg().EnumValue(key, index, name.data(), &size, nullptr, nullptr, nullptr) !=
                ErrorCode::Success)
                return names;
            names.emplace_back(name.data(), size);
        }
    }

    TempStation station;

    static inline RegKey s_root = LocalMachine;
};

/// The same fixture for tests that run on both kinds of station. They use a key of their own, because Windows
/// does not allow creating keys directly below the real root.
class RegistryKeyFixture : public RegistryFixture {
protected:
    RegistryKeyFixture() { s_root = Create("SOFTWARE\\Quarndale\\Test"); }
    ~RegistryKeyFixture() override {
        // A test may have switched to another station, which closes all keys.
        std::ignore = Reg().CloseKey(s_root);
        s_root = LocalMachine;
    }
};

} // namespace nesk::platform::testing
