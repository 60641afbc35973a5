#pragma once

#include <cstring>
#include <functional>
#include <optional>
#include <string>
#include <utility>

#include <wx/dataobj.h>

namespace nesk::platform::windows {

/// The format of dragged entries. No other program accepts it: it would then own what the user meant to move.
inline wxDataFormat EntryFormat() {
    return wxDataFormat("application/x-neskmanager-entries");
}

/// Dragged entries as text, which is made only when another window asks for it.
class EntryData final : public wxDataObjectSimple {
public:
    explicit EntryData(std::function<std::string()> make)
        : wxDataObjectSimple(EntryFormat()), m_make(std::move(make)) {}

    std::size_t GetDataSize() const override { return Text().size(); }
    bool GetDataHere(void* buffer) const override {
        const std::string& text = Text();
        std::memcpy(buffer, text.data(), text.size());
        return true;
    }
    bool SetData(std::size_t, const void*) override { return false; }

private:
    const std::string& Text() const {
        if (!m_text) m_text = m_make();
        return *m_text;
    }

    std::function<std::string()> m_make;
    mutable std::optional<std::string> m_text;
};

} // namespace nesk::platform::windows
