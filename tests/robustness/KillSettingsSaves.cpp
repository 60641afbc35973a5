// Kills a program at random moments while it saves the settings. The values of a save are stored together:
// the store contains those of the last save or those of the previous one, also for a program that loads them
// during a save. The store itself is never damaged.

#include "base/NeskError.h"
#include "platform/ErrorCode.h"
#include "platform/portable/Station.h"
#include "robustness/Victim.h"
#include "settings/NeskRegistry.h"
#include "settings/RegEntry.h"
#include "shell/modMessageBox.h"
#include "shell/modStringRes.h"
#include "unit/platform/TempStation.h"

#include <chrono>
#include <iostream>
#include <iterator>
#include <random>
#include <sqlite3.h>
#include <thread>
#include <unistd.h>

namespace nesk {
namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::microseconds;
using Values = std::vector<std::string>;
namespace fs = std::filesystem;

struct TextField {
    const char* name;
    std::string NeskRegistry::*field; // null for a numeric field
};

// Fields in the order in which they are written.
constexpr TextField Fields[] = {
    {"NeskRoot", &NeskRegistry::NeskRoot},
    {"DefaultSlideDirectory", &NeskRegistry::DefaultSlideDirectory},
    {"DefaultBitmapDirectory", &NeskRegistry::DefaultBitmapDirectory},
    {"HistoryDirectory", &NeskRegistry::HistoryDirectory},
    {"HistoryTitle", &NeskRegistry::HistoryTitle},
    {"HistoryMaxParts", nullptr},
    {"SampleSize", nullptr},
    {"NeskMachine", &NeskRegistry::NeskMachine},
    {"NeskUser", &NeskRegistry::NeskUser},
    {"ExitKey", &NeskRegistry::ExitKey},
    {"PrinterDevice", &NeskRegistry::PrinterDevice},
    {"PrinterDriver", &NeskRegistry::PrinterDriver},
    {"PrinterOrientation", &NeskRegistry::PrinterOrientation},
    {"PrinterPaperSize", &NeskRegistry::PrinterPaperSize},
    {"PrinterPaperBin", &NeskRegistry::PrinterPaperBin},
    {"PrinterQuality", &NeskRegistry::PrinterQuality},
    {"PrinterZoom", &NeskRegistry::PrinterZoom},
};

constexpr int LoadsMeanwhile = 5;

// The first version has short texts; the second has long texts and some empty ones.
NeskRegistry Record(bool second) {
    NeskRegistry record;
    for (const TextField& text : Fields)
        if (text.field != nullptr)
            record.*text.field = std::string(second ? 200 : 3, second ? 'b' : 'a') + text.name;
    if (second) record.HistoryTitle = record.ExitKey = record.PrinterZoom = "";
    record.HistoryMaxParts = second ? 31000 : 4;
    record.SampleSize = second ? -31000 : 5;
    return record;
}

Values ValuesOf(const NeskRegistry& record) {
    Values values;
    for (const TextField& text : Fields)
        if (text.field != nullptr) values.push_back(record.*text.field);
    values.insert(values.begin() + 5,
                  {std::to_string(record.HistoryMaxParts), std::to_string(record.SampleSize)});
    return values;
}

// The process that is killed.
int SaveForEver(const std::string& station, const std::string& descriptor) {
    platform::portable::UseStation(station);
    const testing::SaveProgress progress(descriptor);
    modMessageBox::SetHook([](const std::string& text, std::int16_t, const std::string&) -> std::int16_t {
        std::cerr << "a save failed: " << text << std::endl;
        ::_exit(1);
    });
    NeskRegistry records[] = {Record(false), Record(true)};
    for (std::size_t i = 0;; ++i) {
        progress.Begin();
        records[i % 2].Save();
        progress.End();
    }
}

class Killer {
public:
    bool Round(int number, std::mt19937& random);
    // Returns whether `kills` kills hit enough saves to be a valid test.
    bool HitEnough(int kills) const {
        return m_hits >= kills / 10 && m_takenBack >= kills / 20 && m_saves > 0;
    }
    bool Finish(int kills) const;

private:
    static bool Fail(const std::string& what) {
        std::cerr << what << "\n";
        return false;
    }
    fs::path Store() const { return m_station.Folder() / "registry.db"; }
    bool LoadMeanwhile() const;
    bool IsSound() const;
    bool CheckValues(int started, int ended);
    const Values& Version(int save) const {
        if (save == 0) return m_before;
        return save % 2 == 1 ? m_odd : m_even;
    }
    bool CheckFolder() const;

