// Journals that end anywhere, and journals with changed bytes.

#include "journal/JournalCode.h"
#include "journal/JournalRecord.h"
#include "unit/journal/JournalFixture.h"
#include "unit/journal/RandomEdits.h"

#include <algorithm>
#include <initializer_list>

namespace nesk {
namespace {

using nesk::testing::ChangeWatch;
using nesk::testing::JournalTest;
using nesk::testing::RandomEdits;
using nesk::testing::TreeText;

class JournalDamageTest : public JournalTest {
protected:
    // Writes a journal of some edits to `m_bytes` and all states of the menu to `m_states`.
    void MakeJournal(unsigned seed, std::size_t steps) {
        MenuEditor editor;
        MenuJournal journal(editor, m_options, m_files);
        Open(editor);
        m_states = {TreeText(*editor.OpenMenu())};
        m_lengths = {0};
        ChangeWatch watch(editor);
        watch.onChange = [&] {
            if (journal.Path().empty()) {
                m_states.resize(1);
                m_lengths.resize(1);
                return;
            }
            m_bytes = JournalBytes(journal.Path());
            if (m_bytes.size() == m_lengths.back()) return;
            m_states.push_back(TreeText(*editor.OpenMenu()));
            m_lengths.push_back(m_bytes.size());
        };
        RandomEdits random(editor, seed);
        while (m_states.size() <= steps)
            random.Make();
    }

    RestoredMenu Restore(const std::string& bytes) {
        WriteBytes(Place, bytes);
        FoundJournal found;
        found.path = Place;
        return UnsavedChanges::RestoreInto(found, *ReadMenuQuietly(Path, Folder).menu);
    }

