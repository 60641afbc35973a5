#include "menu/MenuFile.h"

#include "menu/MenuWriter.h"
#include "platform/ErrorCode.h"

#include <cstdint>

namespace nesk {

namespace {

// A sink that passes bytes on to another sink and hashes them.
class HashingSink final : public ByteSink {
public:
    explicit HashingSink(ByteSink& sink) : m_sink(sink) {}

    void Write(std::string_view bytes) override {
        m_sink.Write(bytes);
        m_hash.Add(bytes);
    }

    const FileHash& Hash() const { return m_hash; }

private:
    ByteSink& m_sink;
    FileHash m_hash;
};

// A sink that only hashes the bytes.
class HashSink final : public ByteSink {
public:
    void Write(std::string_view bytes) override { m_hash.Add(bytes); }
    const FileHash& Hash() const { return m_hash; }

private:
    FileHash m_hash;
};

bool IsFirstOf(const Backup& backup, platform::FileSystem& files) {
    std::uint32_t attributes = 0;
    return backup.mayReplace &&
           files.Attributes(backup.path, attributes) == platform::ErrorCode::FileNotFound;
}

} // namespace

FileHash SaveMenuFile(const Menu& menu, const std::string& path, const Backup& backup, const FileHash& known,
                      platform::FileSystem& files) {
    SafeFile file(path, files);
    HashingSink sink(file);
    MenuWriter(sink).WriteMenu(menu);
    const bool isSame = sink.Hash() == known && FileHash::Of(path, files) == known;
    file.Commit(isSame && !IsFirstOf(backup, files) ? Backup{} : backup);
    return sink.Hash();
}

FileHash HashOfSaved(const Menu& menu) {
    HashSink sink;
    MenuWriter(sink).WriteMenu(menu);
    return sink.Hash();
}

} // namespace nesk