    TempStation m_station;
    // The values in the store before the round, and the values that odd and even saves of the round write.
    Values m_before = Values(std::size(Fields));
    const Values m_odd = ValuesOf(Record(false));
    const Values m_even = ValuesOf(Record(true));
    int m_saves = 0;
    int m_hits = 0;
    int m_takenBack = 0;
    int m_newStores = 0;
};

bool Killer::Round(int number, std::mt19937& random) {
    // In some rounds the store is created anew, and the process is killed during that.
    if (number % 10 == 1) {
        for (const char* end : {"", "-wal", "-shm"})
            fs::remove(Store().string() + end);
        m_before.assign(std::size(Fields), "");
        ++m_newStores;
    }
    testing::Victim victim({"save", m_station.Folder().string()});
    victim.WaitForSave();
    // The first save opens the store, which takes many times as long as a save.
    const bool opened = random() % 4 != 0;
    if (opened) {
        victim.WaitForEnds(1 + static_cast<int>(random() % 5));
        if (!LoadMeanwhile()) return false;
    }
    std::this_thread::sleep_for(microseconds(random() % (opened ? 2'000 : 20'000)));
    if (!victim.Kill()) return Fail("the program that saves ended by itself");
    m_saves += victim.Ended();
    m_hits += victim.Begun() > victim.Ended() ? 1 : 0;
    return CheckFolder() && CheckValues(victim.Begun(), victim.Ended()) && IsSound();
}

// Loads the settings while the other process saves.
bool Killer::LoadMeanwhile() const {
    platform::portable::UseStation(m_station.Folder());
    for (int i = 0; i < LoadsMeanwhile; ++i) {
        NeskRegistry loaded;
        loaded.Load();
        // HistoryMaxParts is never loaded, on purpose.
        const auto isOf = [&loaded](bool second) {
            const NeskRegistry saved = Record(second);
            loaded.HistoryMaxParts = saved.HistoryMaxParts;
            return ValuesOf(loaded) == ValuesOf(saved);
        };
        if (isOf(false) || isOf(true)) continue;
        return Fail("the settings that were loaded meanwhile are of no save: " + loaded.NeskRoot + " ... " +
                    loaded.PrinterQuality);
    }
    platform::portable::UseStation("/nonexistent/station");
    return true;
}

bool Killer::CheckFolder() const {
    for (const auto& entry : fs::directory_iterator(m_station.Folder())) {
        const std::string name = entry.path().filename().string();
        if (name == "drives") continue;
        if (!name.starts_with("registry.db")) return Fail("left over: " + name);
        if (entry.file_size() > 8'000'000) return Fail(name + " grows without bound");
    }
    return true;
}

bool Killer::CheckValues(int started, int ended) {
    // The store is opened anew and closed afterwards, so that the next process has it to itself.
    platform::portable::UseStation(m_station.Folder());
    Values stored;
    RegEntry entry;
    try {
        entry.OpenKey("Neskworks");
    } catch (const NeskError&) {
        // The key is missing until something is written; an unusable store returns a different code.
        if (entry.LastResult() != platform::ErrorCode::FileNotFound)
            return Fail("the settings cannot be opened: " + std::to_string(Number(entry.LastResult())));
    }
    for (const TextField& text : Fields)
        stored.push_back(entry.GetString(text.name));
    NeskRegistry loaded;
    loaded.Load();
    for (std::size_t i = 0; i < std::size(Fields); ++i)
        if (Fields[i].field != nullptr && loaded.*Fields[i].field != stored[i])
            return Fail(std::string(Fields[i].name) + " is loaded as " + loaded.*Fields[i].field);
    platform::portable::UseStation("/nonexistent/station");

    const bool known = stored == Version(ended) || stored == Version(started);
    if (started > ended && stored != Version(started)) ++m_takenBack;
    std::string text = "the values are neither those of save " + std::to_string(ended) +
                       " nor those of save " + std::to_string(started) + ":";
    for (const std::string& value : stored)
        text += "\n  " + value;
    m_before = std::move(stored);
    return known || Fail(text);
}

bool Killer::IsSound() const {
    sqlite3* database = nullptr;
    sqlite3_stmt* statement = nullptr;
    std::string answer = "cannot be opened";
    // If the process was killed before it wrote the first byte, the store does not exist yet.
    if (!fs::exists(Store())) return true;
    if (sqlite3_open(Store().c_str(), &database) == SQLITE_OK &&
        sqlite3_prepare_v2(database, "PRAGMA integrity_check", -1, &statement, nullptr) == SQLITE_OK &&
        sqlite3_step(statement) == SQLITE_ROW)
        answer = reinterpret_cast<const char*>(sqlite3_column_text(statement, 0));
    sqlite3_finalize(statement);
    sqlite3_close(database);
    return answer == "ok" || Fail("the store is damaged: " + answer);
}

bool Killer::Finish(int kills) const {
    std::cout << kills << " kills, " << m_hits << " in the middle of a save, " << m_takenBack
              << " of which it was taken back; " << m_newStores << " times the store was new; " << m_saves
              << " saves ended\n";
    return HitEnough(kills) || Fail("too few kills hit a save for this to be a test");
}

} // namespace
} // namespace nesk

int main(int count, char** values) {
    const std::vector<std::string> arguments(values, values + count);
    nesk::modStringRes::InitStringRes(1033);
    if (count == 4 && arguments[1] == "save") return nesk::SaveForEver(arguments[2], arguments[3]);
    const int kills = count > 1 ? std::stoi(arguments[1]) : 300;
    const unsigned seed =
        count > 2 ? static_cast<unsigned>(std::stoul(arguments[2])) : std::random_device()();
    std::cout << "seed " << seed << std::endl;
    std::mt19937 random(seed);
    nesk::Killer killer;
    // The duration of a save varies between machines, so more kills may be needed to hit enough saves.
    int kill = 0;
    while (kill < kills || (!killer.HitEnough(kill) && kill < 10 * kills)) {
        ++kill;
        if (killer.Round(kill, random)) continue;
        std::cerr << "after kill " << kill << "\n";
        return 1;
    }
    return killer.Finish(kill) ? 0 : 1;
}