    std::string m_bytes;
    std::vector<std::string> m_states;  // after each step
    std::vector<std::size_t> m_lengths; // of the file after each step
};

TEST_F(JournalDamageTest, CutOffAnywhereItLeadsToTheLastWholeStep) {
    MakeJournal(1, 12);
    for (std::size_t length = 0; length <= m_bytes.size(); ++length) {
        const RestoredMenu restored = Restore(m_bytes.substr(0, length));
        const auto next = std::upper_bound(m_lengths.begin(), m_lengths.end(), length);
        const auto steps = static_cast<std::size_t>(next - m_lengths.begin()) - 1;
        ASSERT_EQ(TreeText(*restored.menu), m_states[steps]) << length << " bytes";
        // Without its header, it does not say to what the changes apply.
        ASSERT_EQ(restored.isDamaged, !Journal::Read(m_bytes.substr(0, length)).header) << length << " bytes";
    }
}

TEST_F(JournalDamageTest, AChangedByteIsFoundAndTheStepsBeforeItCount) {
    MakeJournal(2, 12);
    for (std::size_t at = 0; at < m_bytes.size(); ++at) {
        std::string bytes = m_bytes;
        bytes[at] = static_cast<char>(bytes[at] ^ (at % 2 == 0 ? 0x01 : 0x80));
        const RestoredMenu restored = Restore(bytes);
        const auto next = std::upper_bound(m_lengths.begin(), m_lengths.end(), at);
        const auto steps = static_cast<std::size_t>(next - m_lengths.begin()) - 1;
        ASSERT_EQ(TreeText(*restored.menu), m_states[steps]) << "byte " << at;
        ASSERT_TRUE(restored.isDamaged) << "byte " << at;
    }
}

// The checksums are right, but the changes are those of another menu.
TEST_F(JournalDamageTest, AChangeThatDoesNotFitEndsBeforeItsFirstEvent) {
    std::string events;
    JournalEncoder out(events);
    out.Number(4); // edited: R.1, new fields
    out.Number(1);
    out.Number(1);
    for (const char* text : {"other", "", "Menu", "", ""})
        out.Text(text);
    out.SignedNumber(0);
    for (int i = 0; i < 3; ++i)
        out.Text("");
    std::string bytes = JournalRecord::Begin({"", Path, "", ""});
    JournalRecord::AppendStep(bytes, {{}, 1, events});
    const RestoredMenu fits = Restore(bytes);
    ASSERT_FALSE(fits.isDamaged);
    ASSERT_EQ(fits.menu->Find("R.1")->Caption(), "other");

    std::string two = events;
    JournalEncoder more(two);
    more.Number(2); // removed: R.99
    more.Number(1);
    more.Number(99);
    two.replace(two.find("other"), 5, "THIRD");
    JournalRecord::AppendStep(bytes, {{}, 2, two});
    JournalRecord::AppendStep(bytes, {{}, 3, events});
    const RestoredMenu restored = Restore(bytes);
    EXPECT_TRUE(restored.isDamaged);
    EXPECT_EQ(TreeText(*restored.menu), TreeText(*fits.menu));
}

TEST_F(JournalDamageTest, TextsThatNoFileCanStoreAreDamage) {
    for (const std::string& text :
         {std::string("a\r\nEND"), std::string("a\0b", 3), std::string("\xF0\x9F\x98\x80")}) {
        std::string events;
        JournalEncoder out(events);
        out.Number(4); // edited: the root
        out.Number(0);
        out.Text(text);
        out.Text("");
        std::string bytes = JournalRecord::Begin({"", Path, "", ""});
        JournalRecord::AppendStep(bytes, {{}, 1, events});
        const RestoredMenu restored = Restore(bytes);
        EXPECT_TRUE(restored.isDamaged) << text;
        EXPECT_EQ(restored.menu->Caption(), "Station");
    }
}

TEST_F(JournalDamageTest, AnIdThatIsTakenIsDamage) {
    const auto move = [&](std::uint64_t counter) {
        std::string events;
        JournalEncoder out(events);
        // Moved: R.1.1, to R, with the counter, to the first place.
        for (const std::uint64_t number : std::initializer_list<std::uint64_t>{3, 2, 1, 1, 0, counter, 1})
            out.Number(number);
        std::string bytes = JournalRecord::Begin({"", Path, "", ""});
        JournalRecord::AppendStep(bytes, {{}, 1, events});
        return Restore(bytes);
    };
    const RestoredMenu moved = move(4);
    EXPECT_FALSE(moved.isDamaged);
    ASSERT_NE(moved.menu->Find("R.4"), nullptr);
    EXPECT_EQ(moved.menu->Find("R.4")->Caption(), "Housing 1");
    EXPECT_TRUE(move(2).isDamaged);
    EXPECT_TRUE(move(0).isDamaged);
    EXPECT_TRUE(move(0x7FFFFFFF).isDamaged) << "no counter could follow";
}

TEST_F(JournalDamageTest, CountersOfAnotherTreeAreDamage) {
    for (const std::string& counters : {std::string("\x00\x02\x01\x05\x01", 5), std::string("\x03", 1),
                                        std::string("\x01\x02\x04\x04\x00", 5), std::string("\x02\x07", 2)}) {
        std::string bytes = JournalRecord::Begin({"", Path, "", counters});
        JournalRecord::AppendStep(bytes, {{}, 1, ""});
        EXPECT_TRUE(Restore(bytes).isDamaged);
    }
    // The children of the root as read, those of R.1 with the counters 4 and 2.
    std::string bytes = JournalRecord::Begin({"", Path, "", std::string("\x01\x02\x04\x02\x00", 5)});
    JournalRecord::AppendStep(bytes, {{}, 1, ""});
    const RestoredMenu restored = Restore(bytes);
    EXPECT_FALSE(restored.isDamaged);
    ASSERT_NE(restored.menu->Find("R.1.4"), nullptr);
    EXPECT_EQ(restored.menu->Find("R.1.4")->Caption(), "Housing 1");
    EXPECT_EQ(restored.menu->Find("R.1.1"), nullptr);
}

TEST_F(JournalDamageTest, AMenuIsNoJournalAndAJournalNoMenu) {
    EXPECT_FALSE(Journal::Read(Menu1).isJournal);
    EXPECT_FALSE(Journal::Read("; NeskManager unsaved changes").isJournal);
    MakeJournal(3, 2);
    WriteBytes(Path, m_bytes);
    MenuEditor editor;
    EXPECT_TRUE(editor.Open(Folder, Path).has_value());
    EXPECT_EQ(editor.OpenMenu()->ChildCount(), 0);
}

} // namespace
} // namespace nesk
