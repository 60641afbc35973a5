#include "menu/ReadMenuQuietly.h"

#include "base/ByteSource.h"
#include "base/FileErrors.h"
#include "base/Messages.h"
#include "menu/BlockParser.h"
#include "menu/MenuKeys.h"
#include "menu/MenuReader.h"

#include <new>
#include <utility>
#include <vector>

namespace nesk {

namespace {

// A file whose bytes are hashed as they are read.
class HashingSource final : public ByteSource {
public:
    HashingSource(std::string path, std::unique_ptr<platform::FileReader> reader, FileHash& hash)
        : m_path(std::move(path)), m_reader(std::move(reader)), m_hash(hash) {
        m_hash.Add({}); // the file exists, even if it is empty
    }

    std::size_t Read(char* buffer, std::size_t capacity) override {
        std::size_t count = 0;
        const platform::ErrorCode result = m_reader->Read(buffer, capacity, count);
        if (result != platform::ErrorCode::Success) throw FileError(result, "ReadMenuQuietly", m_path);
        m_hash.Add({buffer, count});
        return count;
    }

    const std::string& Name() const override { return m_path; }

private:
    std::string m_path;
    std::unique_ptr<platform::FileReader> m_reader;
    FileHash& m_hash;
};

} // namespace

QuietMenu ReadMenuQuietly(const std::string& path, const std::string& rootDirectory,
                          platform::FileSystem& files) {
    QuietMenu result;
    std::unique_ptr<platform::FileReader> reader;
    const platform::ErrorCode opened = files.OpenForReading(path, reader);
    if (opened == platform::ErrorCode::FileNotFound || opened == platform::ErrorCode::PathNotFound)
        return result;
    result.menu = std::make_unique<Menu>();
    result.menu->Initialize(rootDirectory);
    BlockParser parser(MenuKeys);
    try {
        if (opened != platform::ErrorCode::Success) throw FileError(opened, "ReadMenuQuietly", path);
        parser.Open(std::make_unique<HashingSource>(path, std::move(reader), result.hash));
        result.endIsMissing = !MenuReader(parser).ReadMenu(*result.menu);
        return result;
    } catch (const NeskError& error) {
        result.error = error;
    } catch (const std::bad_alloc&) {
        result.error = NeskError(RuntimeError::OutOfMemory, "ReadMenuQuietly", Message::OutOfMemory, {path});
    }
    result.error->file = path;
    result.error->line = parser.CurrentLine();
    // Reading stopped somewhere in the file, so the bytes so far would not identify it.
    parser.CloseFile();
    result.hash = FileHash::Of(path, files);
    return result;
}

} // namespace nesk
