#include "checking/EntryPlace.h"

#include "unit/checking/CheckingFixture.h"

namespace nesk::testing {
namespace {

class EntryPlaceTest : public CheckingTest {};

TEST_F(EntryPlaceTest, NamesTheSubmenusAboveFromTheTop) {
    const std::string housing = editor.AddSubmenu("R", "Housing");
    const std::string brackets = editor.AddSubmenu(housing, "Brackets");
    const std::string part = Part(brackets, "Angle");
    EXPECT_EQ(EntryPlace(*editor.Find(part)), "Housing > Brackets");
    EXPECT_EQ(EntryPlace(*editor.Find(brackets)), "Housing");
    EXPECT_EQ(EntryPlace(*editor.Find(housing)), "Main Menu");
    EXPECT_EQ(EntryPlace(*editor.OpenMenu()), "");
}

TEST_F(EntryPlaceTest, OfManySubmenusTheNearestAreNamed) {
    std::string id = "R";
    for (int level = 1; level <= 9; ++level)
        id = editor.AddSubmenu(id, std::to_string(level));
    EXPECT_EQ(EntryPlace(*editor.Find(id)), "1 > 2 > 3 > 4 > 5 > 6 > 7 > 8");
    EXPECT_EQ(EntryPlace(*editor.Find(Part(id, "x"))), "... > 2 > 3 > 4 > 5 > 6 > 7 > 8 > 9");
}

} // namespace
} // namespace nesk::testing
