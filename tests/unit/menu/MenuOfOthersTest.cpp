// Random menu files as other programs and people may write them, read and compared with their source. A
// failure names the seed of its file; the same seed gives the same file again.

#include "editing/MenuEditor.h"
#include "menu/MenuItem.h"
#include "settings/RegEntry.h"
#include "unit/CoreFixture.h"
#include "unit/FileBytes.h"
#include "unit/menu/MenuModel.h"
#include "unit/menu/MenuModelTexts.h"
#include "unit/menu/QuickFiles.h"

#include <filesystem>
#include <functional>
#include <optional>

namespace nesk {
namespace {

using nesk::testing::FileBytes;
using nesk::testing::FirstDifference;
using nesk::testing::MenuModel;
using nesk::testing::ModelEntry;
using nesk::testing::Random;
using nesk::testing::TextRules;

const std::string Folder = "C:\\Neskroot";
const std::string Path = Folder + "\\menu.cfg";
const std::string Copy = Folder + "\\copy.cfg";
const std::string HistoryKey = "Neskworks\\Historys";
constexpr int MostEntries = 30;

// Writes a menu in every way that the format allows, and keeps the menu that must be read from it.
class OddWriter {
public:
    OddWriter(Random& random, const TextRules& rules) : m_random(random), m_rules(rules) {
        static const std::vector<std::string> ends = {"\r\n", "\n", "\r"};
        // Line ends may be mixed, as when different programs wrote parts of a file.
        if (!m_random.OneIn(4)) m_end = m_random.Of(ends);
        Comments();
        StartBlock("menu");
        m_root.id = "R";
        m_root.caption = "Main Menu";
        WriteEntry(m_root, RootKeys(), 0);
        Comments();
        // The last line needs no line end.
        if (m_random.OneIn(3)) m_bytes.resize(m_bytes.find_last_not_of("\r\n") + 1);
    }

    const std::string& Bytes() const { return m_bytes; }

    // The written menu, without ids and with the texts as written.
    const ModelEntry& Root() const { return m_root; }

private:
    // A key and the field that its value sets.
    struct Key {
        const char* name;
        std::function<std::string(ModelEntry&)>
            write; // makes a value, stores it, and returns its text in the file
    };

    Key TextKey(const char* name, std::string PartFields::*field) {
        return {name, [this, field](ModelEntry& entry) { return entry.fields.*field = MakeText(); }};
    }

    std::vector<Key> RootKeys() {
        return {{"CAPTION", [this](ModelEntry& entry) { return entry.caption = MakeText(); }},
                TextKey("GRAPHIC", &PartFields::graphic)};
    }

    std::vector<Key> ItemKeys() {
        std::vector<Key> keys = RootKeys();
        keys.insert(keys.end(), {TextKey("PREVIEW", &PartFields::preview),
                                 TextKey("HELPFILE", &PartFields::helpFile),
                                 {"HELPTOPIC", [this](ModelEntry& entry) { return MakeTopic(entry); }},
                                 {"MENUTYPE", [this](ModelEntry& entry) { return MakeType(entry); }},
                                 TextKey("PROGRAMID", &PartFields::programId),
                                 TextKey("HISTORY_TITLE", &PartFields::historyTitle)});
        // Each history directory makes the reader access several registry values.
        if (m_random.OneIn(6)) keys.push_back(TextKey("HISTORY_DIR", &PartFields::historyDir));
        return keys;
    }

    std::string MakeText() {
        std::string text;
        do {
            text = m_rules.Make(m_random);
        } while (m_rules.Refusal(text) != 0);
        return text;
    }

    std::string MakeTopic(ModelEntry& entry) {
        static const std::vector<std::pair<std::string, std::int32_t>> topics = {
            {"0", 0},
            {"7", 7},
            {"007", 7},
            {"+12", 12},
            {"-1", -1},
            {"&H10", 16},
            {"&h1f", 31},
            {"&HFFFF", 65535},
            {"&HFFFFFFFF", -1},
            {"&o17", 15},
            {"1e3", 1000},
            {"2.0", 2},
            {"33004\t", 33004},
            {"2147483647", 2147483647},
            {"-2147483648", -2147483647 - 1}};
        const auto& [written, number] = m_random.Of(topics);
        entry.fields.helpTopic = number;
        return written;
    }

    std::string MakeType(ModelEntry& entry) {
        static const std::vector<std::string> types = {"Menu", "MENU", "Part Program", "part program",
                                                       "pocket"};
        return entry.menuType = m_random.OneIn(5) ? MakeText() : m_random.Of(types);
    }

    // Writes the keys of an entry whose block has begun and the entries below it, in any order, and the end
    // of the block.
    void WriteEntry(ModelEntry& entry, const std::vector<Key>& keys, int depth) {
        std::size_t lines = m_random.OneIn(8) ? 0 : m_random.Below(3 * keys.size());
        std::size_t children = depth < 6 ? m_random.Below(5) : 0;
        while (lines + children > 0) {
            Noise();
            const std::size_t next = m_random.Below(lines + children);
            if (next < children) {
                --children;
                if (++m_entries < MostEntries) WriteChild(entry, depth);
            } else {
                --lines;
                // If a key appears twice, the later value counts.
                const Key& key = m_random.Of(keys);
                Line(AnyCase(key.name) + Blanks() + "=" + Blanks() + key.write(entry));
            }
        }
        Noise();
        Line(AnyCase("END"));
    }

    void WriteChild(ModelEntry& parent, int depth) {
        StartBlock("submenu");
        ModelEntry child;
        WriteEntry(child, ItemKeys(), depth + 1);
        parent.children.push_back(std::move(child));
    }

