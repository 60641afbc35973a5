// Kills a program at random moments while two editors in it save one menu: one adds a part and saves, the
// other one has added a part too, merges and saves. The menu file is always that of one of these saves; the
// newest kept version is that file or the one before; and a part that was added is in the file or among the
// unsaved changes that are found.

#include "editing/MenuEditor.h"
#include "journal/MenuJournal.h"
#include "journal/UnsavedChanges.h"
#include "menu/Menu.h"
#include "menu/MenuItem.h"
#include "menu/MenuItemCollection.h"
#include "menu/ReadMenuQuietly.h"
#include "platform/portable/Station.h"
#include "robustness/KillRounds.h"
#include "robustness/Victim.h"
#include "shell/modUtilities.h"
#include "unit/FileBytes.h"
#include "unit/platform/TempStation.h"
#include "versions/MenuMerge.h"
#include "versions/OthersChanges.h"
#include "versions/SaveKeepingVersion.h"
#include "versions/VersionStore.h"

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <iostream>
#include <memory>
#include <optional>
#include <random>
#include <set>
#include <string>
#include <thread>

namespace nesk {
namespace {

using std::chrono::microseconds;

const std::string Folder = "C:\\Neskroot";
const std::string Path = Folder + "\\menu.cfg";

// Each cycle makes so many steps that are reported: a part is added here, the others add one and save, and
// the merge of both is saved here.
constexpr int StepsOfCycle = 3;

// So many versions are in one second at most; more than a hundred would have no names.
constexpr int MostCycles = 30;

JournalOptions Options() {
    JournalOptions options;
    options.owner = "victim";
    options.keepsBase = true;
    return options;
}

void Save(MenuEditor& editor) {
    VersionStore store(Path);
    const VersionStore::Kept kept = SaveKeepingVersion(editor, Path, editor.PlanSave(Path), store);
    if (kept.error) throw *kept.error;
}

void SaveByOthers(int cycle) {
    MenuEditor others;
    if (const auto error = others.Open(Folder, Path)) throw *error;
    others.AddPart("R", "theirs " + std::to_string(cycle));
    Save(others);
}

void MergeAndSave(MenuEditor& editor) {
    const QuietMenu theirs = ReadMenuQuietly(Path, Folder);
    const std::unique_ptr<Menu> base = OthersChanges::Base(editor, "");
    const MenuMerge merge(*base, *editor.OpenMenu(), *theirs.menu);
    OthersChanges::TakeMerged(editor, theirs, merge);
    Save(editor);
}

// The process that is killed.
int MergeForEver(const std::string& station, unsigned, const std::string& descriptor) {
    platform::portable::UseStation(station);
    const testing::SaveProgress progress(descriptor);
    MenuEditor editor;
    MenuJournal journal(editor, Options());
    try {
        if (const auto error = editor.Open(Folder, Path)) throw *error;
        for (int cycle = 1;; ++cycle) {
            progress.Begin();
            editor.AddPart("R", "ours " + std::to_string(cycle));
            progress.End();
            progress.Begin();
            SaveByOthers(cycle);
            progress.End();
            progress.Begin();
            MergeAndSave(editor);
            progress.End();
        }
    } catch (const NeskError& error) {
        std::cerr << "a save failed: " << modUtilities::ErrorText(error) << "\n";
        return 1;
    }
}

// How many parts of each editor a menu holds.
struct Parts {
    int ours = 0;
    int theirs = 0;

    // The number of saves that lead to it.
    int Saves() const { return ours + theirs; }
};

// The parts in a menu; nothing if they are not those of the first cycles, each once.
std::optional<Parts> PartsOf(Menu& menu) {
    std::multiset<std::string> captions;
    for (int i = 1; i <= menu.ChildCount(); ++i)
        captions.emplace(menu.SubMenus().Item(i).Caption());
    const auto firstOnes = [&captions](const std::string& owner) {
        int cycle = 0;
        while (captions.erase(owner + std::to_string(cycle + 1)) == 1)
            ++cycle;
        return cycle;
    };
    const Parts parts{firstOnes("ours "), firstOnes("theirs ")};
    return captions.empty() ? std::optional(parts) : std::nullopt;
}

class Killer {
public:
    Killer() { std::filesystem::create_directories(TempStation::Host(Folder)); }

    bool Round(std::mt19937& random);
    // Returns whether `kills` kills hit enough for a valid test.
    bool HitEnough(int kills) const {
        return m_hits >= kills / 4 && m_restored >= kills / 10 && m_merged > 0 && m_kept > 0;
    }
    bool Finish(int kills) const;

private:
    static bool Fail(const std::string& what) {
        std::cerr << what << "\nin the folder: " << testing::FilesIn(Folder) << "\n";
        return false;
    }
    void WriteMenu();
    bool CheckVersions(const Parts& file);
    bool CheckOurs(int made, const Parts& file);

