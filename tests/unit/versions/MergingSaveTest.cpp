// A save that merges what others have saved, in which every operation on files fails in turn: the file is the
// version of the others or the merged one, what was changed here stays, and the next attempt merges and
// saves.

#include "journal/JournalPlaces.h"
#include "journal/MenuJournal.h"
#include "menu/MenuItem.h"
#include "menu/MenuItemCollection.h"
#include "unit/FaultyFiles.h"
#include "unit/journal/JournalFixture.h"
#include "versions/FindVersion.h"
#include "versions/MenuMerge.h"
#include "versions/OthersChanges.h"
#include "versions/SaveKeepingVersion.h"

#include <algorithm>

namespace nesk {
namespace {

using nesk::testing::Fault;
using nesk::testing::FaultyFiles;
using nesk::testing::FileBytes;
using nesk::testing::JournalTest;
using nesk::testing::TreeTextWithoutIds;
using platform::ErrorCode;

// Whether one of the kept versions has these bytes.
bool IsKept(const std::string& path, const std::string& bytes) {
    const std::vector<MenuVersion> versions = VersionStore(path).List();
    return std::any_of(versions.begin(), versions.end(),
                       [&](const MenuVersion& version) { return FileBytes(version.path) == bytes; });
}

class MergingSaveTest : public JournalTest {
protected:
    MergingSaveTest() {
        m_options.keepsBase = true;
        m_options.inBackground = [](const std::function<void()>& work) {
            work();
            return true;
        };
    }

    // Merges and saves. Returns false when the version of the others could not be read.
    static bool MergeAndSave(MenuEditor& editor, platform::FileSystem& files) {
        if (FileHash::Of(Path, files) != editor.HashOnDisk()) {
            const QuietMenu theirs = ReadMenuQuietly(Path, Folder, files);
            const std::unique_ptr<Menu> base = OthersChanges::Base(editor, "", files);
            if (!theirs.IsWhole() || !base) return false;
            const MenuMerge merge(*base, *editor.OpenMenu(), *theirs.menu);
            EXPECT_TRUE(merge.Conflicts().empty());
            OthersChanges::TakeMerged(editor, theirs, merge);
        }
        VersionStore store(Path, files);
        static_cast<void>(SaveKeepingVersion(editor, Path, editor.PlanSave(Path), store, files));
        return true;
    }

    static std::string CaptionsIn(const std::string& path) {
        const QuietMenu read = ReadMenuQuietly(path, Folder);
        if (!read.IsWhole()) return "(not whole)";
        std::string captions(read.menu->Caption());
        for (int i = 1; i <= read.menu->ChildCount(); ++i)
            captions.append(",").append(read.menu->SubMenus().Item(i).Caption());
        return captions;
    }

    // Merges and saves with failures. Returns the number of operations.
    std::size_t Run(const Fault& fault) {
        std::filesystem::remove_all(TempStation::Host(Folder));
        std::filesystem::remove_all(TempStation::Host("C:\\User"));
        station.Write(Path, Menu1);
        FaultyFiles files({}, m_files);
        MenuEditor editor(files);
        MenuJournal journal(editor, m_options, files);
        EXPECT_FALSE(editor.Open(Folder, Path).has_value());
        editor.SetCaption("R", "ours");
        journal.Flush();
        {
            MenuEditor others;
            EXPECT_FALSE(others.Open(Folder, Path).has_value());
            others.AddPart("R", "theirs");
            others.Save(Path);
        }
        const std::string saved = FileBytes(Path);

        files.Restart(fault);
        bool isSaved = false;
        try {
            isSaved = MergeAndSave(editor, files);
        } catch (const NeskError&) {
            ++m_failedSaves;
        }
        const std::size_t operations = files.Operations().size();
        const std::string merged = "ours,Housings,Flanges,Arms,theirs";
        if (isSaved)
            EXPECT_EQ(CaptionsIn(Path), merged);
        else
            EXPECT_TRUE(FileBytes(Path) == saved || CaptionsIn(Path) == merged) << CaptionsIn(Path);
        EXPECT_EQ(editor.OpenMenu()->Caption(), "ours");
        EXPECT_EQ(editor.IsDirty(), !isSaved);
        if (!isSaved && !journal.IsStopped()) {
            FoundJournal found;
            found.path = journal.Path();
            const std::unique_ptr<Menu> base = FindVersion(Path, editor.HashOnDisk().Text(), Folder,
                                                           {Path, JournalPlaces::BaseOf(found.path)});
            EXPECT_NE(base, nullptr) << found.path;
            if (base) {
                EXPECT_EQ(TreeTextWithoutIds(*UnsavedChanges::RestoreInto(found, *base, m_files).menu),
                          TreeTextWithoutIds(*editor.OpenMenu()));
            }
        }

        files.Mend();
        EXPECT_TRUE(MergeAndSave(editor, files));
        EXPECT_EQ(CaptionsIn(Path), merged);
        EXPECT_FALSE(editor.IsDirty());
        EXPECT_TRUE(IsKept(Path, saved) || FileBytes(Path + ".bak") == saved);
        editor.Close();
        return operations;
    }

