#include "checking/FileLookup.h"

#include "unit/checking/FakeInspector.h"

#include <atomic>
#include <chrono>
#include <functional>
#include <gtest/gtest.h>
#include <thread>

namespace nesk {
namespace {

using State = FileFacts::State;

class FileLookupTest : public ::testing::Test {
protected:
    // Takes answers until a condition is true; false when it is not within ten seconds. `news` is
    // what all of these answers told.
    bool TakeUntil(FileLookup& lookup, const std::function<bool()>& condition) {
        news = {};
        lookup.Begin();
        const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(10);
        while (!condition()) {
            if (std::chrono::steady_clock::now() > end) return false;
            const FileLookup::News part = lookup.TakeAnswers();
            news.isFirst = part.isFirst || news.isFirst;
            news.isChanged = part.isChanged || news.isChanged;
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
        return true;
    }
    bool TakeAll(FileLookup& lookup) {
        return TakeUntil(lookup, [&] { return lookup.Waiting() == 0; });
    }

    std::shared_ptr<testing::FakeInspector> files = std::make_shared<testing::FakeInspector>();
    FileLookup::News news;
};

TEST_F(FileLookupTest, EachPathIsLookedUpOnce) {
    FileLookup lookup(files);
    files->Set("C:\\b", {State::Missing, ""});
    const auto a = lookup.IndexOf("C:\\a", FileUse::File);
    const auto b = lookup.IndexOf("C:\\b", FileUse::File);
    EXPECT_EQ(lookup.IndexOf("C:\\a", FileUse::File), a);
    EXPECT_NE(lookup.IndexOf("C:\\a", FileUse::Folder), a);
    EXPECT_EQ(lookup.PathOf(b), "C:\\b");
    EXPECT_EQ(lookup.Facts(a), nullptr);
    ASSERT_TRUE(TakeAll(lookup));
    EXPECT_EQ(lookup.Facts(a)->state, State::Good);
    EXPECT_EQ(lookup.Facts(b)->state, State::Missing);
    EXPECT_EQ(files->Looks(), 3);
}

TEST_F(FileLookupTest, ADriveThatDoesNotAnswerHoldsUpNoOther) {
    FileLookup lookup(files);
    files->Block("D:");
    const auto slow = lookup.IndexOf("D:\\slow", FileUse::File);
    const auto slowToo = lookup.IndexOf("d:\\too", FileUse::File);
    const auto quick = lookup.IndexOf("C:\\quick", FileUse::File);
    ASSERT_TRUE(TakeUntil(lookup, [&] { return lookup.Facts(quick) != nullptr; }));
    EXPECT_EQ(lookup.Waiting(), 2u);
    EXPECT_EQ(lookup.Facts(slow), nullptr);
    files->ComeBack("D:");
    ASSERT_TRUE(TakeAll(lookup));
    EXPECT_EQ(lookup.Facts(slow)->state, State::Good);
    EXPECT_EQ(lookup.Facts(slowToo)->state, State::Good);
}

TEST_F(FileLookupTest, TheEndDoesNotWaitForADriveThatDoesNotAnswer) {
    files->Block("D:");
    const auto begin = std::chrono::steady_clock::now();
    {
        FileLookup lookup(files);
        lookup.IndexOf("D:\\slow", FileUse::File);
        lookup.Begin();
        ASSERT_TRUE(files->WaitUntilBlocked());
    }
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(8));
    files->ComeBack("D:"); // the worker ends without touching the lookup
}

TEST_F(FileLookupTest, RefreshTellsWhatHasChanged) {
    FileLookup lookup(files);
    const auto a = lookup.IndexOf("C:\\a", FileUse::File);
    ASSERT_TRUE(TakeAll(lookup));
    EXPECT_TRUE(news.isFirst);
    lookup.Refresh();
    ASSERT_TRUE(TakeAll(lookup));
    EXPECT_FALSE(news.isFirst || news.isChanged);

    files->Set("C:\\a", {State::Missing, ""});
    lookup.Refresh();
    EXPECT_EQ(lookup.Facts(a)->state, State::Good) << "what is known stays until the answer comes";
    ASSERT_TRUE(TakeAll(lookup));
    EXPECT_TRUE(news.isChanged);
    EXPECT_EQ(lookup.Facts(a)->state, State::Missing);
}

TEST_F(FileLookupTest, AnswersFromBeforeClearAreNotTaken) {
    FileLookup lookup(files);
    files->Block("C:");
    files->Set("C:\\old", {State::Missing, ""});
    lookup.IndexOf("C:\\old", FileUse::File);
    lookup.Begin();
    ASSERT_TRUE(files->WaitUntilBlocked());
    lookup.Clear();
    EXPECT_EQ(lookup.Waiting(), 0u);
    const auto fresh = lookup.IndexOf("C:\\new", FileUse::File);
    files->ComeBack("C:");
    ASSERT_TRUE(TakeAll(lookup));
    EXPECT_EQ(lookup.PathOf(fresh), "C:\\new");
    EXPECT_EQ(lookup.Facts(fresh)->state, State::Good);
}

TEST_F(FileLookupTest, AWorkerWakesTheOwner) {
    std::atomic<int> wakes = 0;
    FileLookup lookup(files, [&] { ++wakes; });
    lookup.IndexOf("C:\\a", FileUse::File);
    ASSERT_TRUE(TakeAll(lookup));
    EXPECT_EQ(wakes, 1);
}

// An inspector that fails like a program without memory.
class FailingInspector final : public FileInspector {
public:
    FileFacts Look(const std::string& /*path*/, FileUse /*use*/) override { throw std::bad_alloc(); }
};

TEST_F(FileLookupTest, AnErrorOfTheServiceIsAnUnreadableFile) {
    FileLookup lookup(std::make_shared<FailingInspector>());
    const auto a = lookup.IndexOf("C:\\a", FileUse::File);
    ASSERT_TRUE(TakeAll(lookup));
    EXPECT_EQ(lookup.Facts(a)->state, State::Unreadable);
}

TEST_F(FileLookupTest, ManyDrivesAndShares) {
    FileLookup lookup(files);
    for (int i = 0; i < 40; ++i)
        lookup.IndexOf("\\\\server" + std::to_string(i) + "\\share\\file", FileUse::File);
    ASSERT_TRUE(TakeAll(lookup));
    EXPECT_EQ(files->Looks(), 40);
}

} // namespace
} // namespace nesk
