#pragma once

#include "platform/ErrorCode.h"
#include "platform/FileSystem.h"
#include "unit/platform/TempStation.h"

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>

namespace nesk::testing {

/// The station's files without waiting for the disk, which makes thousands of saves fast.
class QuickFiles final : public platform::FileSystem {
public:
    platform::ErrorCode Attributes(const std::string& path, std::uint32_t& attributes) override {
        return m_files.Attributes(path, attributes);
    }
    platform::ErrorCode Search(const std::string& pattern, std::unique_ptr<platform::DirectorySearch>& search,
                               platform::DirectoryEntry& first) override {
        return m_files.Search(pattern, search, first);
    }
    platform::ErrorCode MakeFolder(const std::string& path) override { return m_files.MakeFolder(path); }
    platform::ErrorCode OpenForReading(const std::string& path,
                                       std::unique_ptr<platform::FileReader>& reader) override {
        return m_files.OpenForReading(path, reader);
    }
    platform::ErrorCode CreateNew(const std::string& path,
                                  std::unique_ptr<platform::FileWriter>& writer) override {
        std::unique_ptr<platform::FileWriter> file;
        const platform::ErrorCode result = m_files.CreateNew(path, file);
        if (result == platform::ErrorCode::Success) writer = std::make_unique<Writer>(std::move(file));
        return result;
    }
    platform::ErrorCode RemoveFile(const std::string& path) override { return m_files.RemoveFile(path); }
    platform::ErrorCode RemoveAbandoned(const std::string& path) override {
        return m_files.RemoveAbandoned(path);
    }
    platform::ErrorCode RemoveUnheld(const std::string& path) override { return m_files.RemoveUnheld(path); }
    bool IsHeld(const std::string& path) override { return m_files.IsHeld(path); }
    platform::ErrorCode CopyAccessRights(const std::string& from, const std::string& to) override {
        return m_files.CopyAccessRights(from, to);
    }
    // Some file systems flush a file that replaces another one, so the other file is removed first.
    platform::ErrorCode KeepCopy(const std::string& path, const std::string& copy, bool mayReplace) override {
        const std::filesystem::path target = TempStation::Host(copy);
        std::error_code error;
        if (mayReplace) std::filesystem::remove(target, error);
        std::filesystem::copy_file(TempStation::Host(path), target, error);
        return error ? platform::ErrorCode::WriteFault : platform::ErrorCode::Success;
    }
    platform::ErrorCode Replace(const std::string& path, const std::string& replacement) override {
        const std::filesystem::path target = TempStation::Host(path);
        std::error_code error;
        std::filesystem::remove(target, error);
        std::filesystem::rename(TempStation::Host(replacement), target, error);
        return error ? platform::ErrorCode::WriteFault : platform::ErrorCode::Success;
    }

private:
    class Writer final : public platform::FileWriter {
    public:
        explicit Writer(std::unique_ptr<platform::FileWriter> file) : m_file(std::move(file)) {}
        platform::ErrorCode Write(std::string_view bytes) override { return m_file->Write(bytes); }
        platform::ErrorCode Flush() override { return platform::ErrorCode::Success; }
        platform::ErrorCode Close() override { return m_file->Close(); }

    private:
        std::unique_ptr<platform::FileWriter> m_file;
    };

    platform::FileSystem& m_files = platform::StationFiles();
};

} // namespace nesk::testing
