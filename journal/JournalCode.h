#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>

/// The lowest level of a journal file: numbers and texts, and the frames that contain them.
namespace nesk {

/// Raised for bytes of a journal that have no meaning, or that do not fit the menu.
class JournalDamage final : public std::runtime_error {
public:
    explicit JournalDamage(const char* what) : std::runtime_error(what) {}
};

/// Appends numbers and texts to bytes.
class JournalEncoder {
public:
    /// @param bytes  must outlive the encoder
    explicit JournalEncoder(std::string& bytes) : m_bytes(bytes) {}

    /// Small numbers take fewer bytes.
    void Number(std::uint64_t number);
    void SignedNumber(std::int64_t number);
    void Text(std::string_view text);

private:
    std::string& m_bytes;
};

/// Reads what a JournalEncoder wrote, in the same order. Raises JournalDamage when it finds something else.
class JournalDecoder {
public:
    /// @param bytes  must outlive the decoder and the texts that it returns
    explicit JournalDecoder(std::string_view bytes) : m_rest(bytes) {}

    std::uint64_t Number();
    std::int64_t SignedNumber();
    std::string_view Text();

    /// A number from `least` to `most`.
    int NumberFrom(int least, int most);

    bool AtEnd() const { return m_rest.empty(); }

    /// The bytes that have not been read.
    std::string_view Rest() const { return m_rest; }

private:
    std::string_view m_rest;
};

namespace JournalFrame {

/// Appends a frame: length, checksums and `payload`.
void Append(std::string& bytes, std::string_view payload);

enum class State {
    Whole,
    End,    ///< there are no more bytes
    Torn,   ///< the beginning of a frame whose rest was never written
    Damaged ///< bytes that were not written like this
};

/// Reads the next frame.
/// @param rest     the bytes to read; a whole frame is removed from their beginning
/// @param payload  receives the contents of a whole frame
State Take(std::string_view& rest, std::string_view& payload);

} // namespace JournalFrame

} // namespace nesk
