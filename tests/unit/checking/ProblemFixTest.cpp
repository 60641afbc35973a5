#include "checking/ProblemFix.h"

#include "checking/MenuCheck.h"
#include "shell/modUtilities.h"
#include "unit/checking/CheckingFixture.h"

#include <chrono>
#include <thread>

namespace nesk {
namespace {

using namespace std::chrono_literals;

class ProblemFixTest : public testing::CheckingTest {
protected:
    ProblemFixTest() {
        PartFields fields;
        fields.programId = "@C:\\Parts\\A\\partinfo.ini@";
        fields.graphic = "C:\\Pictures\\gone.bmp";
        fields.helpTopic = 3;
        fields.historyDir = "C:\\History\\A\\";
        fields.historyTitle = "A";
        a = Part("R", "A", fields);
        fields.historyTitle = "";
        fields.historyDir = "C:\\History\\B";
        b = Part("R", "B", fields);
    }

    // All problems of a kind.
    std::vector<Finding> Found(FindingKind kind) {
        const auto end = std::chrono::steady_clock::now() + 10s;
        check.RefreshFiles();
        while (!check.IsDone() && std::chrono::steady_clock::now() < end)
            if (!check.Step(5ms)) std::this_thread::sleep_for(1ms);
        EXPECT_TRUE(check.IsDone());
        std::vector<Finding> findings;
        for (std::size_t i = 0; i < check.Count(); ++i)
            if (Finding finding = check.At(i); finding.kind == kind) findings.push_back(std::move(finding));
        return findings;
    }

    std::vector<Finding> FoundIn(FindingKind kind, TextField field) {
        std::vector<Finding> findings = Found(kind);
        std::erase_if(findings, [&](const Finding& finding) { return finding.field != field; });
        return findings;
    }

    std::size_t Steps() const { return editor.History().UndoNames().size(); }

    static FixSet Fixes(std::initializer_list<Fix> fixes) {
        FixSet set;
        for (const Fix fix : fixes)
            set.set(static_cast<std::size_t>(fix));
        return set;
    }

