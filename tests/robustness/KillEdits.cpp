// Kills a program at random moments while it edits a menu, and restores the unsaved changes that it leaves:
// the menu is as before or after the edit under way. Sometimes the program saves, so that kills hit also the
// moments at which the menu file is new and the journal is not removed yet.

#include "editing/MenuEditor.h"
#include "journal/MenuJournal.h"
#include "journal/UnsavedChanges.h"
#include "menu/ReadMenuQuietly.h"
#include "platform/portable/Station.h"
#include "robustness/KillRounds.h"
#include "robustness/Victim.h"
#include "shell/modUtilities.h"
#include "unit/FileBytes.h"
#include "unit/journal/RandomEdits.h"
#include "unit/journal/TreeText.h"
#include "unit/platform/TempStation.h"

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <iostream>
#include <memory>
#include <random>
#include <thread>

namespace nesk {
namespace {

using std::chrono::microseconds;

const std::string Folder = "C:\\Neskroot";
const std::string Path = Folder + "\\menu.cfg";

// A save takes as long as many edits.
constexpr int SaveEvery = 60;
constexpr int FlushEvery = 25;

JournalOptions Options() {
    JournalOptions options;
    options.owner = "victim";
    return options;
}

// The process that is killed.
int EditForEver(const std::string& station, unsigned seed, const std::string& descriptor) {
    platform::portable::UseStation(station);
    const testing::SaveProgress progress(descriptor);
    MenuEditor editor;
    MenuJournal journal(editor, Options());
    journal.onFailure = [](const NeskError& error) {
        std::cerr << "the journal failed: " << modUtilities::ErrorText(error) << std::endl;
        std::exit(1);
    };
    if (editor.Open(Folder, Path)) return 1;
    testing::RandomEdits random(editor, seed);
    for (int step = 1;; ++step) {
        progress.Begin();
        random.Make();
        if (step % SaveEvery == 0) editor.Save(Path);
        if (step % FlushEvery == 0) journal.Flush();
        progress.End();
    }
}

class Killer {
public:
    Killer() { std::filesystem::create_directories(TempStation::Host(Folder)); }

    bool Round(std::mt19937& random);
    // Returns whether `kills` kills hit enough for a valid test.
    bool HitEnough(int kills) const {
        return m_hits >= kills / 10 && m_journals >= kills / 3 && m_lost > 0 && m_kept > 0;
    }
    bool Finish(int kills) const;

private:
    static bool Fail(const std::string& what) {
        std::cerr << what << "\nin the folder: " << testing::FilesIn(Folder) << "\n";
        return false;
    }
    std::string Restored();
    void WriteMenu();

    TempStation m_station;
    int m_hits = 0;     // in the middle of an edit
    int m_journals = 0; // with unsaved changes left
    int m_lost = 0;     // the edit under way is not in the restored menu
    int m_kept = 0;     // the edit under way is in the restored menu
};

// Writes the menu with which every round begins, and removes everything else.
void Killer::WriteMenu() {
    for (const auto& entry : std::filesystem::directory_iterator(TempStation::Host(Folder)))
        std::filesystem::remove(entry.path());
    m_station.Write(Path, "BLOCK MENU\r\nCAPTION=Station\r\n"
                          "BLOCK SUBMENU\r\nCAPTION=One\r\nMENUTYPE=Menu\r\nEND\r\n"
                          "BLOCK SUBMENU\r\nCAPTION=Two\r\nMENUTYPE=Menu\r\nEND\r\nEND\r\n");
}

// The menu as a user gets it who opens it and restores the changes.
std::string Killer::Restored() {
    const std::unique_ptr<Menu> menu = ReadMenuQuietly(Path, Folder).menu;
    const std::optional<FoundJournal> found = UnsavedChanges::Find(Path, Options());
    if (!found) return testing::TreeTextWithoutIds(*menu);
    ++m_journals;
    if (!found->isOfThisFile) return "the changes are those of another file";
    const RestoredMenu restored = UnsavedChanges::RestoreInto(*found, *menu);
    if (restored.isDamaged) return "the journal is damaged";
    return testing::TreeTextWithoutIds(*restored.menu);
}

bool Killer::Round(std::mt19937& random) {
    WriteMenu();
    const auto seed = static_cast<unsigned>(random());
    testing::Victim victim({"edit", m_station.Folder().string(), std::to_string(seed)});
    victim.WaitForEnds(static_cast<int>(random() % 150));
    std::this_thread::sleep_for(microseconds(random() % 300));
    if (!victim.Kill()) return Fail("the program that edits ended by itself");
    const std::string restored = Restored();

    // The same edits without a kill.
    WriteMenu();
    MenuEditor editor;
    if (editor.Open(Folder, Path)) return Fail("the menu cannot be read");
    testing::RandomEdits edits(editor, seed);
    for (int step = 1; step <= victim.Ended(); ++step)
        edits.Make();
    std::vector<std::string> states = {testing::TreeTextWithoutIds(*editor.OpenMenu())};
    testing::ChangeWatch watch(editor);
    watch.onChange = [&] { states.push_back(testing::TreeTextWithoutIds(*editor.OpenMenu())); };
    if (victim.Begun() > victim.Ended()) edits.Make();
    const std::string& ended = states.front();
    const std::string& begun = states.back();
    if (std::find(states.begin(), states.end(), restored) == states.end())
        return Fail("the restored menu is neither that before nor that after edit " +
                    std::to_string(victim.Begun()) + ":\n" + restored + "instead of\n" + ended + "or\n" +
                    begun);
    if (victim.Begun() > victim.Ended()) ++m_hits;
    if (begun != ended) ++(restored == ended ? m_lost : m_kept);
    return true;
}

bool Killer::Finish(int kills) const {
    std::cout << kills << " kills, " << m_hits << " in the middle of an edit: " << m_lost
              << " times it was lost, " << m_kept << " times it was kept; " << m_journals
              << " times unsaved changes were left\n";
    return HitEnough(kills) || Fail("too few kills hit an edit for this to be a test");
}

} // namespace
} // namespace nesk

int main(int count, char** values) {
    return nesk::testing::RunKills<nesk::Killer>(count, values, "edit", nesk::EditForEver);
}
