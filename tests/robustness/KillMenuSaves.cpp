// Kills a program at random moments while it saves a menu, and checks the files that it leaves: menu.cfg is
// always one of the saved versions, or missing if the first save did not finish. Leftover files do not pile
// up and do not prevent the next save.

#include "editing/MenuEditor.h"
#include "platform/portable/Station.h"
#include "robustness/KillRounds.h"
#include "robustness/Victim.h"
#include "shell/modUtilities.h"
#include "unit/FileBytes.h"
#include "unit/platform/TempStation.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdlib>
#include <iostream>
#include <memory>
#include <optional>
#include <random>
#include <set>
#include <thread>

namespace nesk {
namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::microseconds;
using testing::FileBytes;

const std::string Folder = "C:\\Neskroot";
const std::string Path = Folder + "\\menu.cfg";
// Number of entries in each version: smaller than a disk block, a single write, several writes.
constexpr std::array<int, 3> Entries = {2, 300, 2500};

// A first save, of a menu without a file, is tried in one of this many rounds.
constexpr int FirstSaveEvery = 8;

using Editors = std::vector<std::unique_ptr<MenuEditor>>;

// The bytes of a file; nothing if the file is missing.
std::optional<std::string> BytesIfAny(const std::string& path) {
    if (!std::filesystem::exists(TempStation::Host(path))) return std::nullopt;
    return FileBytes(path);
}

// Creates an editor for each version.
Editors MakeEditors() {
    Editors editors;
    for (const int entries : Entries) {
        editors.push_back(std::make_unique<MenuEditor>());
        editors.back()->Open("C:\\None", "C:\\None\\menu.cfg");
        editors.back()->SetCaption("R", "Version of " + std::to_string(entries));
        for (int i = 0; i < entries; ++i)
            editors.back()->AddPart("R", std::to_string(i) + std::string(200, 'x'));
    }
    return editors;
}

// The order in which a process saves the versions, never the same version twice in a row.
class Order {
public:
    explicit Order(unsigned seed) : m_random(seed), m_version(m_random() % Entries.size()) {}
    std::size_t Version() const { return m_version; }
    void Next() { m_version = (m_version + 1 + m_random() % (Entries.size() - 1)) % Entries.size(); }

private:
    std::mt19937 m_random;
    std::size_t m_version;
};

// The process that is killed. Saves a different version each time.
int SaveForEver(const std::string& station, unsigned seed, const std::string& descriptor) {
    platform::portable::UseStation(station);
    const testing::SaveProgress progress(descriptor);
    const Editors editors = MakeEditors();
    try {
        for (Order order(seed);; order.Next()) {
            progress.Begin();
            editors[order.Version()]->Save(Path);
            progress.End();
        }
    } catch (const NeskError& error) {
        std::cerr << "a save failed: " << modUtilities::ErrorText(error) << "\n";
        return 1;
    }
}

class Killer {
public:
    Killer() {
        std::filesystem::create_directories(TempStation::Host(Folder));
        for (const auto& editor : m_editors) {
            const auto start = Clock::now();
            editor->Save(Path);
            m_longest = std::max(m_longest, Clock::now() - start);
            m_versions.push_back(FileBytes(Path));
        }
        // Saves once more over an existing version, like all later saves.
        m_editors.back()->Save(Path);
        m_before = FileBytes(Path);
    }

    bool Round(std::mt19937& random);
    // Returns whether `kills` kills hit enough steps of a save to be a valid test.
    bool HitEnough(int kills) const {
        return m_hits >= kills / 10 && m_firstHits > 0 && m_leftMenus >= kills / 20 && m_leftBackups > 0 &&
               m_saves > 0;
    }
    bool Finish(int kills);

private:
    static bool Fail(const std::string& what) {
        std::cerr << what << "\nin the folder: " << testing::FilesIn(Folder) << "\n";
        return false;
    }
    bool IsVersion(const std::string& bytes) const {
        return std::find(m_versions.begin(), m_versions.end(), bytes) != m_versions.end();
    }
    void RemoveMenu();
    bool CheckBackup();
    bool CheckFolder();

