#pragma once

#include "platform/FileSystem.h"

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

namespace nesk {

/// Bytes that are read sequentially: a file, or a string in memory.
class ByteSource {
public:
    virtual ~ByteSource() = default;

    /// Reads up to `capacity` bytes into `buffer`. Raises the run-time error of a failed read.
    /// @return the number of bytes read; 0 only at the end
    virtual std::size_t Read(char* buffer, std::size_t capacity) = 0;

    /// The name of the source in messages: the path of a file.
    virtual const std::string& Name() const = 0;
};

/// A file of the station.
class FileSource final : public ByteSource {
public:
    /// Opens the file. Raises the run-time error of the failure, for example FileNotFound.
    explicit FileSource(std::string path, platform::FileSystem& files = platform::StationFiles());

    std::size_t Read(char* buffer, std::size_t capacity) override;
    const std::string& Name() const override { return m_path; }

private:
    std::string m_path;
    std::unique_ptr<platform::FileReader> m_reader;
};

/// A string in memory.
class TextSource final : public ByteSource {
public:
    /// @param text  must outlive the source
    /// @param name  name of the source in messages
    TextSource(std::string_view text, std::string name) : m_rest(text), m_name(std::move(name)) {}

    std::size_t Read(char* buffer, std::size_t capacity) override;
    const std::string& Name() const override { return m_name; }

private:
    std::string_view m_rest;
    std::string m_name;
};

} // namespace nesk
