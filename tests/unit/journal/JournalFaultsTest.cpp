// A journal in which every operation on files fails in turn. Editing goes on, the menu file stays as it is,
// and the journal either says that it has stopped or leads to the open menu.

#include "journal/MenuJournal.h"
#include "unit/FaultyFiles.h"
#include "unit/journal/JournalFixture.h"

namespace nesk {
namespace {

using nesk::testing::Fault;
using nesk::testing::FaultyFiles;
using nesk::testing::FileBytes;
using nesk::testing::FilesIn;
using nesk::testing::JournalTest;
using nesk::testing::TreeText;
using platform::ErrorCode;

class JournalFaultsTest : public JournalTest {
protected:
    JournalFaultsTest() {
        m_options.keepsBase = true;
        m_options.inBackground = [](const std::function<void()>& work) {
            work();
            return true;
        };
    }

    void Check(const MenuEditor& editor, const MenuJournal& journal) {
        ASSERT_EQ(FileBytes(Path), m_onDisk);
        if (journal.IsStopped()) {
            ASSERT_EQ(journal.Path(), "");
            return;
        }
        ASSERT_EQ(journal.Path().empty(), !editor.IsDirty());
        if (!editor.IsDirty()) return;
        ASSERT_EQ(Restored(journal.Path()), TreeText(*editor.OpenMenu()));
    }

    // Edits with failures of the journal's files. Returns the number of operations.
    std::size_t Edit(const Fault& fault) {
        std::filesystem::remove_all(TempStation::Host(Folder));
        std::filesystem::remove_all(TempStation::Host("C:\\User"));
        station.Write(Path, Menu1);
        m_onDisk = Menu1;
        FaultyFiles files(fault, m_files);
        MenuEditor editor;
        MenuJournal journal(editor, m_options, files);
        int told = 0;
        journal.onFailure = [&](const NeskError&) { ++told; };
        Open(editor);
        const std::vector<std::function<void()>> edits = {
            [&] { editor.SetCaption("R", "a"); },
            [&] { editor.AddPart("R.1", "b"); },
            [&] { journal.Flush(); },
            [&] { journal.Flush(); },
            [&] { editor.Remove("R.2"); },
            [&] { editor.Undo(); },
            [&] { journal.TryAgain(); },
            [&] { editor.MoveTo("R.3", "R.1", 1); },
            [&] {
                editor.Save(Path);
                m_onDisk = FileBytes(Path);
            },
            [&] { editor.SetCaption("R", "c"); },
            [&] { editor.MoveUp("R.2"); },
            [&] { editor.Undo(); },
            [&] { editor.Undo(); },
            [&] { editor.SetCaption("R", "d"); },
        };
        for (std::size_t i = 0; i < edits.size() && !HasFailure(); ++i) {
            SCOPED_TRACE("edit " + std::to_string(i));
            edits[i]();
            Check(editor, journal);
        }
        EXPECT_EQ(editor.OpenMenu()->Caption(), "d");
        EXPECT_LE(told, 1);
        EXPECT_GE(told, journal.IsStopped() ? 1 : 0);
        m_wasStopped |= journal.IsStopped();
        const std::size_t operations = files.Operations().size();
        files.Mend();
        EXPECT_TRUE(journal.TryAgain());
        Check(editor, journal);
        editor.Close();
        return operations;
    }

    // Lets each operation fail in turn.
    void FailInTurn(Fault fault) {
        const std::size_t operations = Edit({});
        ASSERT_GT(operations, 20u);
        for (fault.first = 1; fault.first <= static_cast<int>(operations) && !HasFailure(); ++fault.first) {
            SCOPED_TRACE("operation " + std::to_string(fault.first));
            Edit(fault);
        }
    }

    std::string m_onDisk;
    bool m_wasStopped = false;
};

TEST_F(JournalFaultsTest, OneOperationFails) {
    FailInTurn({0, ErrorCode::DiskFull, false, false});
    FailInTurn({0, ErrorCode::AccessDenied, false, false});
    EXPECT_FALSE(m_wasStopped) << "the user's folder takes over";
}

TEST_F(JournalFaultsTest, AllOperationsFailFromOneOn) {
    FailInTurn({0, ErrorCode::DiskFull, true, false});
    EXPECT_TRUE(m_wasStopped);
}

TEST_F(JournalFaultsTest, AnOperationIsDoneButReportedAsFailed) {
    FailInTurn({0, ErrorCode::WriteFault, false, true});
    FailInTurn({0, ErrorCode::WriteFault, true, true});
}

TEST_F(JournalFaultsTest, WithoutAFolderOfTheUser) {
    m_options.folder = "";
    FailInTurn({0, ErrorCode::DiskFull, false, false});
    FailInTurn({0, ErrorCode::DiskFull, true, false});
    EXPECT_TRUE(m_wasStopped);
}

TEST_F(JournalFaultsTest, AFolderThatCannotBeWrittenLeadsToTheUsersFolder) {
    FaultyFiles files({}, m_files);
    MenuEditor editor;
    MenuJournal journal(editor, m_options, files);
    Open(editor);
    files.Restart({1, ErrorCode::AccessDenied});
    editor.SetCaption("R", "a");
    EXPECT_EQ(files.Failed(), std::vector<std::string>{"create"});
    EXPECT_EQ(Names(), "menu.cfg");
    EXPECT_TRUE(journal.Path().starts_with(m_options.folder)) << journal.Path();
    EXPECT_EQ(Restored(journal.Path()), TreeText(*editor.OpenMenu()));
    editor.Save(Path);
    EXPECT_EQ(FilesIn(m_options.folder), "");
}

TEST_F(JournalFaultsTest, AFailureIsToldOnceUntilItWorksAgain) {
    FaultyFiles files({1, ErrorCode::DiskFull, true}, m_files);
    m_options.folder = "";
    MenuEditor editor;
    MenuJournal journal(editor, m_options, files);
    std::vector<NeskError> errors;
    journal.onFailure = [&](const NeskError& error) { errors.push_back(error); };
    Open(editor);
    for (const char* caption : {"a", "b", "c"})
        editor.SetCaption("R", caption);
    ASSERT_EQ(errors.size(), 1u);
    EXPECT_EQ(errors.front().number, RuntimeError::DiskFull);
    EXPECT_FALSE(journal.TryAgain());
    EXPECT_EQ(errors.size(), 1u);
    files.Mend();
    EXPECT_TRUE(journal.TryAgain());
    EXPECT_EQ(Restored(Place), TreeText(*editor.OpenMenu()));
    files.Restart({1, ErrorCode::DiskFull, true});
    editor.SetCaption("R", "d");
    EXPECT_EQ(errors.size(), 2u);
}

TEST_F(JournalFaultsTest, WhatWasRecordedBeforeAFailureStaysOnDisk) {
    FaultyFiles files({}, m_files);
    m_options.folder = "";
    MenuEditor editor;
    MenuJournal journal(editor, m_options, files);
    Open(editor);
    editor.SetCaption("R", "a");
    const std::string tree = TreeText(*editor.OpenMenu());
    files.Restart({1, ErrorCode::DiskFull, true});
    editor.SetCaption("R", "b");
    EXPECT_EQ(Restored(Place), tree);
    files.Mend();
    editor.Save(Path);
    EXPECT_EQ(Names(), "menu.cfg menu.cfg.bak");
}

} // namespace
} // namespace nesk
