#pragma once

#include "platform/FileSystem.h"

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace nesk {

/// Reads a file line by line, as bytes. A line ends with CR LF, LF or CR; the last one may have no end.
class LineReader {
public:
    /// Opens a file. Raises the run-time error of the failure, FileNotFound among them.
    explicit LineReader(const std::string& path);

    /// Reads the next line, without its end, into `line`. False at the end of the file, and then on every
    /// further call. Raises the run-time error of a failed read.
    bool ReadLine(std::string& line);

private:
    bool Fill();

    std::string m_path;
    std::unique_ptr<platform::FileReader> m_reader;
    std::vector<char> m_buffer;
    std::size_t m_at = 0;
    std::size_t m_end = 0;
};

} // namespace nesk
