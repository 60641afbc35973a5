#pragma once

#include "checking/TextFields.h"
#include "editing/EntryIds.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <utility>

namespace nesk {

class MenuEditor;

/// A field of the selected entries that can be edited in place.
enum class DetailField {
    Caption,
    Program,
    Picture,
    Preview,
    HelpFile,
    HelpTopic,
    HistoryDir,
    HistoryTitle,
    Count
};

constexpr std::size_t DetailFieldCount = static_cast<std::size_t>(DetailField::Count);

/// The field that shows a text of an entry.
DetailField DetailFieldOf(TextField field);

/// What is shown in a field.
struct DetailValue {
    bool isEnabled = false;
    bool differs = false; ///< the selected entries have different values
    std::string text;     ///< as it is stored; "" when the values differ

    bool operator==(const DetailValue&) const = default;
};

/// The fields of the selected entries, and the rules for changing them in place. The rules are those of the
/// dialogs for entries.
class EntryDetails {
public:
    /// The editor must outlive this object.
    explicit EntryDetails(MenuEditor& editor) : m_editor(editor) {}

    /// Sets the entries whose fields are shown.
    void Select(EntryIds ids) { m_ids = std::move(ids); }
    const EntryIds& Ids() const { return m_ids; }

    /// Several entries share no caption and no history title, which have to differ. Only part buttons have
    /// other fields than caption and picture.
    DetailValue ValueOf(DetailField field) const;

    /// The message and the reason why a text cannot be set.
    struct Refusal {
        std::string message;
        std::string reason;
    };

    /// Why a text cannot be set; nothing when it can. May ask the file system.
    std::optional<Refusal> WhyNot(DetailField field, const std::string& text) const;

    /// Sets a text, as one step. The typed path of a partinfo.ini becomes the reference to its part. A
    /// history directory proposes the caption as the title of a history without one. A help topic that is no
    /// number stays as it was. Returns false when nothing changes. Raises 5000 for a text that cannot be
    /// stored.
    bool Set(DetailField field, const std::string& text);

    /// Sets two fields that have one dialog, as one step.
    bool SetHelp(const std::string& file, std::int32_t topic);
    bool SetHistory(const std::string& directory, const std::string& title);

private:
    MenuEditor& m_editor;
    EntryIds m_ids;
};

} // namespace nesk
