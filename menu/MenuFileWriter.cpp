#include "menu/MenuFileWriter.h"

#include "menu/Menu.h"
#include "menu/MenuItem.h"
#include "menu/MenuItemCollection.h"
#include "menu/MenuText.h"

#include <algorithm>
#include <vector>

namespace nesk {

namespace {

const std::string Source = "Menu.SaveToFile";
constexpr std::size_t BufferSize = std::size_t{1} << 18;
// Readers skip the tabs. Deeper than this they would only make the file grow with the square of its depth.
constexpr std::size_t DeepestIndent = 64;

} // namespace

Backup BackupOf(const std::string& path) {
    return {path + ".bak", true};
}

FileFingerprint MenuFileWriter::Save(const std::string& path, const Backup& backup) {
    SafeFile file(path, m_files);
    m_file = &file;
    m_fingerprint = {};
    m_buffer.resize(BufferSize);
    m_used = 0;
    WriteTree();
    FlushBuffer();
    m_file = nullptr;
    file.Commit(backup);
    return m_fingerprint;
}

void MenuFileWriter::WriteTree() {
    WriteLine(0, "BLOCK MENU");
    WriteValue(1, "CAPTION=", m_menu.Caption());
    WriteValue(1, "GRAPHIC=", m_menu.Graphic());
    // The entries whose blocks are open and how many of their children are written. No recursion: a menu may
    // be nested deeper than the machine stack could follow.
    struct Open {
        MenuEntry* entry;
        int written;
    };
    std::vector<Open> open{{&m_menu, 0}};
    while (!open.empty()) {
        Open& top = open.back();
        if (top.written < top.entry->ChildCount()) {
            MenuItem& item = top.entry->SubMenus().Item(++top.written);
            WriteItem(item, open.size());
            open.push_back({&item, 0});
        } else {
            open.pop_back();
            WriteLine(open.size(), "END");
        }
    }
}

void MenuFileWriter::WriteItem(const MenuItem& item, std::size_t level) {
    WriteLine(level, "BLOCK SUBMENU");
    WriteValue(level + 1, "CAPTION=", item.Caption());
    WriteValue(level + 1, "GRAPHIC=", item.Graphic());
    WriteValue(level + 1, "PREVIEW=", item.Preview());
    WriteValue(level + 1, "HELPFILE=", item.HelpFile());
    WriteLine(level + 1, "HELPTOPIC=", std::to_string(item.HelpTopic()));
    WriteValue(level + 1, "MENUTYPE=", item.MenuType());
    WriteValue(level + 1, "PROGRAMID=", item.ProgramID());
    WriteValue(level + 1, "HISTORY_DIR=", item.HistoryDir());
    WriteValue(level + 1, "HISTORY_TITLE=", item.HistoryTitle());
}

void MenuFileWriter::WriteValue(std::size_t level, std::string_view key, std::string_view text) {
    if (MenuText::IsPlain(text)) return WriteLine(level, key, text);
    // A value that broke out of its line would make the whole file unreadable.
    if (text.find_first_of("\r\n") != std::string_view::npos) MenuText::Check(text, Source);
    WriteLine(level, key, MenuText::Encode(text, Source));
}

void MenuFileWriter::WriteLine(std::size_t level, std::string_view text, std::string_view rest) {
    const std::size_t tabs = std::min(level, DeepestIndent);
    const std::size_t length = tabs + text.size() + rest.size() + 2;
    if (length > m_buffer.size() - m_used) FlushBuffer();
    // Only a line with a very long value: the buffer grows with it.
    if (length > m_buffer.size()) m_buffer.resize(length);
    char* at = m_buffer.data() + m_used;
    m_used += length;
    at = std::fill_n(at, tabs, '\t');
    at = std::copy(text.begin(), text.end(), at);
    at = std::copy(rest.begin(), rest.end(), at);
    at[0] = '\r';
    at[1] = '\n';
}

void MenuFileWriter::FlushBuffer() {
    const std::string_view bytes(m_buffer.data(), m_used);
    m_file->Write(bytes);
    m_fingerprint.Add(bytes);
    m_used = 0;
}

} // namespace nesk
