#pragma once

#include "base/ByteSink.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

namespace nesk {

class Menu;
class MenuEntry;
class MenuItem;
enum class MenuKey : std::size_t;

/// Writes menus and items in the block format of a menu file, in the station's code page. Nesting does not
/// use the machine stack.
///
/// Raises 5000 for a text that the code page cannot represent or that contains a line end, and the errors of
/// the sink. The sink has then received part of the bytes.
class MenuWriter {
public:
    /// @param sink  must outlive the writer
    explicit MenuWriter(ByteSink& sink);

    /// Writes a whole menu.
    void WriteMenu(const Menu& menu);

    /// Writes items and everything below them, each as a block at the indent `level` (in tabs).
    void WriteItems(std::span<const MenuItem* const> items, std::size_t level = 0);

private:
    void WriteBelow(const MenuEntry& entry, std::size_t level);
    void BeginItem(const MenuItem& item, std::size_t level);
    void WriteNumber(std::size_t level, MenuKey key, std::int32_t number);
    void WriteValue(std::size_t level, MenuKey key, std::string_view text);
    void WriteBytes(std::size_t level, MenuKey key, std::string_view bytes);
    void WriteLine(std::size_t level, std::string_view text);
    char* BeginLine(std::size_t level, std::size_t length);
    void EndLine(char* end);
    void ReserveInBuffer(std::size_t size);
    void FlushBuffer();

    ByteSink& m_sink;
    std::vector<char> m_buffer;
    std::size_t m_used = 0; // number of bytes used in the buffer
};

} // namespace nesk
