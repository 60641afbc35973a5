#include "platform/TypeAhead.h"

#include "platform/TreeNode.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace nesk::platform {
namespace {

using namespace std::chrono_literals;

class TypeAheadTest : public ::testing::Test {
protected:
    TypeAheadTest() { root.SetExpanded(true); }

    TreeNode& Add(const std::string& text) {
        return root.Insert(root.ChildCount(), std::make_unique<TreeNode>(text, 0, ""));
    }

    // Types characters one by one, each starting at the row that the previous one selected. Returns the text
    // of the last row.
    std::string Type(const std::vector<std::string>& characters, std::chrono::milliseconds between = 100ms) {
        for (const std::string& character : characters) {
            now += between;
            if (TreeNode* found = search.Type(character, root, at, now)) at = found;
        }
        return at != nullptr ? at->Text() : "";
    }

    std::string TypeText(const std::string& text) {
        std::vector<std::string> characters;
        for (const char c : text)
            characters.emplace_back(1, c);
        return Type(characters);
    }

    TreeNode root{"Main Menu", 0, "R"};
    TreeNode* at = &root;
    TypeAhead search;
    TypeAhead::Clock::time_point now{1h};
};

TEST_F(TypeAheadTest, SpacesBelongToTheSearch) {
    Add("Daily report");
    Add("Dailycheck");
    Add("Daily check of the machine");
    EXPECT_EQ(TypeText("daily check"), "Daily check of the machine");
    EXPECT_EQ(search.Typed(), "daily check");
}

TEST_F(TypeAheadTest, ASpaceBeginsNoSearch) {
    Add(" with a space in front");
    EXPECT_EQ(Type({" "}), "Main Menu");
    EXPECT_FALSE(search.IsTyping(now));
}

TEST_F(TypeAheadTest, TheFirstCharacterGoesOnFromTheCurrentRowAndRound) {
    Add("Shaft");
    Add("Bracket");
    Add("Screw");
    EXPECT_EQ(Type({"s"}), "Shaft");
    now += 2s;
    EXPECT_EQ(Type({"s"}), "Screw");
    now += 2s;
    EXPECT_EQ(Type({"s"}), "Shaft") << "round at the end";
}

TEST_F(TypeAheadTest, FurtherCharactersStayWhereTheyFit) {
    Add("Shaft 1");
    Add("Shaft 2");
    EXPECT_EQ(TypeText("shaft"), "Shaft 1");
    EXPECT_EQ(TypeText(" 2"), "Shaft 2");
}

TEST_F(TypeAheadTest, TheSameCharacterAgainGoesOn) {
    Add("Bracket");
    Add("Beam");
    Add("Bolt");
    EXPECT_EQ(TypeText("bbb"), "Bolt");
    now += 2s;
    Add("BBC");
    EXPECT_EQ(TypeText("bb"), "BBC") << "unless there is one that begins with both";
}

TEST_F(TypeAheadTest, APauseBeginsAnew) {
    Add("Angle");
    Add("Bolt");
    EXPECT_EQ(Type({"a", "b"}, TypeAhead::Pause + 1ms), "Bolt");
    EXPECT_EQ(search.Typed(), "b");
}

TEST_F(TypeAheadTest, WhatFitsNothingStaysWhereItIs) {
    Add("Angle");
    EXPECT_EQ(TypeText("an"), "Angle");
    EXPECT_FALSE(search.HasMissed());
    EXPECT_EQ(TypeText("x"), "Angle");
    EXPECT_EQ(search.Typed(), "anx");
    EXPECT_TRUE(search.HasMissed());
    search.Reset();
    EXPECT_FALSE(search.HasMissed());
}

TEST_F(TypeAheadTest, CaseCountsNeitherInLettersOutsideAscii) {
    Add("PRÜFKÖRPER");
    Add("Ärmel");
    EXPECT_EQ(Type({"p", "r", "ü", "f", "k", "ö"}), "PRÜFKÖRPER");
    now += 2s;
    EXPECT_EQ(Type({"ä"}), "Ärmel");
}

TEST_F(TypeAheadTest, OnlyRowsAreSearched) {
    TreeNode& closed = Add("Closed");
    closed.Insert(0, std::make_unique<TreeNode>("Inner", 0, ""));
    EXPECT_EQ(Type({"i"}), "Main Menu");
    closed.SetExpanded(true);
    now += 2s;
    EXPECT_EQ(Type({"i"}), "Inner");
}

TEST_F(TypeAheadTest, TheSearchBeginsAtTheFirstRowWithoutACurrentOne) {
    Add("Menu");
    at = nullptr;
    EXPECT_EQ(Type({"m"}), "Main Menu");
}

} // namespace
} // namespace nesk::platform