    // Lets each operation fail in turn.
    void FailInTurn(Fault fault) {
        const std::size_t operations = Run({});
        ASSERT_GT(operations, 30u);
        ASSERT_TRUE(IsKept(Path, FileBytes(Path + ".bak")));
        for (fault.first = 1; fault.first <= static_cast<int>(operations) && !HasFailure(); ++fault.first) {
            SCOPED_TRACE("operation " + std::to_string(fault.first));
            Run(fault);
        }
        EXPECT_GT(m_failedSaves, 0);
    }

    // Keeps the version before, and then saves while every operation fails.
    static void FailToSave(ErrorCode code) {
        FaultyFiles files;
        MenuEditor editor(files);
        ASSERT_FALSE(editor.Open(Folder, Path).has_value());
        editor.SetCaption("R", "changed");
        const SavePlan plan = editor.PlanSave(Path);
        VersionStore store(Path);
        files.Restart({1, code, true, false});
        EXPECT_THROW(SaveKeepingVersion(editor, Path, plan, store), NeskError);
        EXPECT_TRUE(editor.IsDirty());
    }

    int m_failedSaves = 0;
};

TEST_F(MergingSaveTest, OneOperationFails) {
    FailInTurn({0, ErrorCode::AccessDenied, false, false});
}

TEST_F(MergingSaveTest, AllOperationsFailFromOneOn) {
    FailInTurn({0, ErrorCode::DiskFull, true, false});
    FailInTurn({0, ErrorCode::AccessDenied, true, false});
}

TEST_F(MergingSaveTest, AnOperationIsDoneButReportedAsFailed) {
    FailInTurn({0, ErrorCode::WriteFault, false, true});
}

TEST_F(MergingSaveTest, AVersionIsGivenUpOnADiskThatIsTooFullForBoth) {
    int givenUp = 0;
    for (int operation = 1;; ++operation) {
        SCOPED_TRACE("operation " + std::to_string(operation));
        std::filesystem::remove_all(TempStation::Host(Folder));
        station.Write(Path, Menu1);
        FaultyFiles files;
        MenuEditor editor(files);
        ASSERT_FALSE(editor.Open(Folder, Path).has_value());
        editor.SetCaption("R", "changed");
        const SavePlan plan = editor.PlanSave(Path);
        VersionStore store(Path);
        // The version fits, an operation of the save does not.
        files.Restart({operation, ErrorCode::DiskFull, false, false});
        const VersionStore::Kept kept = SaveKeepingVersion(editor, Path, plan, store);
        EXPECT_EQ(CaptionsIn(Path), "changed,Housings,Flanges,Arms");
        EXPECT_FALSE(editor.IsDirty());
        EXPECT_EQ(kept.isNew, !kept.error);
        EXPECT_EQ(store.List().empty(), kept.error.has_value()) << "its place is needed for the save";
        if (kept.error) {
            ++givenUp;
            EXPECT_EQ(kept.error->number, RuntimeError::DiskFull);
        }
        if (files.Failed().empty()) break;
    }
    EXPECT_GT(givenUp, 0);
}

TEST_F(MergingSaveTest, ADiskThatIsTooFullForTheSaveAloneIsAnError) {
    FailToSave(ErrorCode::DiskFull);
    EXPECT_EQ(FileBytes(Path), Menu1);
}

TEST_F(MergingSaveTest, AnotherErrorOfASaveKeepsTheVersion) {
    FailToSave(ErrorCode::AccessDenied);
    EXPECT_TRUE(IsKept(Path, Menu1));
}

TEST_F(MergingSaveTest, ASaveThatChangesNothingLeavesNoVersion) {
    MenuEditor editor;
    ASSERT_FALSE(editor.Open(Folder, Path).has_value());
    VersionStore store(Path);
    ASSERT_TRUE(SaveKeepingVersion(editor, Path, editor.PlanSave(Path), store).isNew)
        << "it was written by hand";
    const std::size_t versions = store.List().size();
    EXPECT_FALSE(SaveKeepingVersion(editor, Path, editor.PlanSave(Path), store).isNew);
    EXPECT_EQ(store.List().size(), versions);
}

} // namespace
} // namespace nesk
