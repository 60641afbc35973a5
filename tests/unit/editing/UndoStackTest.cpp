#include "editing/UndoStack.h"

#include <gtest/gtest.h>

namespace nesk {
namespace {

// A change that does nothing and uses some memory.
class Idle final : public MenuChange {
public:
    explicit Idle(std::size_t bytes) : m_bytes(bytes) {}
    bool Apply(Menu&, const MenuEventHandler&) override { return true; }
    bool Revert(Menu&, const MenuEventHandler&) override { return true; }
    std::size_t EventCount() const override { return 1; }
    std::size_t Bytes() const override { return m_bytes; }

private:
    std::size_t m_bytes;
};

class UndoStackTest : public ::testing::Test {
protected:
    // Pushes a change that takes `bytes` with everything that the stack stores of it.
    void Push(int name, std::size_t bytes = 1000) {
        m_stack.Push(std::make_unique<Idle>(bytes - OwnBytes()), {name, {}});
    }

    // What the stack itself needs for a change.
    static std::size_t OwnBytes() {
        UndoStack stack;
        stack.Push(std::make_unique<Idle>(0), {1, {}});
        return stack.Bytes();
    }

    static std::string Numbers(const std::vector<ChangeName>& names) {
        std::string text;
        for (const ChangeName& name : names)
            text += (text.empty() ? "" : " ") + std::to_string(name.textId);
        return text;
    }
    std::string ToUndo() const { return Numbers(m_stack.UndoNames()); }
    std::string ToRedo() const { return Numbers(m_stack.RedoNames()); }

