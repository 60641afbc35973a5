#pragma once

#include <cstdint>
#include <ctime>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace nesk {

/// What a journal says of itself, once, at its beginning.
struct JournalHeader {
    std::string owner;    ///< who makes the changes, for messages
    std::string menuPath; ///< the menu whose changes these are
    std::string hash;     ///< FileHash::Text of the file to which the changes apply
    std::string counters; ///< JournalCounters of the menu in that file
};

/// One change of the menu as it was made, undone or redone.
struct JournalStep {
    std::tm time{};            ///< local time
    std::uint64_t changes = 0; ///< number of unsaved changes after this one
    std::string_view events;   ///< as JournalEvents appends them; may be empty
};

/// The bytes of a journal file: a line that tells people and programs what it is, and frames with the header,
/// the steps, and an end. A journal has no end while its menu has unsaved changes.
namespace JournalRecord {

/// The beginning of a file.
std::string Begin(const JournalHeader& header);

/// Appends a step to bytes.
void AppendStep(std::string& bytes, const JournalStep& step);

/// The mark that nothing is unsaved any more.
std::string End();

} // namespace JournalRecord

/// The contents of a journal file.
struct Journal {
    /// Reads the bytes of a file, and stops at the first that were not written like this.
    /// @param bytes  must outlive the result
    static Journal Read(std::string_view bytes);

    bool isJournal = false; ///< false for a file that is something else
    bool isEnded = false;
    /// Something that was written is not there any more. A step whose write was cut off is no damage, because
    /// its change never ended.
    bool isDamaged = false;
    std::optional<JournalHeader> header; ///< nothing when it was not written to its end
    std::vector<JournalStep> steps;
};

} // namespace nesk
