#pragma once

#include <string>
#include <string_view>

namespace nesk {

/// Receives bytes in the order in which they are written: a file, a string in memory, or a hash.
class ByteSink {
public:
    virtual ~ByteSink() = default;

    /// Writes all of `bytes`. Raises the run-time error of a failed write.
    virtual void Write(std::string_view bytes) = 0;
};

/// Appends the bytes to a string.
class TextSink final : public ByteSink {
public:
    /// @param text  must outlive the sink
    explicit TextSink(std::string& text) : m_text(text) {}

    void Write(std::string_view bytes) override { m_text += bytes; }

private:
    std::string& m_text;
};

} // namespace nesk