    UndoStack m_stack{10000};
};

TEST_F(UndoStackTest, IsEmptyAndSavedAtFirst) {
    EXPECT_EQ(m_stack.ToUndo(), nullptr);
    EXPECT_EQ(m_stack.ToRedo(), nullptr);
    EXPECT_TRUE(m_stack.IsAtSaved());
}

TEST_F(UndoStackTest, CountsTheStepsFromTheSavedState) {
    EXPECT_EQ(m_stack.StepsFromSaved(), 0u);
    Push(1);
    Push(2);
    EXPECT_EQ(m_stack.StepsFromSaved(), 2u);
    m_stack.MarkSaved();
    m_stack.Undone();
    EXPECT_EQ(m_stack.StepsFromSaved(), 1u) << "backwards";
    Push(3);
    EXPECT_EQ(m_stack.StepsFromSaved(), std::nullopt) << "the saved state cannot be reached";
}

TEST_F(UndoStackTest, NamesAreInTheOrderOfTheNextSteps) {
    Push(1);
    Push(2);
    Push(3);
    EXPECT_EQ(ToUndo(), "3 2 1");
    MenuChange* const last = m_stack.ToUndo();
    m_stack.Undone();
    m_stack.Undone();
    EXPECT_EQ(ToUndo(), "1");
    EXPECT_EQ(ToRedo(), "2 3");
    m_stack.Redone();
    EXPECT_EQ(m_stack.ToRedo(), last);
}

TEST_F(UndoStackTest, ANewChangeDropsWhatWasTakenBack) {
    Push(1);
    Push(2);
    m_stack.Undone();
    Push(3);
    EXPECT_EQ(ToUndo(), "3 1");
    EXPECT_EQ(ToRedo(), "");
    EXPECT_EQ(m_stack.Bytes(), 2000U);
}

TEST_F(UndoStackTest, KnowsTheSavedState) {
    Push(1);
    EXPECT_FALSE(m_stack.IsAtSaved());
    m_stack.MarkSaved();
    Push(2);
    EXPECT_FALSE(m_stack.IsAtSaved());
    m_stack.Undone();
    EXPECT_TRUE(m_stack.IsAtSaved());
    m_stack.Undone();
    EXPECT_FALSE(m_stack.IsAtSaved());
    m_stack.Redone();
    EXPECT_TRUE(m_stack.IsAtSaved());
}

TEST_F(UndoStackTest, ASavedStateThatWasDroppedIsNeverReached) {
    Push(1);
    Push(2);
    m_stack.MarkSaved();
    m_stack.Undone();
    Push(3);
    EXPECT_FALSE(m_stack.IsAtSaved()) << "as many changes, but not the same";
    m_stack.Undone();
    EXPECT_FALSE(m_stack.IsAtSaved());
    m_stack.MarkSaved();
    EXPECT_TRUE(m_stack.IsAtSaved());
}

TEST_F(UndoStackTest, TheOldestAreDroppedWhereTheyTakeTooMuch) {
    Push(1, 4000);
    m_stack.MarkSaved();
    Push(2, 4000);
    Push(3, 2000);
    EXPECT_EQ(ToUndo(), "3 2 1") << "exactly the limit";
    Push(4, 4100);
    EXPECT_EQ(ToUndo(), "4 3");
    EXPECT_EQ(m_stack.Bytes(), 6100U);
    m_stack.Undone();
    m_stack.Undone();
    EXPECT_EQ(m_stack.ToUndo(), nullptr);
    EXPECT_FALSE(m_stack.IsAtSaved()) << "the state on disk came before what was dropped";
    m_stack.MarkSaved();
    Push(5, 100000);
    EXPECT_EQ(ToUndo(), "5") << "the newest stays, whatever it takes";
}

TEST_F(UndoStackTest, TheSavedStateMovesWithWhatIsLeft) {
    Push(1, 6000);
    Push(2, 1000);
    m_stack.MarkSaved();
    Push(3, 4000);
    EXPECT_EQ(ToUndo(), "3 2");
    m_stack.Undone();
    EXPECT_TRUE(m_stack.IsAtSaved());
    Push(4, 9000);
    EXPECT_EQ(ToUndo(), "4 2");
    m_stack.Undone();
    EXPECT_TRUE(m_stack.IsAtSaved());
}

TEST_F(UndoStackTest, CountsTheNames) {
    m_stack.Push(std::make_unique<Idle>(0), {1, {std::string(7000, 'x')}});
    m_stack.Push(std::make_unique<Idle>(0), {2, {std::string(7000, 'x')}});
    EXPECT_EQ(ToUndo(), "2");
    EXPECT_GT(m_stack.Bytes(), 7000 + OwnBytes());
}

TEST_F(UndoStackTest, TheLastTwoBecomeOne) {
    Push(1);
    m_stack.MergeLastTwo({9, {}});
    EXPECT_EQ(ToUndo(), "1") << "there is only one";
    m_stack.MarkSaved();
    Push(2);
    m_stack.MergeLastTwo({9, {}});
    EXPECT_EQ(ToUndo(), "2 1") << "the state between them is on disk";
    Push(3);
    m_stack.MarkSaved();
    const std::size_t bytes = m_stack.Bytes();
    m_stack.MergeLastTwo({9, {}});
    EXPECT_EQ(ToUndo(), "9 1");
    EXPECT_TRUE(m_stack.IsAtSaved());
    EXPECT_GT(m_stack.Bytes(), 1000U);
    EXPECT_LE(m_stack.Bytes(), bytes + 1000U);
    m_stack.Undone();
    EXPECT_FALSE(m_stack.IsAtSaved());
    m_stack.Redone();
    EXPECT_TRUE(m_stack.IsAtSaved());
    EXPECT_EQ(ToRedo(), "");
}

TEST_F(UndoStackTest, TheSavedStateCanBeForgotten) {
    Push(1);
    m_stack.MarkSaved();
    m_stack.ForgetSaved();
    EXPECT_FALSE(m_stack.IsAtSaved());
    m_stack.Undone();
    EXPECT_FALSE(m_stack.IsAtSaved());
    EXPECT_EQ(ToRedo(), "1");
}

TEST_F(UndoStackTest, ClearingForgetsEverything) {
    Push(1);
    Push(2);
    m_stack.Undone();
    m_stack.Clear();
    EXPECT_EQ(ToUndo() + ToRedo(), "");
    EXPECT_EQ(m_stack.Bytes(), 0U);
    EXPECT_TRUE(m_stack.IsAtSaved());
}

} // namespace
} // namespace nesk