    TempStation m_station;
    int m_hits = 0;     // in the middle of a step
    int m_kept = 0;     // the present file was kept already, but not yet replaced
    int m_restored = 0; // unsaved changes were found and were needed
    int m_merged = 0;   // they belong to a version that others have replaced
};

void Killer::WriteMenu() {
    std::filesystem::remove_all(TempStation::Host(Folder));
    std::filesystem::create_directories(TempStation::Host(Folder));
    m_station.Write(Path, "BLOCK MENU\r\nCAPTION=Station\r\nEND\r\n");
}

bool Killer::Round(std::mt19937& random) {
    WriteMenu();
    testing::Victim victim({"merge", m_station.Folder().string(), "0"});
    victim.WaitForEnds(static_cast<int>(random() % (StepsOfCycle * MostCycles)));
    std::this_thread::sleep_for(microseconds(random() % 3000));
    if (!victim.Kill()) return Fail("the program that merges ended by itself");
    m_hits += victim.Begun() > victim.Ended() ? 1 : 0;

    const QuietMenu read = ReadMenuQuietly(Path, Folder);
    if (!read.IsWhole()) return Fail("menu.cfg is missing or not whole");
    const std::optional<Parts> file = PartsOf(*read.menu);
    if (!file) return Fail("menu.cfg holds other parts than those added");
    // Two of the three steps of a cycle save.
    const auto savesAfter = [](int steps) {
        return steps / StepsOfCycle * 2 + (steps % StepsOfCycle == 2 ? 1 : 0);
    };
    if (file->Saves() != savesAfter(victim.Ended()) && file->Saves() != savesAfter(victim.Begun()))
        return Fail("menu.cfg is not that of the last save, but of save " + std::to_string(file->Saves()) +
                    " after " + std::to_string(victim.Ended()) + " steps");
    if (file->theirs != file->ours && file->theirs != file->ours + 1)
        return Fail("menu.cfg lacks a part of one side");
    return CheckVersions(*file) && CheckOurs((victim.Ended() + StepsOfCycle - 1) / StepsOfCycle, *file);
}

// The newest version is the file itself, when the next save was under way, or the one before.
bool Killer::CheckVersions(const Parts& file) {
    int expected = -1;
    for (const MenuVersion& version : VersionStore(Path).List()) {
        const QuietMenu read = ReadMenuQuietly(version.path, Folder);
        const std::optional<Parts> parts = read.IsWhole() ? PartsOf(*read.menu) : std::nullopt;
        if (!parts) return Fail(version.path + " is no version that was saved");
        if (expected < 0) {
            m_kept += parts->Saves() == file.Saves() ? 1 : 0;
            expected = parts->Saves() == file.Saves() ? file.Saves() : file.Saves() - 1;
        }
        if (parts->Saves() != expected)
            return Fail(version.path + " is that of save " + std::to_string(parts->Saves()) + " instead of " +
                        std::to_string(expected));
        --expected;
    }
    const int kept = std::max(0, file.Saves() - static_cast<int>(VersionLimits().newest) + 1);
    return expected < kept || Fail("the version of save " + std::to_string(expected) + " is missing");
}

// Each of our parts is in the file or among the unsaved changes.
bool Killer::CheckOurs(int made, const Parts& file) {
    if (file.ours >= made) return true;
    const std::optional<FoundJournal> found = UnsavedChanges::Find(Path, Options());
    if (!found)
        return Fail("part " + std::to_string(made) + " is neither saved nor among the unsaved changes");
    ++m_restored;
    m_merged += found->isOfThisFile ? 0 : 1;
    const std::unique_ptr<Menu> base = UnsavedChanges::ReadBase(*found, Folder);
    if (!base) return Fail("the version to which the unsaved changes belong is missing");
    const RestoredMenu restored = UnsavedChanges::RestoreInto(*found, *base);
    if (restored.isDamaged) return Fail("the journal is damaged");
    const std::optional<Parts> parts = PartsOf(*restored.menu);
    return (parts && parts->ours >= made) || Fail("the unsaved changes lack part " + std::to_string(made));
}

bool Killer::Finish(int kills) const {
    std::cout << kills << " kills, " << m_hits << " in the middle of a step; " << m_kept
              << " times a version was kept and the file not yet replaced; " << m_restored
              << " times a part was restored, " << m_merged << " of them for merging\n";
    return HitEnough(kills) || Fail("too few kills hit a save for this to be a test");
}

} // namespace
} // namespace nesk

int main(int count, char** values) {
    return nesk::testing::RunKills<nesk::Killer>(count, values, "merge", nesk::MergeForEver);
}