    TempStation m_station;
    Editors m_editors = MakeEditors();
    std::vector<std::string> m_versions;
    std::optional<std::string> m_before; // the menu before a round
    Clock::duration m_longest{};
    int m_rounds = 0;
    int m_versionsKept = 2; // lower bound, for the menu and its backup together
    int m_saves = 0;
    int m_hits = 0;
    int m_firstHits = 0;
    int m_leftMenus = 0;
    int m_leftBackups = 0;
};

bool Killer::Round(std::mt19937& random) {
    if (++m_rounds % FirstSaveEvery == 0) RemoveMenu();
    const auto seed = static_cast<unsigned>(random());
    testing::Victim victim({"save", m_station.Folder().string(), std::to_string(seed)});
    victim.WaitForSave();
    // Waits up to the time of two saves, so that each step of a save can be hit.
    const auto longest = std::chrono::duration_cast<microseconds>(2 * m_longest).count();
    std::this_thread::sleep_for(microseconds(random() % static_cast<std::uint64_t>(longest)));
    if (!victim.Kill()) return Fail("the program that saves ended by itself");
    m_saves += victim.Ended();
    m_versionsKept += victim.Ended();
    const bool isHit = victim.Begun() > victim.Ended();
    m_hits += isHit ? 1 : 0;
    m_firstHits += isHit && !m_before && victim.Ended() == 0 ? 1 : 0;
    // The version of the last finished save, and the version of the save that began after it.
    Order order(seed);
    std::vector<std::optional<std::string>> known = {m_before};
    for (int save = 1; save <= victim.Begun(); ++save, order.Next()) {
        if (save >= victim.Ended()) known.emplace_back(m_versions[order.Version()]);
        if (save == victim.Ended()) known.erase(known.begin());
    }
    m_before = BytesIfAny(Path);
    if (std::find(known.begin(), known.end(), m_before) == known.end())
        return Fail("menu.cfg is neither the version before nor the new one: " +
                    (m_before ? std::to_string(m_before->size()) + " bytes" : "it is missing"));
    return CheckBackup() && CheckFolder();
}

void Killer::RemoveMenu() {
    for (const auto& entry : std::filesystem::directory_iterator(TempStation::Host(Folder)))
        std::filesystem::remove(entry.path());
    m_before.reset();
    m_versionsKept = 0;
}

bool Killer::CheckBackup() {
    const std::optional<std::string> backup = BytesIfAny(Path + ".bak");
    if (!backup) return m_versionsKept < 2 || Fail("menu.cfg.bak is missing");
    m_versionsKept = std::max(m_versionsKept, 2);
    return IsVersion(*backup) || Fail("menu.cfg.bak is no version that was saved");
}

bool Killer::CheckFolder() {
    MenuEditor editor;
    if (const auto error = editor.Open(Folder, Path))
        return Fail("menu.cfg cannot be read: " + modUtilities::ErrorText(*error));
    int left = 0;
    for (const auto& entry : std::filesystem::directory_iterator(TempStation::Host(Folder))) {
        const std::string name = entry.path().filename().string();
        if (name == "menu.cfg" || name == "menu.cfg.bak") continue;
        ++left;
        ++(name.starts_with("menu.cfg.bak") ? m_leftBackups : m_leftMenus);
    }
    // A save creates one temporary file for the menu and one for the backup. Both are removed before the next
    // save creates its own.
    return left <= 2 || Fail("what is left over piles up");
}

bool Killer::Finish(int kills) {
    std::cout << kills << " kills, " << m_hits << " in the middle of a save, " << m_firstHits
              << " of a first one; left were a new menu " << m_leftMenus << " times, a new backup "
              << m_leftBackups << " times; " << m_saves << " saves ended\n";
    // This may be the very first save.
    m_editors.back()->Save(Path);
    m_editors.front()->Save(Path);
    if (FileBytes(Path) != m_versions.front()) return Fail("the last save wrote something else");
    if (testing::FilesIn(Folder) != "menu.cfg menu.cfg.bak") return Fail("something is left over");
    return HitEnough(kills) || Fail("too few kills hit a save for this to be a test");
}

} // namespace
} // namespace nesk

int main(int count, char** values) {
    return nesk::testing::RunKills<nesk::Killer>(count, values, "save", nesk::SaveForEver);
}
