#include "widgets/GifCodes.h"

#include <array>

namespace nesk {

namespace {

constexpr unsigned LongestCode = 12; // bits
constexpr std::size_t MostCodes = std::size_t{1} << LongestCode;

std::size_t Byte(std::string_view bytes, std::size_t at) {
    return static_cast<unsigned char>(bytes[at]);
}

// Reads codes from a chain of blocks. Each block begins with its length, and the last block has the length 0.
class CodeReader {
public:
    CodeReader(std::string_view bytes, std::size_t at) : m_bytes(bytes), m_at(at), m_end(at) {}

    // The next code, which has this many bits; nothing at the end of the chain or of the file.
    std::optional<std::size_t> Next(unsigned length) {
        for (; m_count < length; m_count += 8) {
            if (m_at == m_end && !NextBlock()) return std::nullopt;
            m_bits |= Byte(m_bytes, m_at++) << m_count;
        }
        const std::size_t code = m_bits & ((std::size_t{1} << length) - 1);
        m_bits >>= length;
        m_count -= length;
        return code;
    }

    // Position after the last block that was read.
    std::size_t End() const { return m_end; }
    // True when the file ended inside the chain.
    bool IsCut() const { return m_cut; }

private:
    bool NextBlock() {
        const std::size_t length = m_end < m_bytes.size() ? Byte(m_bytes, m_end) : 0;
        m_cut = m_end >= m_bytes.size() || m_bytes.size() - m_end - 1 < length;
        if (m_cut || length == 0) return false;
        m_at = m_end + 1;
        m_end = m_at + length;
        return true;
    }

    std::string_view m_bytes;
    std::size_t m_at;
    std::size_t m_end;
    std::size_t m_bits = 0;
    unsigned m_count = 0;
    bool m_cut = false;
};

// The codes that a decoder knows, and the number of pixels that each stands for.
class CodeTable {
public:
    explicit CodeTable(unsigned pixelBits) : m_pixelBits(pixelBits) {
        m_pixels.fill(1);
        Clear();
    }

    std::size_t ClearCode() const { return std::size_t{1} << m_pixelBits; }
    std::size_t EndCode() const { return ClearCode() + 1; }
    // Length of the next code in bits.
    unsigned Length() const { return m_length; }

    void Clear() {
        m_count = EndCode() + 1;
        m_length = m_pixelBits + 1;
        m_previous.reset();
    }

    // Adds a code that stands for pixels, and returns their number; 0 if the code has no meaning here.
    std::int64_t Add(std::size_t code) {
        // A code also defines a new one: the previous code and one more pixel. It may be that one itself.
        if (m_previous && m_count < MostCodes) {
            m_pixels[m_count] = m_pixels[*m_previous] + 1;
            ++m_count;
            if (m_count == std::size_t{1} << m_length && m_length < LongestCode) ++m_length;
        }
        if (code >= m_count) return 0;
        m_previous = code;
        return m_pixels[code];
    }

private:
    unsigned m_pixelBits;
    unsigned m_length = 0;
    std::size_t m_count = 0;
    std::optional<std::size_t> m_previous;
    std::array<std::int64_t, MostCodes> m_pixels{};
};

} // namespace

std::optional<std::size_t> EndOfGifCodes(std::string_view bytes, std::size_t at, std::int64_t pixels) {
    constexpr std::size_t fewestBits = 2;
    constexpr std::size_t mostBits = 8;
    if (at >= bytes.size() || Byte(bytes, at) < fewestBits || Byte(bytes, at) > mostBits) return std::nullopt;
    CodeTable table(static_cast<unsigned>(Byte(bytes, at)));
    CodeReader reader(bytes, at + 1);
    while (pixels > 0) {
        const auto code = reader.Next(table.Length());
        if (!code || *code == table.EndCode()) break;
        if (*code == table.ClearCode()) {
            table.Clear();
            continue;
        }
        const std::int64_t count = table.Add(*code);
        if (count == 0) return std::nullopt;
        pixels -= count;
    }
    if (reader.IsCut()) return std::nullopt;
    return reader.End();
}

} // namespace nesk
