#pragma once

#include <cstdint>
#include <string>

namespace nesk::bench {

/// The nine fields of an entry, as UTF-8.
struct SampleEntry {
    std::string caption;
    std::string graphic;
    std::string preview;
    std::string helpFile;
    std::int32_t helpTopic = 0;
    std::string menuType;
    std::string programId;
    std::string historyDir; ///< always empty: registering histories is measured separately
    std::string historyTitle;
};

/// A writer of a tree in one format. Calls are made in the order of the file.
class SampleWriter {
public:
    virtual ~SampleWriter() = default;
    virtual void BeginMenu() = 0;
    virtual void BeginItem(const SampleEntry& entry) = 0;
    virtual void EndItem() = 0;
    virtual void EndMenu() = 0;
};

/// Passes a sample tree to a writer. It is like the trees of stations, only larger: submenus of at most 32
/// entries, with part buttons below them and paths of usual length. The tree is the same every time.
/// @param items  number of items below the root
void VisitSampleTree(SampleWriter& writer, int items);

} // namespace nesk::bench