    std::string a;
    std::string b;
    MenuCheck check{editor};
};

TEST_F(ProblemFixTest, WhichFixesArePossible) {
    const std::vector<Finding> pictures = FoundIn(FindingKind::FileMissing, TextField::Picture);
    const std::vector<Finding> programs = FoundIn(FindingKind::FileMissing, TextField::Program);
    const std::vector<Finding> folders = Found(FindingKind::FolderMissing);
    ASSERT_EQ(pictures.size(), 2u);
    ASSERT_EQ(programs.size(), 2u);
    ASSERT_EQ(folders.size(), 2u);
    EXPECT_EQ(ProblemFix::FixesFor({}), FixSet());
    EXPECT_EQ(ProblemFix::FixesFor({pictures[0]}),
              Fixes({Fix::ChooseFile, Fix::ChangeFolder, Fix::Clear, Fix::Edit}));
    EXPECT_EQ(ProblemFix::FixesFor(pictures), Fixes({Fix::ChooseFile, Fix::Clear}));
    EXPECT_EQ(ProblemFix::FixesFor({programs[0]}), Fixes({Fix::ChooseFile, Fix::ChangeFolder, Fix::Edit}));
    EXPECT_EQ(ProblemFix::FixesFor({pictures[0], folders[0]}), Fixes({Fix::Clear, Fix::MakeFolder}));
    EXPECT_EQ(ProblemFix::FixesFor(folders), Fixes({Fix::ChooseFile, Fix::Clear, Fix::MakeFolder}));
    editor.SetCaption(b, "");
    EXPECT_EQ(ProblemFix::FixesFor(Found(FindingKind::NoCaption)), Fixes({Fix::Rename}));
}

TEST_F(ProblemFixTest, AFixIsForTheProblemsThatItFits) {
    const std::vector<Finding> pictures = FoundIn(FindingKind::FileMissing, TextField::Picture);
    const std::vector<Finding> folders = Found(FindingKind::FolderMissing);
    editor.AddSubmenu("R", "Empty");
    const std::vector<Finding> empty = Found(FindingKind::EmptySubmenu);
    ASSERT_FALSE(empty.empty());
    const std::vector<Finding> mixed{empty[0], folders[0], pictures[0]};
    const auto fitting = [&](Fix fix) {
        std::vector<FindingKind> kinds;
        for (const Finding& finding : ProblemFix::Fitting(mixed, fix))
            kinds.push_back(finding.kind);
        return kinds;
    };
    EXPECT_EQ(fitting(Fix::Clear), (std::vector{FindingKind::FolderMissing, FindingKind::FileMissing}));
    EXPECT_EQ(fitting(Fix::MakeFolder), std::vector{FindingKind::FolderMissing});
    EXPECT_EQ(ProblemFix::FixesFor({empty[0], pictures[0]}), Fixes({Fix::ChooseFile, Fix::Clear}));
}

TEST_F(ProblemFixTest, ClearingIsOneStep) {
    const std::size_t before = Steps();
    std::vector<Finding> findings = FoundIn(FindingKind::FileMissing, TextField::Picture);
    const std::vector<Finding> topics = Found(FindingKind::TopicWithoutFile);
    findings.insert(findings.end(), topics.begin(), topics.end());
    ASSERT_EQ(findings.size(), 4u);
    EXPECT_TRUE(ProblemFix::Clear(editor, findings));
    EXPECT_EQ(Steps(), before + 1);
    EXPECT_EQ(Item(a).Graphic(), "");
    EXPECT_EQ(Item(b).HelpTopic(), 0);
    EXPECT_EQ(FoundIn(FindingKind::FileMissing, TextField::Picture).size(), 0u);
    EXPECT_EQ(Found(FindingKind::TopicWithoutFile).size(), 0u);
    editor.Undo();
    EXPECT_EQ(Item(a).Graphic(), "C:\\Pictures\\gone.bmp");
    EXPECT_EQ(Item(b).HelpTopic(), 3);
}

TEST_F(ProblemFixTest, AnotherPath) {
    station.Write("C:\\Parts\\New\\partinfo.ini", "[Part]\r\nName=New\r\n");
    const std::size_t before = Steps();
    EXPECT_TRUE(ProblemFix::SetPath(editor, FoundIn(FindingKind::FileMissing, TextField::Program),
                                    "C:\\Parts\\New\\partinfo.ini"));
    EXPECT_EQ(Steps(), before + 1);
    EXPECT_EQ(Item(a).ProgramID(), "@C:\\Parts\\New\\partinfo.ini@");
    EXPECT_EQ(Item(b).ProgramID(), "@C:\\Parts\\New\\partinfo.ini@");
    EXPECT_EQ(FoundIn(FindingKind::FileMissing, TextField::Program).size(), 0u);
    EXPECT_TRUE(ProblemFix::SetPath(editor, {Found(FindingKind::FolderMissing)[1]}, "C:\\Parts\\"));
    EXPECT_EQ(Item(a).HistoryDir(), "C:\\History\\A\\");
    EXPECT_EQ(Item(b).HistoryDir(), "C:\\Parts\\");
}

TEST_F(ProblemFixTest, TheFolderOfAProblem) {
    EXPECT_EQ(ProblemFix::FolderOf(FoundIn(FindingKind::FileMissing, TextField::Picture)[0]), "C:\\Pictures");
    EXPECT_EQ(ProblemFix::FolderOf(FoundIn(FindingKind::FileMissing, TextField::Program)[0]), "C:\\Parts\\A");
    EXPECT_EQ(ProblemFix::FolderOf(Found(FindingKind::FolderMissing)[0]), "C:\\History\\A");
}

TEST_F(ProblemFixTest, MakingTheHistoryDirectories) {
    const std::size_t before = Steps();
    ProblemFix::MakeFolders(Found(FindingKind::FolderMissing));
    EXPECT_TRUE(modUtilities::DirectoryExists("C:\\History\\A"));
    EXPECT_TRUE(modUtilities::DirectoryExists("C:\\History\\B"));
    EXPECT_EQ(Found(FindingKind::FolderMissing).size(), 0u);
    EXPECT_EQ(Steps(), before) << "the menu is not changed";
}

TEST_F(ProblemFixTest, AFolderThatCannotBeMade) {
    station.Write("C:\\History", "a file where a folder should be");
    EXPECT_THROW(ProblemFix::MakeFolders(Found(FindingKind::FolderMissing)), NeskError);
}

} // namespace
} // namespace nesk
