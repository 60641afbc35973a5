#include "shell/PreviewPlace.h"

#include "unit/CoreFixture.h"

namespace nesk {
namespace {

// R: part R.1, submenu R.2 (part R.2.1, submenu R.2.2), submenu R.3
class PreviewPlaceTest : public testing::CoreTest, private MenuEditorListener {
protected:
    PreviewPlaceTest() {
        editor.AddListener(*this);
        editor.Open("C:\\Neskroot", "C:\\Neskroot\\menu.cfg");
        editor.AddPart("R", "Part");
        editor.AddSubmenu("R", "Submenu");
        editor.AddPart("R.2", "Inner part");
        editor.AddSubmenu("R.2", "Inner submenu");
        editor.AddSubmenu("R", "Other");
    }
    ~PreviewPlaceTest() override { editor.RemoveListener(*this); }

    void OnMenuReplaced() override { place.OnMenuReplaced(); }
    void OnMenuEvent(const MenuEvent& event) override { place.OnMenuEvent(event); }
    void OnStateChanged() override {}

    MenuEditor editor;
    PreviewPlace place{editor};
};

TEST_F(PreviewPlaceTest, AnOpenMenuBeginsWithItsMainMenu) {
    EXPECT_EQ(place.Id(), "R");
    EXPECT_EQ(place.Entry(), editor.OpenMenu());
    editor.Close();
    EXPECT_EQ(place.Id(), "");
    EXPECT_EQ(place.Entry(), nullptr);
}

TEST_F(PreviewPlaceTest, TheSelectedSubmenuOrThatOfTheSelectedPart) {
    EXPECT_TRUE(place.Follow("R.2", false));
    EXPECT_EQ(place.Id(), "R.2");
    EXPECT_TRUE(place.Follow("R.1", false));
    EXPECT_EQ(place.Id(), "R");
    EXPECT_TRUE(place.Follow("R.2.1", false));
    EXPECT_EQ(place.Id(), "R.2");
    EXPECT_TRUE(place.Follow("R", false));
    EXPECT_EQ(place.Id(), "R");
    EXPECT_FALSE(place.Follow("R.1", false)) << "it is in the same submenu";
    EXPECT_FALSE(place.Follow("", false)) << "nothing is selected";
    EXPECT_FALSE(place.Follow("R.77", false));
    EXPECT_EQ(place.Id(), "R");
}

TEST_F(PreviewPlaceTest, WorkInThePreviewDoesNotGoIntoASubmenu) {
    EXPECT_FALSE(place.Follow("R.2", true));
    EXPECT_EQ(place.Id(), "R");
    EXPECT_FALSE(place.Follow("R.2", false)) << "the same is still selected";
    EXPECT_TRUE(place.Follow("R.2.2", true)) << "something else than what is shown here";
    EXPECT_EQ(place.Id(), "R.2.2");
}

TEST_F(PreviewPlaceTest, WhatThePreviewSelectedItselfIsNotFollowed) {
    place.Note("R.2");
    EXPECT_FALSE(place.Follow("R.2", false));
    EXPECT_EQ(place.Id(), "R");
    EXPECT_TRUE(place.Follow("R.3", false));
}

TEST_F(PreviewPlaceTest, APinnedPreviewFollowsNothing) {
    EXPECT_FALSE(place.SetPinned(true));
    EXPECT_TRUE(place.IsPinned());
    EXPECT_FALSE(place.Follow("R.2", false));
    EXPECT_EQ(place.Id(), "R");
    EXPECT_FALSE(place.Follow("R.2.1", false));
    EXPECT_TRUE(place.SetPinned(false)) << "it follows again";
    EXPECT_EQ(place.Id(), "R.2");
    EXPECT_TRUE(place.Follow("R.3", false));
}

TEST_F(PreviewPlaceTest, UnpinningStaysWhereTheSelectedEntryIs) {
    place.SetPinned(true);
    place.Follow("R.2", false);
    EXPECT_FALSE(place.SetPinned(false)) << "the selected submenu is one of the buttons";
}

TEST_F(PreviewPlaceTest, SubmenusAreOpenedAndLeft) {
    EXPECT_TRUE(place.Open("R.2"));
    EXPECT_TRUE(place.Open("R.2.2"));
    EXPECT_FALSE(place.Open("R.1")) << "a part";
    EXPECT_FALSE(place.Open("R.77"));
    EXPECT_EQ(place.Id(), "R.2.2");
    EXPECT_EQ(place.Up(), "R.2.2");
    EXPECT_EQ(place.Up(), "R.2");
    EXPECT_EQ(place.Up(), "") << "nothing is above the main menu";
    EXPECT_EQ(place.Id(), "R");
}

TEST_F(PreviewPlaceTest, AMovedSubmenuStaysShown) {
    place.Open("R.2.2");
    place.SetPinned(true);
    const std::string moved = editor.MoveTo("R.2", "R.3", 0);
    EXPECT_EQ(place.Id(), moved + ".2");
    EXPECT_NE(place.Entry(), nullptr);
    EXPECT_TRUE(place.IsPinned());
    editor.Undo();
    EXPECT_EQ(place.Id(), "R.2.2");
}

TEST_F(PreviewPlaceTest, ASimilarIdIsAnotherEntry) {
    for (int i = 4; i <= 21; ++i)
        editor.AddSubmenu("R", "Submenu");
    place.Open("R.21");
    editor.Remove("R.2");
    EXPECT_EQ(place.Id(), "R.21");
    editor.Undo();
    editor.MoveTo("R.2", "R.3", 0);
    EXPECT_EQ(place.Id(), "R.21");
}

TEST_F(PreviewPlaceTest, ARemovedSubmenuIsLeft) {
    place.Open("R.2.2");
    place.SetPinned(true);
    editor.Remove("R.2");
    EXPECT_EQ(place.Id(), "R");
    EXPECT_FALSE(place.IsPinned());
}

TEST_F(PreviewPlaceTest, AnotherMenuIsNotPinned) {
    place.Open("R.2");
    place.SetPinned(true);
    editor.Open("C:\\Neskroot", "C:\\Neskroot\\menu.cfg");
    EXPECT_EQ(place.Id(), "R");
    EXPECT_FALSE(place.IsPinned());
}

} // namespace
} // namespace nesk