    void StartBlock(const char* type) {
        static const std::vector<std::string> names = {"", " one", "\ttwo words", " \t; three", " END"};
        Line(AnyCase("BLOCK") + " " + Blanks() + AnyCase(type) + m_random.Of(names));
    }

    // Lines that are ignored everywhere.
    void Comments() {
        while (m_random.OneIn(3)) {
            if (m_random.OneIn(2))
                Line("");
            else if (m_random.OneIn(100))
                // Long enough that the next line crosses the end of a read block.
                Line(";" + std::string(250000 + m_random.Below(20000), 'x'));
            else
                Line(";" + MakeText());
        }
    }

    // Lines that are ignored inside a block, including keys of other programs.
    void Noise() {
        static const std::vector<std::string> unknown = {
            "NAME",      "END",  "BLOCK SUBMENU", "",
            "CAPTION 2", "HELP", "CAPTIONS",      "A KEY LONGER THAN ALL OTHERS"};
        Comments();
        if (m_random.OneIn(6)) Line(AnyCase(m_random.Of(unknown)) + Blanks() + "=" + MakeText());
    }

    void Line(const std::string& text) {
        static const std::vector<std::string> ends = {"\r\n", "\n", "\r"};
        const std::optional<std::string> bytes = platform::ToAnsi(text);
        ASSERT_TRUE(bytes.has_value()) << text;
        m_bytes += Blanks() + *bytes + Blanks() + (m_end.empty() ? m_random.Of(ends) : m_end);
    }

    std::string Blanks() {
        static const std::vector<std::string> blanks = {" ", "\t", "  ", "\t\t", " \t "};
        return m_random.OneIn(3) ? m_random.Of(blanks) : "";
    }

    std::string AnyCase(std::string word) {
        const std::size_t kind = m_random.Below(4);
        for (char& c : word) {
            const bool lower = kind == 1 || (kind == 2 && m_random.OneIn(2));
            const char plain = static_cast<char>(c | 0x20);
            if (plain >= 'a' && plain <= 'z') c = static_cast<char>(lower ? plain : plain - 'a' + 'A');
        }
        return word;
    }

    Random& m_random;
    const TextRules& m_rules;
    std::string m_end; // of every line; "" for mixed line ends
    std::string m_bytes;
    ModelEntry m_root;
    int m_entries = 0;
};

class MenuOfOthersTest : public nesk::testing::CoreTest {
protected:
    MenuOfOthersTest() { std::filesystem::create_directories(TempStation::Host(Folder)); }

    // Reads files made with the seeds from `first` on and stops at the first that is read wrongly.
    void ReadFiles(const TextRules& rules, unsigned first, unsigned count) {
        platform::SelectCodePage(rules.languageId);
        std::size_t entries = 0;
        for (unsigned seed = first; seed < first + count; ++seed) {
            SCOPED_TRACE("seed " + std::to_string(seed));
            Random random(seed);
            const OddWriter writer(random, rules);
            MenuModel model;
            model.Restore(writer.Root());
            // Some file systems flush a file that replaces another one.
            for (const std::string& path : {Path, Copy, Copy + ".bak"})
                std::filesystem::remove(TempStation::Host(path));
            station.Write(Path, writer.Bytes());
            ThroughFiles(rules, model);
            if (HasFailure()) return;
            entries += model.Ids().size();
        }
        EXPECT_GT(entries, count * 4) << "the menus are too small to tell much";
    }

private:
    void ThroughFiles(const TextRules& rules, MenuModel& model) {
        nesk::testing::QuickFiles files;
        MenuEditor editor(files);
        Load(editor, Path, rules, model);
        if (HasFailure()) return;
        editor.Save(Copy);
        const std::string saved = FileBytes(Copy);
        MenuEditor again(files);
        Load(again, Copy, rules, model);
        if (HasFailure()) return;
        again.Save(Copy);
        ASSERT_EQ(FileBytes(Copy), saved);
    }

    void Load(MenuEditor& editor, const std::string& path, const TextRules& rules, MenuModel& model) {
        const std::optional<NeskError> error = editor.Open(Folder, path);
        ASSERT_FALSE(error.has_value())
            << error->source << " " << error->number << " in line " << error->line;
        ASSERT_FALSE(editor.IsIncomplete());
        std::size_t known = m_histories.size();
        model.PassThroughFile(rules, m_histories);
        ASSERT_EQ(FirstDifference(*editor.OpenMenu(), model.Root()), "");
        if (m_histories.empty()) return;
        // Every history directory that was read is in the list of the operator interface, in reading order.
        RegEntry list;
        list.OpenKey(HistoryKey);
        ASSERT_EQ(list.GetString("NumberOfHistorys"), std::to_string(m_histories.size()));
        for (; known < m_histories.size(); ++known) {
            // A longer text is not returned.
            if (m_histories[known].size() > 200) continue;
            ASSERT_EQ(list.GetString(std::to_string(known + 1) + "Directory"), m_histories[known]);
        }
    }

    std::vector<std::string> m_histories;
};

TEST_F(MenuOfOthersTest, EveryValueIsKept) {
    ReadFiles(nesk::testing::WesternTexts(), 20000, 200);
}

#ifdef NESK_PORTABLE_STATION
TEST_F(MenuOfOthersTest, EveryValueIsKeptWithBytesThatStandForNothing) {
    ReadFiles(nesk::testing::GreekTexts(), 21000, 100);
}

TEST_F(MenuOfOthersTest, EveryValueIsKeptWithCharactersOfTwoBytes) {
    ReadFiles(nesk::testing::JapaneseTexts(), 22000, 100);
}
#endif

} // namespace
} // namespace nesk
