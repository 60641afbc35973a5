#pragma once

#include "platform/ErrorCode.h"
#include "platform/FileSystem.h"

#include <functional>
#include <limits>
#include <memory>
#include <string>
#include <string_view>
#include <tuple>
#include <utility>
#include <vector>

namespace nesk::testing {

/// Describes which operations fail, and how.
struct Fault {
    int first = 0; ///< 1-based number of the first operation that fails; 0 for no failure
    platform::ErrorCode code = platform::ErrorCode::DiskFull;
    bool lasting = false; ///< every later operation fails as well
    bool done = false;    ///< the operation is carried out but reports a failure, as when a reply is lost
};

/// The files of a file system, by default the station's, with injected failures. Records the operations that
/// are requested.
class FaultyFiles final : public platform::FileSystem {
public:
    /// @param files  must outlive this object
    explicit FaultyFiles(Fault fault = {}, platform::FileSystem& files = platform::StationFiles())
        : m_files(files), m_fault(fault) {}

    /// Stops the failures: from now on every operation works.
    void Mend() { m_fault = {}; }

    /// Clears the recorded operations and uses `fault` for the following ones.
    void Restart(Fault fault = {}) {
        m_fault = fault;
        m_operations.clear();
        m_failed.clear();
    }

    /// Called before each operation with its 1-based number.
    std::function<void(int)> before;

    /// The requested operations, in order.
    const std::vector<std::string>& Operations() const { return m_operations; }

    /// The operations that failed on purpose.
    const std::vector<std::string>& Failed() const { return m_failed; }

    platform::ErrorCode Attributes(const std::string& path, std::uint32_t& attributes) override {
        return Run("attributes", [&] { return m_files.Attributes(path, attributes); });
    }
    platform::ErrorCode Search(const std::string& pattern, std::unique_ptr<platform::DirectorySearch>& search,
                               platform::DirectoryEntry& first) override {
        return Run("search", [&] {
            std::unique_ptr<platform::DirectorySearch> found;
            const platform::ErrorCode result = m_files.Search(pattern, found, first);
            if (result == platform::ErrorCode::Success)
                search = std::make_unique<SearchUnderWay>(*this, std::move(found));
            return result;
        });
    }
    platform::ErrorCode MakeFolder(const std::string& path) override {
        return Run("folder", [&] { return m_files.MakeFolder(path); });
    }
    platform::ErrorCode OpenForReading(const std::string& path,
                                       std::unique_ptr<platform::FileReader>& reader) override {
        return Run("open", [&] {
            std::unique_ptr<platform::FileReader> file;
            const platform::ErrorCode result = m_files.OpenForReading(path, file);
            if (result == platform::ErrorCode::Success)
                reader = std::make_unique<Reader>(*this, std::move(file));
            return result;
        });
    }
    platform::ErrorCode CreateNew(const std::string& path,
                                  std::unique_ptr<platform::FileWriter>& writer) override {
        return Run("create", [&] {
            std::unique_ptr<platform::FileWriter> file;
            const platform::ErrorCode result = m_files.CreateNew(path, file);
            if (result == platform::ErrorCode::Success)
                writer = std::make_unique<Writer>(*this, std::move(file));
            return result;
        });
    }
    platform::ErrorCode RemoveFile(const std::string& path) override {
        return Run("remove", [&] { return m_files.RemoveFile(path); });
    }
    platform::ErrorCode RemoveAbandoned(const std::string& path) override {
        return Run("abandoned", [&] { return m_files.RemoveAbandoned(path); });
    }
    platform::ErrorCode RemoveUnheld(const std::string& path) override {
        return Run("unheld", [&] { return m_files.RemoveUnheld(path); });
    }
    bool IsHeld(const std::string& path) override { return m_files.IsHeld(path); }
    void ApplyDefaultRights(const std::string& path) override { m_files.ApplyDefaultRights(path); }
    platform::ErrorCode CopyAccessRights(const std::string& from, const std::string& to) override {
        return Run("rights", [&] { return m_files.CopyAccessRights(from, to); });
    }
    platform::ErrorCode KeepCopy(const std::string& path, const std::string& copy, bool mayReplace) override {
        return Run("copy", [&] { return m_files.KeepCopy(path, copy, mayReplace); });
    }
    platform::ErrorCode Replace(const std::string& path, const std::string& replacement) override {
        return Run("replace", [&] { return m_files.Replace(path, replacement); });
    }

