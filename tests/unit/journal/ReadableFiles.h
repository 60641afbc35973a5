#pragma once

#include "platform/ErrorCode.h"
#include "platform/FileSystem.h"

#include <algorithm>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

namespace nesk::testing {

/// The station's files, of which those can be read that are still being written: on Windows the system does
/// not allow that. What was written is read from memory until its writer is gone.
class ReadableFiles final : public platform::FileSystem {
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
        const auto written = m_written->find(path);
        if (written == m_written->end()) return m_files.OpenForReading(path, reader);
        reader = std::make_unique<Reader>(written->second);
        return platform::ErrorCode::Success;
    }
    platform::ErrorCode CreateNew(const std::string& path,
                                  std::unique_ptr<platform::FileWriter>& writer) override {
        std::unique_ptr<platform::FileWriter> file;
        const platform::ErrorCode result = m_files.CreateNew(path, file);
        if (result == platform::ErrorCode::Success)
            writer = std::make_unique<Writer>(std::move(file), path, m_written);
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
    void ApplyDefaultRights(const std::string& path) override { m_files.ApplyDefaultRights(path); }
    platform::ErrorCode KeepCopy(const std::string& path, const std::string& copy, bool mayReplace) override {
        return m_files.KeepCopy(path, copy, mayReplace);
    }
    platform::ErrorCode Replace(const std::string& path, const std::string& replacement) override {
        return m_files.Replace(path, replacement);
    }

private:
    using Written = std::map<std::string, std::string>; // by path

    class Reader final : public platform::FileReader {
    public:
        explicit Reader(std::string bytes) : m_bytes(std::move(bytes)) {}
        platform::ErrorCode Read(char* buffer, std::size_t capacity, std::size_t& count) override {
            count = m_bytes.copy(buffer, std::min(capacity, m_bytes.size() - m_at), m_at);
            m_at += count;
            return platform::ErrorCode::Success;
        }

    private:
        std::string m_bytes;
        std::size_t m_at = 0;
    };

    class Writer final : public platform::FileWriter {
    public:
        Writer(std::unique_ptr<platform::FileWriter> file, std::string path, std::shared_ptr<Written> written)
            : m_file(std::move(file)), m_path(std::move(path)), m_written(std::move(written)) {
            (*m_written)[m_path] = "";
        }
        ~Writer() override { m_written->erase(m_path); }
        Writer(const Writer&) = delete;
        Writer& operator=(const Writer&) = delete;
        platform::ErrorCode Write(std::string_view bytes) override {
            const platform::ErrorCode result = m_file->Write(bytes);
            if (result == platform::ErrorCode::Success) (*m_written)[m_path] += bytes;
            return result;
        }
        platform::ErrorCode Flush() override { return m_file->Flush(); }
        platform::ErrorCode Close() override { return m_file->Close(); }

    private:
        std::unique_ptr<platform::FileWriter> m_file;
        std::string m_path;
        std::shared_ptr<Written> m_written;
    };

    platform::FileSystem& m_files = platform::StationFiles();
    std::shared_ptr<Written> m_written = std::make_shared<Written>();
};

} // namespace nesk::testing
