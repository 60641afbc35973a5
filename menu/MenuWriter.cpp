#include "menu/MenuWriter.h"

#include "menu/LineScan.h"
#include "menu/Menu.h"
#include "menu/MenuItem.h"
#include "menu/MenuItemCollection.h"
#include "menu/MenuKeys.h"
#include "menu/MenuText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstring>
#include <limits>
#include <vector>

namespace nesk {

namespace {

const std::string Source = "Menu.SaveToFile";
constexpr std::string_view LineEnd = "\r\n";
constexpr std::size_t BufferSize = std::size_t{1} << 18;
// Limits the indent, which readers skip. Without a limit, the file size would grow with the square of the
// depth.
constexpr std::size_t MaxIndent = 64;

char* Put(char* at, std::string_view text) {
    return std::copy(text.begin(), text.end(), at);
}

// Copies the whole fixed-size array, which is one move, and returns the position after the key.
char* Put(char* at, MenuKey key) {
    const LineScan::Key& name = MenuKeys[static_cast<std::size_t>(key)];
    std::copy(name.bytes.begin(), name.bytes.end(), at);
    return at + name.length;
}

} // namespace

MenuWriter::MenuWriter(ByteSink& sink) : m_sink(sink), m_buffer(BufferSize) {}

void MenuWriter::WriteMenu(const Menu& menu) {
    WriteLine(0, "BLOCK MENU");
    WriteValue(1, MenuKey::Caption, menu.Caption());
    WriteValue(1, MenuKey::Graphic, menu.Graphic());
    WriteBelow(menu, 0);
    FlushBuffer();
}

void MenuWriter::WriteItems(std::span<const MenuItem* const> items, std::size_t level) {
    for (const MenuItem* item : items) {
        BeginItem(*item, level);
        WriteBelow(*item, level);
    }
    FlushBuffer();
}

// Writes the items below an entry, and the ends of all blocks. The entry's block started at `level`.
void MenuWriter::WriteBelow(const MenuEntry& entry, std::size_t level) {
    // An entry whose block is open, and the number of its children already written. There is no recursion,
    // because a deeply nested menu could overflow the machine stack.
    struct Open {
        const MenuEntry* entry;
        int written;
    };
    std::vector<Open> open{{&entry, 0}};
    while (!open.empty()) {
        Open& top = open.back();
        if (top.written < top.entry->ChildCount()) {
            const MenuItem& item = top.entry->Children()->Item(++top.written);
            BeginItem(item, level + open.size());
            open.push_back({&item, 0});
        } else {
            open.pop_back();
            WriteLine(level + open.size(), "END");
        }
    }
}

void MenuWriter::BeginItem(const MenuItem& item, std::size_t level) {
    WriteLine(level, "BLOCK SUBMENU");
    ++level;
    WriteValue(level, MenuKey::Caption, item.Caption());
    WriteValue(level, MenuKey::Graphic, item.Graphic());
    WriteValue(level, MenuKey::Preview, item.Preview());
    WriteValue(level, MenuKey::HelpFile, item.HelpFile());
    WriteNumber(level, MenuKey::HelpTopic, item.HelpTopic());
    WriteValue(level, MenuKey::MenuType, item.MenuType());
    WriteValue(level, MenuKey::ProgramId, item.ProgramID());
    WriteValue(level, MenuKey::HistoryDir, item.HistoryDir());
    WriteValue(level, MenuKey::HistoryTitle, item.HistoryTitle());
}

// Makes room for a line with a key and `length` more characters, and writes the indent.
inline char* MenuWriter::BeginLine(std::size_t level, std::size_t length) {
    constexpr std::size_t overhead = MaxIndent + LineScan::MaxStartLength + LineEnd.size();
    if (length + overhead > m_buffer.size() - m_used) ReserveInBuffer(length + overhead);
    char* const at = m_buffer.data() + m_used;
    // A fixed count is faster than a variable one.
    std::memset(at, '\t', MaxIndent);
    return at + std::min(level, MaxIndent);
}

// Ends the current line. The line counts as written only after this call.
inline void MenuWriter::EndLine(char* end) {
    m_used = static_cast<std::size_t>(Put(end, LineEnd) - m_buffer.data());
}

void MenuWriter::WriteNumber(std::size_t level, MenuKey key, std::int32_t number) {
    std::array<char, std::numeric_limits<std::int32_t>::digits10 + 2> digits{};
    const char* const end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
    WriteValue(level, key, {digits.data(), static_cast<std::size_t>(end - digits.data())});
}

void MenuWriter::WriteValue(std::size_t level, MenuKey key, std::string_view text) {
    if (MenuText::IsPlain(text)) return WriteBytes(level, key, text);
    // A line end in a value would make the whole file unreadable.
    if (std::any_of(text.begin(), text.end(), [](char c) { return c == '\r' || c == '\n'; }))
        MenuText::Check(text, Source);
    WriteBytes(level, key, MenuText::Encode(text, Source));
}

void MenuWriter::WriteBytes(std::size_t level, MenuKey key, std::string_view bytes) {
    EndLine(Put(Put(BeginLine(level, bytes.size()), key), bytes));
}

void MenuWriter::WriteLine(std::size_t level, std::string_view text) {
    EndLine(Put(BeginLine(level, text.size()), text));
}

void MenuWriter::ReserveInBuffer(std::size_t size) {
    FlushBuffer();
    // The buffer grows only for a line with a very long value.
    if (size > m_buffer.size()) m_buffer.resize(size);
}

void MenuWriter::FlushBuffer() {
    m_sink.Write({m_buffer.data(), m_used});
    m_used = 0;
}

} // namespace nesk