    /// Searches that were destroyed before they reached their end.
    int searchesLeftOpen = 0;

private:
    class SearchUnderWay final : public platform::DirectorySearch {
    public:
        SearchUnderWay(FaultyFiles& owner, std::unique_ptr<platform::DirectorySearch> search)
            : m_owner(owner), m_search(std::move(search)) {}
        ~SearchUnderWay() override {
            if (!m_ended) ++m_owner.searchesLeftOpen;
        }
        SearchUnderWay(const SearchUnderWay&) = delete;
        SearchUnderWay& operator=(const SearchUnderWay&) = delete;
        platform::ErrorCode Next(platform::DirectoryEntry& entry) override {
            const platform::ErrorCode result = m_search->Next(entry);
            if (result != platform::ErrorCode::Success) m_ended = true;
            return result;
        }

    private:
        FaultyFiles& m_owner;
        std::unique_ptr<platform::DirectorySearch> m_search;
        bool m_ended = false;
    };

    class Reader final : public platform::FileReader {
    public:
        Reader(FaultyFiles& owner, std::unique_ptr<platform::FileReader> file)
            : m_owner(owner), m_file(std::move(file)) {}
        platform::ErrorCode Read(char* buffer, std::size_t capacity, std::size_t& count) override {
            count = 0;
            return m_owner.Run("read", [&] { return m_file->Read(buffer, capacity, count); });
        }

    private:
        FaultyFiles& m_owner;
        std::unique_ptr<platform::FileReader> m_file;
    };

    class Writer final : public platform::FileWriter {
    public:
        Writer(FaultyFiles& owner, std::unique_ptr<platform::FileWriter> file)
            : m_owner(owner), m_file(std::move(file)) {}
        platform::ErrorCode Write(std::string_view bytes) override {
            // A full disk writes a part of the bytes.
            return m_owner.Run(
                "write", [&] { return m_file->Write(bytes); },
                [&] { std::ignore = m_file->Write(bytes.substr(0, bytes.size() / 2)); });
        }
        platform::ErrorCode Flush() override {
            return m_owner.Run("flush", [&] { return m_file->Flush(); });
        }
        platform::ErrorCode Close() override {
            // A file is closed even if its last bytes cannot be written.
            return m_owner.Run(
                "close", [&] { return m_file->Close(); }, [&] { std::ignore = m_file->Close(); });
        }

    private:
        FaultyFiles& m_owner;
        std::unique_ptr<platform::FileWriter> m_file;
    };

    // Runs an operation, or runs `failing` instead and returns the code of the fault.
    platform::ErrorCode Run(const char* name, const std::function<platform::ErrorCode()>& operation,
                            const std::function<void()>& failing = {}) {
        m_operations.push_back(name);
        const int number = static_cast<int>(m_operations.size());
        if (before) before(number);
        const int last = m_fault.lasting ? std::numeric_limits<int>::max() : m_fault.first;
        if (m_fault.first == 0 || number < m_fault.first || number > last) return operation();
        m_failed.push_back(name);
        // The caller gets the code of the fault, whatever really happened.
        if (m_fault.done)
            std::ignore = operation();
        else if (failing)
            failing();
        return m_fault.code;
    }

    platform::FileSystem& m_files;
    Fault m_fault;
    std::vector<std::string> m_operations;
    std::vector<std::string> m_failed;
};

} // namespace nesk::testing
