#include "bench/SampleFiles.h"

#include "bench/SampleTree.h"

#include <cstdio>
#include <cstdlib>
#include <string_view>

namespace nesk::bench {

namespace {

class TextFile {
public:
    explicit TextFile(const std::string& path) : m_file(std::fopen(path.c_str(), "wb")) {
        if (m_file == nullptr) Fail();
    }
    ~TextFile() {
        if (std::fclose(m_file) != 0) Fail();
    }
    TextFile(const TextFile&) = delete;
    TextFile& operator=(const TextFile&) = delete;

    void Put(std::string_view text) {
        if (std::fwrite(text.data(), 1, text.size(), m_file) != text.size()) Fail();
    }

private:
    static void Fail() {
        std::perror("a sample file");
        std::exit(2);
    }

    std::FILE* m_file;
};

// The name of a field in the files, and the member that holds its text.
struct Field {
    const char* name;
    std::string SampleEntry::*text;
};

constexpr Field BeforeTopic[] = {{"CAPTION", &SampleEntry::caption},
                                 {"GRAPHIC", &SampleEntry::graphic},
                                 {"PREVIEW", &SampleEntry::preview},
                                 {"HELPFILE", &SampleEntry::helpFile}};
constexpr Field BehindTopic[] = {{"MENUTYPE", &SampleEntry::menuType},
                                 {"PROGRAMID", &SampleEntry::programId},
                                 {"HISTORY_DIR", &SampleEntry::historyDir},
                                 {"HISTORY_TITLE", &SampleEntry::historyTitle}};

// A writer that receives the fields of an entry one by one, all as text.
class FieldWriter : public SampleWriter {
protected:
    explicit FieldWriter(const std::string& path) : file(path) {}

    virtual void PutField(const char* name, const std::string& text, bool number) = 0;

    void PutFields(const SampleEntry& entry) {
        for (const Field& field : BeforeTopic)
            PutField(field.name, entry.*field.text, false);
        PutField("HELPTOPIC", std::to_string(entry.helpTopic), true);
        for (const Field& field : BehindTopic)
            PutField(field.name, entry.*field.text, false);
    }

    TextFile file;
};

class BlockWriter final : public FieldWriter {
public:
    explicit BlockWriter(const std::string& path) : FieldWriter(path) {}
    void BeginMenu() override { file.Put("BLOCK MENU\r\n\tCAPTION=Main Menu\r\n\tGRAPHIC=\r\n"); }
    void BeginItem(const SampleEntry& entry) override {
        m_indent += '\t';
        file.Put(m_indent + "BLOCK SUBMENU\r\n");
        PutFields(entry);
    }
    void EndItem() override {
        file.Put(m_indent + "END\r\n");
        m_indent.pop_back();
    }
    void EndMenu() override { file.Put("END\r\n"); }

private:
    void PutField(const char* name, const std::string& text, bool) override {
        file.Put(m_indent + "\t" + name + "=" + Western(text) + "\r\n");
    }

    // Every character of the sample that is not ASCII has the same lead byte in UTF-8.
    static std::string Western(const std::string& text) {
        std::string bytes;
        for (std::size_t i = 0; i < text.size(); ++i) {
            const bool lead = text[i] == '\xC3';
            bytes += lead ? static_cast<char>(static_cast<unsigned char>(text[++i]) + 0x40) : text[i];
        }
        return bytes;
    }

    std::string m_indent;
};

class XmlWriter final : public FieldWriter {
public:
    explicit XmlWriter(const std::string& path) : FieldWriter(path) {}
    void BeginMenu() override {
        file.Put("<?xml version=\"1.0\"?>\n<MENU CAPTION=\"Main Menu\" GRAPHIC=\"\">\n");
    }
    void BeginItem(const SampleEntry& entry) override {
        file.Put("<SUBMENU");
        PutFields(entry);
        file.Put(">");
    }
    void EndItem() override { file.Put("</SUBMENU>\n"); }
    void EndMenu() override { file.Put("</MENU>\n"); }

private:
    void PutField(const char* name, const std::string& text, bool) override {
        file.Put(std::string(" ") + name + "=\"" + text + "\"");
    }
};

class JsonWriter final : public FieldWriter {
public:
    explicit JsonWriter(const std::string& path) : FieldWriter(path) {}
    void BeginMenu() override { file.Put(R"({"CAPTION":"Main Menu","GRAPHIC":"","SUBMENUS":[)"); }
    void BeginItem(const SampleEntry& entry) override {
        file.Put(m_first ? "\n{" : ",\n{");
        PutFields(entry);
        file.Put("\"SUBMENUS\":[");
        m_first = true;
    }
    void EndItem() override {
        file.Put("]}");
        m_first = false;
    }
    void EndMenu() override { file.Put("]}\n"); }

private:
    void PutField(const char* name, const std::string& text, bool number) override {
        std::string value;
        for (const char c : text)
            value.append(c == '\\' ? 2 : 1, c);
        if (!number) value = "\"" + value + "\"";
        file.Put(std::string("\"") + name + "\":" + value + ",");
    }

    bool m_first = true;
};

class InfoWriter final : public FieldWriter {
public:
    explicit InfoWriter(const std::string& path) : FieldWriter(path) {}
    void BeginMenu() override { file.Put("MENU\n{\nCAPTION \"Main Menu\"\nGRAPHIC \"\"\n"); }
    void BeginItem(const SampleEntry& entry) override {
        file.Put("SUBMENU\n{\n");
        PutFields(entry);
    }
    void EndItem() override { file.Put("}\n"); }
    void EndMenu() override { file.Put("}\n"); }

private:
    void PutField(const char* name, const std::string& text, bool) override {
        std::string value;
        for (const char c : text)
            value.append(c == '\\' ? 2 : 1, c);
        file.Put(std::string(name) + " \"" + value + "\"\n");
    }
};

template <typename Writer>
void WriteFile(const std::string& path, int items) {
    Writer writer(path);
    VisitSampleTree(writer, items);
}

} // namespace

void WriteBlockFile(const std::string& path, int items) {
    WriteFile<BlockWriter>(path, items);
}

void WriteXmlFile(const std::string& path, int items) {
    WriteFile<XmlWriter>(path, items);
}

void WriteJsonFile(const std::string& path, int items) {
    WriteFile<JsonWriter>(path, items);
}

void WriteInfoFile(const std::string& path, int items) {
    WriteFile<InfoWriter>(path, items);
}

} // namespace nesk::bench
