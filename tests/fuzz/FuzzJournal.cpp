// Restores arbitrary bytes as the unsaved changes of a small menu: once as they are, and once as a step of a
// journal whose checksums are right. What is restored can be saved and read again, whatever the bytes are.

#include "fuzz/Fuzz.h"
#include "journal/JournalRecord.h"
#include "journal/UnsavedChanges.h"
#include "menu/MenuFile.h"
#include "menu/ReadMenuQuietly.h"
#include "unit/FileBytes.h"
#include "unit/journal/TreeText.h"

#include <optional>
#include <string>

namespace nesk::fuzz {

namespace {

const std::string Folder = "C:\\Neskroot";
const std::string Path = Folder + "\\menu.cfg";
const std::string Copy = Folder + "\\copy.cfg";
const std::string JournalPath = Path + ".unsaved";

const std::string SmallMenu = "BLOCK MENU\r\n"
                              "CAPTION=Station\r\n"
                              "BLOCK SUBMENU\r\nCAPTION=One\r\nMENUTYPE=Menu\r\n"
                              "BLOCK SUBMENU\r\nCAPTION=Part\r\nMENUTYPE=Part Program\r\nEND\r\n"
                              "END\r\n"
                              "BLOCK SUBMENU\r\nCAPTION=Two\r\nMENUTYPE=Menu\r\nEND\r\n"
                              "END\r\n";

void Restore(Surroundings& surroundings, const std::string& journal) {
    surroundings.station.Write(JournalPath, journal);
    const std::optional<FoundJournal> found = UnsavedChanges::Find(Path, {});
    Require(testing::FileBytes(Path) == SmallMenu, "looking for changes does not touch the menu");
    if (!found) return;
    Require(found->path == JournalPath, "the journal is found under its name");
    const std::unique_ptr<Menu> base = ReadMenuQuietly(Path, Folder).menu;
    const std::string before = testing::TreeText(*base);
    const RestoredMenu restored = UnsavedChanges::RestoreInto(*found, *base);
    Require(testing::TreeText(*base) == before, "the base stays as it is");
    const std::string tree = testing::TreeText(*restored.menu);
    Require(testing::TreeText(*UnsavedChanges::RestoreInto(*found, *base).menu) == tree,
            "restoring twice gives the same");
    SaveMenuFile(*restored.menu, Copy, {});
    const std::string bytes = testing::FileBytes(Copy);
    const std::unique_ptr<Menu> read = ReadMenuQuietly(Copy, Folder).menu;
    SaveMenuFile(*read, Copy, {});
    Require(testing::FileBytes(Copy) == bytes, "what was restored can be saved and read");
}

// A journal whose header and steps are right, and whose first step has arbitrary events. The second step is
// only made when the first could be.
std::string WithEvents(const std::string& counters, const std::string& events) {
    std::string journal = JournalRecord::Begin({"owner", Path, FileHash::Of(Path).Text(), counters});
    JournalRecord::AppendStep(journal, {{}, 1, events});
    JournalRecord::AppendStep(journal, {{}, 2, events});
    return journal;
}

} // namespace

} // namespace nesk::fuzz

// The first line of the input is used as counters, too.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace nesk::fuzz;
    return WithEachCodePage(data, size, [](Surroundings& surroundings, const std::string& bytes) {
        surroundings.station.Write(Path, SmallMenu);
        Restore(surroundings, bytes);
        Restore(surroundings, WithEvents("", bytes));
        std::string events = bytes;
        const std::string counters = TakeLine(events);
        Restore(surroundings, WithEvents(counters, events));
    });
}
