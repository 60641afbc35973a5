#include "journal/BaseCopy.h"

#include "platform/ErrorCode.h"

#include <array>
#include <cstddef>
#include <exception>
#include <new>

namespace nesk {

namespace {

using Contents = std::shared_ptr<const std::string>;

Contents Read(const std::string& path, const FileHash& hash, platform::FileSystem& files) {
    std::unique_ptr<platform::FileReader> reader;
    if (files.OpenForReading(path, reader) != platform::ErrorCode::Success) return nullptr;
    try {
        auto bytes = std::make_shared<std::string>();
        FileHash read;
        read.Add({}); // the file exists, even if it is empty
        std::array<char, 65536> buffer{};
        for (;;) {
            std::size_t count = 0;
            if (reader->Read(buffer.data(), buffer.size(), count) != platform::ErrorCode::Success)
                return nullptr;
            if (count == 0) break;
            bytes->append(buffer.data(), count);
            read.Add({buffer.data(), count});
        }
        return read == hash ? bytes : nullptr;
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}

} // namespace

void BaseCopy::Read(const std::string& path, const FileHash& hash, platform::FileSystem& files,
                    const BackgroundRunner& inBackground) {
    Clear();
    if (!hash.Exists() || hash.Error() != platform::ErrorCode::Success) return;
    const auto promise = std::make_shared<std::promise<Contents>>();
    m_bytes = promise->get_future().share();
    if (!inBackground([=, &files] { promise->set_value(nesk::Read(path, hash, files)); }))
        promise->set_value(nullptr);
}

std::function<Contents()> BaseCopy::Bytes() const {
    return [bytes = m_bytes]() -> Contents {
        if (!bytes.valid()) return nullptr;
        try {
            return bytes.get();
        } catch (const std::exception&) {
            return nullptr; // nobody has read it
        }
    };
}

} // namespace nesk
