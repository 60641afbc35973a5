#include "bench/Contender.h"

#include <boost/property_tree/info_parser.hpp>
#include <boost/property_tree/ptree.hpp>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <pugixml.hpp>
#include <rapidjson/document.h>
#include <rapidjson/filewritestream.h>
#include <rapidjson/writer.h>
#include <sys/stat.h>
#include <unistd.h>

namespace nesk::bench {

namespace {

[[noreturn]] void Fail(const std::string& what) {
    std::fprintf(stderr, "%s\n", what.c_str());
    std::exit(2);
}

// The file's bytes, followed by a zero.
struct Bytes {
    std::unique_ptr<char[]> data;
    std::size_t size = 0;
};

Bytes ReadWhole(const std::string& path) {
    const int file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    struct stat status {};
    if (file < 0 || ::fstat(file, &status) != 0) Fail(path);
    Bytes bytes;
    bytes.size = static_cast<std::size_t>(status.st_size);
    bytes.data.reset(new char[bytes.size + 1]);
    for (std::size_t at = 0; at < bytes.size;) {
        const ssize_t got = ::read(file, bytes.data.get() + at, bytes.size - at);
        if (got <= 0) Fail(path);
        at += static_cast<std::size_t>(got);
    }
    bytes.data[bytes.size] = '\0';
    ::close(file);
    return bytes;
}

class Pugixml final : public Contender {
public:
    void Load(const std::string& path) override {
        if (!m_document.load_file(path.c_str())) Fail(path);
    }
    void Save(const std::string& path) override {
        if (!m_document.save_file(path.c_str(), "\t", pugi::format_indent, pugi::encoding_utf8)) Fail(path);
    }
    int Count() override {
        struct Counter final : pugi::xml_tree_walker {
            bool for_each(pugi::xml_node& node) override {
                if (std::strcmp(node.name(), "SUBMENU") == 0) ++count;
                return true;
            }
            int count = 0;
        } counter;
        m_document.traverse(counter);
        return counter.count;
    }

private:
    pugi::xml_document m_document;
};

class RapidJson final : public Contender {
public:
    void Load(const std::string& path) override {
        m_bytes = ReadWhole(path);
        m_document.ParseInsitu(m_bytes.data.get());
        if (m_document.HasParseError()) Fail(path);
    }
    void Save(const std::string& path) override {
        std::FILE* file = std::fopen(path.c_str(), "wb");
        if (file == nullptr) Fail(path);
        std::string buffer(std::size_t{1} << 18, '\0');
        rapidjson::FileWriteStream stream(file, buffer.data(), buffer.size());
        rapidjson::Writer<rapidjson::FileWriteStream> writer(stream);
        m_document.Accept(writer);
        if (std::fclose(file) != 0) Fail(path);
    }
    int Count() override { return CountBelow(m_document); }

private:
    static int CountBelow(const rapidjson::Value& value) {
        int count = 0;
        for (const rapidjson::Value& child : value["SUBMENUS"].GetArray())
            count += 1 + CountBelow(child);
        return count;
    }

    Bytes m_bytes;
    rapidjson::Document m_document;
};

class BoostInfo final : public Contender {
public:
    void Load(const std::string& path) override { boost::property_tree::read_info(path, m_tree); }
    void Save(const std::string& path) override { boost::property_tree::write_info(path, m_tree); }
    int Count() override { return CountBelow(m_tree); }

private:
    static int CountBelow(const boost::property_tree::ptree& tree) {
        int count = 0;
        for (const auto& [name, child] : tree)
            count += (name == "SUBMENU" ? 1 : 0) + CountBelow(child);
        return count;
    }

    boost::property_tree::ptree m_tree;
};

class Scan final : public Contender {
public:
    void Load(const std::string& path) override {
        m_bytes = ReadWhole(path);
        const char* const end = m_bytes.data.get() + m_bytes.size;
        const char* at = m_bytes.data.get();
        while (at != end) {
            const auto* found =
                static_cast<const char*>(std::memchr(at, '\n', static_cast<std::size_t>(end - at)));
            if (found == nullptr) break;
            ++m_lines;
            at = found + 1;
        }
    }
    void Save(const std::string&) override { Fail("a scan saves nothing"); }
    // Eleven lines per item, four for the menu.
    int Count() override { return (m_lines - 4) / 11; }

private:
    Bytes m_bytes;
    int m_lines = 0;
};

} // namespace

std::unique_ptr<Contender> MakePugixml() {
    return std::make_unique<Pugixml>();
}

std::unique_ptr<Contender> MakeRapidJson() {
    return std::make_unique<RapidJson>();
}

std::unique_ptr<Contender> MakeBoostInfo() {
    return std::make_unique<BoostInfo>();
}

std::unique_ptr<Contender> MakeScan() {
    return std::make_unique<Scan>();
}

} // namespace nesk::bench
