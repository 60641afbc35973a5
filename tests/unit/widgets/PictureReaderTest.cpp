#include "widgets/PictureReader.h"

#include "unit/CoreFixture.h"
#include "unit/widgets/FakePictureFiles.h"
#include "widgets/PictureFile.h"
#include "widgets/PictureLimits.h"

#include <chrono>
#include <map>
#include <thread>

namespace nesk {
namespace {

using platform::ErrorCode;
using testing::FakePictureFiles;
using Answer = PictureReader::Answer;

class PictureReaderTest : public ::testing::Test {
protected:
    PictureReaderTest() {
        files->Write("C:\\a.png", "a");
        files->Write("C:\\b.png", "bb");
        files->Write("\\\\server\\share\\c.png", "ccc");
    }

    // The next answer. Fails when none comes in ten seconds.
    static Answer Next(PictureReader& from) {
        for (int i = 0; i < 10000; ++i) {
            if (auto answer = from.Take()) return *answer;
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
        ADD_FAILURE() << "no answer";
        return {};
    }

    std::shared_ptr<FakePictureFiles> files = std::make_shared<FakePictureFiles>();
    PictureReader reader{files};
};

TEST_F(PictureReaderTest, BytesComeInTheirOrder) {
    EXPECT_FALSE(reader.IsBusy());
    EXPECT_FALSE(reader.Take());
    reader.Want({{"C:\\b.png"}, {"C:\\a.png"}});
    EXPECT_TRUE(reader.IsBusy());
    const Answer first = Next(reader);
    EXPECT_EQ(first.path, "C:\\b.png");
    EXPECT_EQ(first.result, ErrorCode::Success);
    EXPECT_EQ(first.bytes, "bb");
    EXPECT_EQ(first.stamp.size, 2u);
    EXPECT_FALSE(first.isSame);
    EXPECT_EQ(Next(reader).path, "C:\\a.png");
    EXPECT_FALSE(reader.IsBusy());
}

TEST_F(PictureReaderTest, AMissingFileIsAnAnswer) {
    reader.Want({{"C:\\missing.png"}});
    const Answer answer = Next(reader);
    EXPECT_EQ(answer.result, ErrorCode::FileNotFound);
    EXPECT_EQ(answer.bytes, "");
    EXPECT_FALSE(answer.isSame);
}

TEST_F(PictureReaderTest, AKnownFileIsNotReadAgain) {
    reader.Want({{"C:\\a.png"}});
    const Answer before = Next(reader);
    reader.Want({{"C:\\a.png", before.stamp}});
    const Answer same = Next(reader);
    EXPECT_TRUE(same.isSame);
    EXPECT_EQ(same.bytes, "");
    EXPECT_EQ(files->PathsRead().size(), 1u);
    files->Write("C:\\a.png", "z");
    reader.Want({{"C:\\a.png", before.stamp}});
    const Answer changed = Next(reader);
    EXPECT_FALSE(changed.isSame);
    EXPECT_EQ(changed.bytes, "z");
    EXPECT_NE(changed.stamp, before.stamp);
    files->Remove("C:\\a.png");
    reader.Want({{"C:\\a.png", changed.stamp}});
    EXPECT_EQ(Next(reader).result, ErrorCode::FileNotFound);
}

TEST_F(PictureReaderTest, AServerThatDoesNotAnswerHoldsUpNothing) {
    files->Block("\\\\server");
    reader.Want({{"\\\\server\\share\\c.png"}, {"C:\\a.png"}, {"C:\\b.png"}});
    EXPECT_EQ(Next(reader).path, "C:\\a.png");
    EXPECT_EQ(Next(reader).path, "C:\\b.png");
    EXPECT_FALSE(reader.Take());
    EXPECT_TRUE(reader.IsBusy()) << "the server still has to answer";
    files->ComeBack();
    EXPECT_EQ(Next(reader).bytes, "ccc");
}

TEST_F(PictureReaderTest, OneWorkerWaitsForAServer) {
    files->Block("\\\\server");
    reader.Want({{"\\\\server\\share\\1.png"}});
    ASSERT_TRUE(files->WaitUntilBlocked());
    for (int i = 0; i < 20; ++i)
        reader.Want({{"\\\\SERVER\\Share\\" + std::to_string(i) + ".png"}});
    reader.Want({{"C:\\a.png"}});
    EXPECT_EQ(Next(reader).path, "C:\\a.png");
    EXPECT_EQ(files->Blocked(), 1);
    files->ComeBack();
    EXPECT_EQ(Next(reader).path, "\\\\server\\share\\1.png");
    EXPECT_FALSE(reader.IsBusy()) << "what is no longer wanted is not read";
}

TEST_F(PictureReaderTest, OnlyAFewWorkersWait) {
    files->Block("\\\\");
    std::vector<PictureReader::Request> requests;
    for (int i = 0; i < 30; ++i)
        requests.push_back({"\\\\server" + std::to_string(i) + "\\share\\a.png"});
    reader.Want(requests);
    ASSERT_TRUE(files->WaitUntilBlocked(8));
    reader.Want(requests);
    EXPECT_EQ(files->Blocked(), 8);
    files->ComeBack();
    std::map<std::string, int> answers;
    for (int i = 0; i < 30; ++i)
        ++answers[Next(reader).path];
    EXPECT_EQ(answers.size(), 30u) << "each path is answered once";
    EXPECT_FALSE(reader.Take());
}

TEST_F(PictureReaderTest, APathInWorkIsNotAskedForAgain) {
    files->Block("C:");
    reader.Want({{"C:\\a.png"}});
    ASSERT_TRUE(files->WaitUntilBlocked());
    reader.Want({{"C:\\a.png"}, {"C:\\b.png"}, {"C:\\b.png"}});
    files->ComeBack();
    EXPECT_EQ(Next(reader).path, "C:\\a.png");
    EXPECT_EQ(Next(reader).path, "C:\\b.png");
    EXPECT_FALSE(reader.IsBusy());
    EXPECT_EQ(files->PathsRead(), (std::vector<std::string>{"C:\\a.png", "C:\\b.png"}));
}

TEST_F(PictureReaderTest, WhatIsNoLongerWantedIsNotRead) {
    files->Block("C:");
    reader.Want({{"C:\\a.png"}, {"C:\\b.png"}});
    ASSERT_TRUE(files->WaitUntilBlocked());
    reader.Want({});
    files->ComeBack();
    EXPECT_EQ(Next(reader).path, "C:\\a.png") << "it was begun";
    EXPECT_FALSE(reader.IsBusy());
    EXPECT_EQ(files->PathsRead().size(), 1u);
}

TEST_F(PictureReaderTest, TheEndDoesNotWait) {
    files->Block("\\\\server");
    {
        PictureReader other(files);
        other.Want({{"\\\\server\\share\\c.png"}, {"\\\\server\\share\\d.png"}});
        ASSERT_TRUE(files->WaitUntilBlocked());
    }
    EXPECT_EQ(files->Blocked(), 1) << "the server has still not answered";
    files->ComeBack();
    EXPECT_TRUE(files->WaitUntilNoneIsBlocked());
}

TEST_F(PictureReaderTest, AFileThatDoesNotFitIntoMemoryIsAnError) {
    files->Throw(true);
    reader.Want({{"C:\\a.png"}});
    EXPECT_EQ(Next(reader).result, ErrorCode::OutOfMemory);
    files->Throw(false);
    reader.Want({{"C:\\a.png"}});
    EXPECT_EQ(Next(reader).bytes, "a") << "the worker goes on";
}

TEST_F(PictureReaderTest, WorkersPauseWhileNobodyTakesTheirAnswers) {
    const std::string large(std::size_t{40} << 20, 'x');
    std::vector<PictureReader::Request> requests;
    for (int i = 0; i < 6; ++i) {
        files->Write("C:\\" + std::to_string(i), large);
        requests.push_back({"C:\\" + std::to_string(i)});
    }
    reader.Want(requests);
    std::this_thread::sleep_for(std::chrono::milliseconds(300));
    EXPECT_LE(files->PathsRead().size(), 2u);
    for (int i = 0; i < 6; ++i)
        EXPECT_EQ(Next(reader).bytes.size(), large.size());
}

class PictureFileTest : public testing::CoreTest {};

TEST_F(PictureFileTest, StationPicturesAreFiles) {
    station.Write("C:\\a.png", "abc");
    const auto files = StationPictureFiles();
    std::string bytes = "before";
    EXPECT_EQ(files->Read("C:\\a.png", bytes), ErrorCode::Success);
    EXPECT_EQ(bytes, "abc");
    platform::FileStamp stamp;
    EXPECT_EQ(files->Stamp("C:\\a.png", stamp), ErrorCode::Success);
    EXPECT_EQ(stamp.size, 3u);
    EXPECT_NE(files->Read("C:\\missing.png", bytes), ErrorCode::Success);
    EXPECT_EQ(bytes, "");
}

TEST_F(PictureFileTest, AFileOfAnySizeIsReadOnlyUpToTheLimit) {
    station.Write("C:\\large.png", std::string(PictureLimits::LargestFile + 1, 'x'));
    std::string bytes;
    EXPECT_EQ(ReadPictureFile("C:\\large.png", bytes), ErrorCode::MoreData);
    EXPECT_EQ(bytes, "");
}

} // namespace
} // namespace nesk
