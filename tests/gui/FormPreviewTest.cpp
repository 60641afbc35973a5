#include "shell/FormPreview.h"

#include "gui/GuiFixture.h"
#include "gui/MouseDrag.h"
#include "gui/PictureSamples.h"
#include "menu/MenuItem.h"
#include "menu/MenuItemCollection.h"
#include "unit/widgets/FakePictureFiles.h"

#include <wx/button.h>
#include <wx/choice.h>
#include <wx/frame.h>
#include <wx/tglbtn.h>

#include <algorithm>

namespace nesk::testing {
namespace {

using Where = EntryDrop::Where;

std::string TextOf(const EntryDrop& drop) {
    const char* const where = drop.where == Where::Before ? "before "
                              : drop.where == Where::On   ? "into "
                                                          : "after ";
    return drop.id.empty() ? "" : (drop.copies ? "copied " : "moved ") + (where + drop.id);
}

// The preview in a window of its own. R: parts R.1 to R.3, submenu R.4 (part R.4.1, submenu R.4.2), part R.5
class FormPreviewTest : public MainWindowTest {
protected:
    FormPreviewTest() {
        editor.Open("C:\\Neskroot", "C:\\Neskroot\\menu.cfg");
        for (const char* caption : {"First", "Second", "Third"})
            editor.AddPart("R", caption);
        editor.AddSubmenu("R", "Brackets");
        editor.AddPart("R", "Fifth");
        editor.AddPart("R.4", "Angle");
        editor.AddSubmenu("R.4", "Deep");
    }

    ~FormPreviewTest() override {
        if (frame != nullptr) frame->Destroy();
        Settle();
    }

    void Show(wxSize size = wxSize(700, 560)) {
        frame = new wxFrame(nullptr, wxID_ANY, "Preview", wxPoint(50, 50), size);
        preview = new FormPreview(frame, editor, files);
        preview->on.select = [this](const EntryIds& ids) {
            selected = ids;
            preview->ShowSelection(ids, ids.front());
        };
        preview->on.edit = [this](const std::string& id) { edited = id; };
        preview->on.contextMenu = [this](wxWindow&, wxPoint at) { menuAt = at; };
        preview->on.dragged = [this] { return draggedElsewhere; };
        preview->on.mayDrop = [this](const EntryIds& ids, const EntryDrop& drop) {
            const bool into = drop.where == Where::On;
            const std::string parent = into ? drop.id : editor.Find(drop.id)->ParentMenu()->ID();
            return !editor.WhyNotMoveTo(ids, parent);
        };
        preview->on.dropped = [this](const EntryIds& ids, const EntryDrop& drop) {
            droppedIds = ids;
            dropped = drop;
        };
        preview->on.droppedText = [this](const EntryDrop& drop, const std::string& text) {
            dropped = drop;
            droppedText = text;
            return true;
        };
        preview->on.dragLeft = [] {};
        preview->on.dragText = [this](const EntryIds& ids) { return editor.CopyText(ids); };
        preview->on.dragTaken = [this](const EntryIds& ids) { taken = ids; };
        ShowActive(*frame);
        preview->SetScreenChoice(0);
        Settle();
    }

    FormButtonGrid& Grid() const { return *preview->grdButtons; }

    wxPoint MiddleOfButton(int button, double part = 0.5) const {
        const wxRect rect = Grid().ButtonRect(button);
        return Grid().ClientToScreen(
            wxPoint(rect.x + static_cast<int>(rect.width * part), rect.y + rect.height / 2));
    }

    void ClickButton(int button, int key = 0) { ClickPoint(MiddleOfButton(button), wxMOUSE_BTN_LEFT, key); }

    void Drag(int from, wxPoint to, const std::function<void()>& held = nullptr, int key = 0) {
        DragMouse(MiddleOfButton(from), to, key, held, [this] { return Grid().Dragged().empty(); });
        Settle();
    }

    std::string Sorted(EntryIds ids) const {
        std::sort(ids.begin(), ids.end());
        std::string text;
        for (const std::string& id : ids)
            text += (text.empty() ? "" : " ") + id;
        return text;
    }

    MenuEditor editor;
    std::shared_ptr<FakePictureFiles> files = std::make_shared<FakePictureFiles>();
    wxFrame* frame = nullptr;
    FormPreview* preview = nullptr;
    EntryIds selected;
    std::string edited;
    wxPoint menuAt;
    EntryIds draggedElsewhere;
    EntryIds droppedIds;
    EntryDrop dropped;
    std::string droppedText;
    EntryIds taken;
};

TEST_F(FormPreviewTest, AClickSelectsAButton) {
    Show();
    ClickButton(1);
    EXPECT_EQ(selected, EntryIds{"R.2"});
    EXPECT_EQ(Grid().Current(), 1);
    ClickButton(4, WXK_CONTROL);
    EXPECT_EQ(selected, (EntryIds{"R.5", "R.2"})) << "the last one is the current one";
    ClickButton(1, WXK_CONTROL);
    EXPECT_EQ(selected, EntryIds{"R.5"});
    ClickButton(0);
    ClickButton(3, WXK_SHIFT);
    EXPECT_EQ(Sorted(selected), "R.1 R.2 R.3 R.4");
    EXPECT_EQ(selected.front(), "R.4");
    ClickButton(1, WXK_SHIFT);
    EXPECT_EQ(Sorted(selected), "R.1 R.2") << "from the same button on";
    ClickButton(0);
    EXPECT_EQ(selected, EntryIds{"R.1"}) << "one of the selected ones";
    EXPECT_EQ(preview->Place().Id(), "R");
}

TEST_F(FormPreviewTest, ASelectedSubmenuIsAButtonUntilItIsOpened) {
    Show();
    ClickButton(3);
    EXPECT_EQ(selected, EntryIds{"R.4"});
    EXPECT_EQ(preview->Place().Id(), "R");
    DoubleClickPoint(MiddleOfButton(3));
    EXPECT_EQ(preview->Place().Id(), "R.4");
    EXPECT_EQ(Grid().Count(), 2);
    EXPECT_EQ(edited, "");
    DoubleClickPoint(MiddleOfButton(0));
    EXPECT_EQ(edited, "R.4.1");
    EXPECT_EQ(preview->Place().Id(), "R.4");
    Press(WXK_BACK);
    EXPECT_EQ(preview->Place().Id(), "R");
    EXPECT_EQ(selected, EntryIds{"R.4"}) << "the submenu that was left";
    EXPECT_EQ(Grid().Current(), 3);
    EXPECT_FALSE(preview->cmdUp->IsEnabled());
}

TEST_F(FormPreviewTest, ItFollowsTheSelection) {
    Show();
    preview->ShowSelection({"R.4"}, "R.4");
    EXPECT_EQ(preview->Place().Id(), "R.4");
    EXPECT_TRUE(preview->cmdUp->IsEnabled());
    preview->ShowSelection({"R.2"}, "R.2");
    EXPECT_EQ(preview->Place().Id(), "R");
    EXPECT_EQ(Grid().Current(), 1);
    preview->ShowSelection({"R.4.2"}, "R.4.2");
    Click(preview->cmdUp);
    EXPECT_EQ(preview->Place().Id(), "R.4");
}

TEST_F(FormPreviewTest, KeysMoveAndOpen) {
    Show();
    Focus(&Grid());
    Press(WXK_RIGHT);
    EXPECT_EQ(selected, EntryIds{"R.1"}) << "the first button";
    Press(WXK_DOWN); // three columns
    EXPECT_EQ(selected, EntryIds{"R.4"});
    EXPECT_EQ(preview->Place().Id(), "R");
    Press(WXK_RETURN);
    EXPECT_EQ(preview->Place().Id(), "R.4");
    Press(WXK_HOME);
    EXPECT_EQ(selected, EntryIds{"R.4.1"});
    Press(WXK_RETURN);
    EXPECT_EQ(edited, "R.4.1");
    Press(WXK_RIGHT, wxMOD_SHIFT);
    EXPECT_EQ(Sorted(selected), "R.4.1 R.4.2");
    Press(WXK_BACK);
    EXPECT_EQ(preview->Place().Id(), "R");
    Press(WXK_TAB);
    EXPECT_FALSE(Grid().HasFocus()) << "Tab leaves the buttons";
}

TEST_F(FormPreviewTest, APinnedPreviewStays) {
    Show();
    Click(preview->tglPin);
    preview->ShowSelection({"R.4.1"}, "R.4.1");
    EXPECT_EQ(preview->Place().Id(), "R");
    Click(preview->tglPin);
    EXPECT_EQ(preview->Place().Id(), "R.4") << "it follows again";
    Click(preview->tglPin);
    editor.Remove("R.4");
    EXPECT_EQ(preview->Place().Id(), "R");
    EXPECT_FALSE(preview->tglPin->GetValue()) << "there is nothing left to be pinned to";
}

TEST_F(FormPreviewTest, ItFollowsEdits) {
    Show();
    editor.Remove("R.1");
    EXPECT_EQ(Grid().Count(), 4);
    editor.MoveTo("R.4", "R", 1);
    preview->ShowSelection({"R.4.2"}, "R.4.2");
    EXPECT_EQ(preview->Place().Id(), "R.4.2");
    editor.Close();
    EXPECT_EQ(preview->Place().Id(), "");
    EXPECT_EQ(Grid().Count(), 0);
    EXPECT_FALSE(preview->cmdUp->IsEnabled());
    Settle();
}

TEST_F(FormPreviewTest, TheScreenDecidesHowManyButtonsFit) {
    Show();
    EXPECT_EQ(Grid().Grid().Columns(), 3);
    Choose(preview->cboScreen, "1280 x 1024");
    EXPECT_EQ(Grid().Screen(), (ScreenSize{1280, 1024}));
    EXPECT_EQ(Grid().Grid().Columns(), 4);
    EXPECT_EQ(preview->ScreenChoice(), 3);
    preview->SetScreenChoice(77);
    const wxSize here = wxGetDisplaySize();
    EXPECT_EQ(Grid().Screen(), (ScreenSize{here.x, here.y}));
    EXPECT_EQ(preview->ScreenChoice(), 4);
}

TEST_F(FormPreviewTest, AScreenIsScaledToThePane) {
    Show(wxSize(400, 400));
    EXPECT_LE(Grid().Grid().Page(0).width, 400);
    EXPECT_GE(Grid().Grid().Page(0).width, 340);
    frame->SetSize(1000, 400);
    EXPECT_TRUE(WaitUntil([&] { return Grid().Grid().Page(0).width == 640; })) << "no larger than it is";
}

TEST_F(FormPreviewTest, TheContextMenuIsThatOfAButton) {
    Show();
    ClickPoint(MiddleOfButton(2), wxMOUSE_BTN_RIGHT);
    EXPECT_EQ(selected, EntryIds{"R.3"});
    EXPECT_TRUE(Grid().ButtonRect(2).Contains(menuAt));
    ClickButton(0, WXK_CONTROL);
    ClickPoint(MiddleOfButton(2), wxMOUSE_BTN_RIGHT);
    EXPECT_EQ(Sorted(selected), "R.1 R.3") << "of all selected ones";
    menuAt = {};
    Press(WXK_F10, wxMOD_SHIFT);
    EXPECT_EQ(menuAt, Grid().ButtonRect(0).GetBottomLeft()) << "at the current button";
}

TEST_F(FormPreviewTest, PicturesAreReadAndRenewed) {
    editor.SetGraphic("R.1", "C:\\a.png");
    editor.SetGraphic("R.2", "C:\\missing.png");
    editor.SetGraphic("R.3", "C:\\text.png");
    files->Write("C:\\a.png", PictureSample(100, 60));
    files->Write("C:\\text.png", "no picture");
    Show();
    using State = UiThumbnails::State;
    EXPECT_TRUE(WaitUntil([&] { return Grid().PictureState(0) == State::Shown; }));
    EXPECT_TRUE(WaitUntil([&] { return Grid().PictureState(1) == State::Missing; }));
    EXPECT_TRUE(WaitUntil([&] { return Grid().PictureState(2) == State::Missing; }));
    files->Write("C:\\missing.png", PictureSample(10, 10));
    EXPECT_TRUE(WaitUntil([&] { return Grid().PictureState(1) == State::Shown; }));
}

TEST_F(FormPreviewTest, AServerThatDoesNotAnswerHoldsUpNothing) {
    editor.SetGraphic("R.1", "\\\\server\\share\\a.png");
    editor.SetGraphic("R.2", "C:\\b.png");
    files->Write("\\\\server\\share\\a.png", PictureSample(10, 10));
    files->Write("C:\\b.png", PictureSample(10, 10));
    files->Block("\\\\server");
    Show();
    using State = UiThumbnails::State;
    EXPECT_TRUE(WaitUntil([&] { return Grid().PictureState(1) == State::Shown; }));
    EXPECT_EQ(Grid().PictureState(0), State::Waiting);
    ClickButton(2);
    EXPECT_EQ(selected, EntryIds{"R.3"}) << "the window answers meanwhile";
    files->ComeBack();
    EXPECT_TRUE(WaitUntil([&] { return Grid().PictureState(0) == State::Shown; }));
}

TEST_F(FormPreviewTest, AThousandButtonsAreReadOnlyWhenTheyAreSeen) {
    editor.BeginGroup({}, 1000);
    for (int i = 0; i < 1000; ++i) {
        const std::string id = editor.AddPart("R.4.2", "Part " + std::to_string(i));
        editor.SetGraphic(id, "C:\\" + std::to_string(i) + ".png");
        files->Write("C:\\" + std::to_string(i) + ".png", PictureSample(8, 8));
    }
    editor.CommitGroup();
    Show();
    preview->ShowSelection({"R.4.2"}, "R.4.2");
    Focus(&Grid());
    using State = UiThumbnails::State;
    EXPECT_TRUE(WaitUntil([&] { return Grid().PictureState(0) == State::Shown; }));
    Settle();
    EXPECT_LE(files->PathsRead().size(), 60u) << "what is seen, and the next page";
    Press(WXK_END);
    EXPECT_EQ(Grid().Current(), 999);
    const wxRect last = Grid().ButtonRect(999);
    EXPECT_TRUE(Grid().GetClientRect().Contains(last)) << "it is in view";
    EXPECT_TRUE(WaitUntil([&] { return Grid().PictureState(999) == State::Shown; }));
    EXPECT_EQ(Grid().PictureState(500), State::Waiting);
    Press(WXK_PAGEUP);
    EXPECT_EQ(Grid().Current(), 999 - 18);
    EXPECT_TRUE(Grid().GetClientRect().Contains(Grid().ButtonRect(999 - 18)));
    Press(WXK_HOME);
    EXPECT_TRUE(Grid().GetClientRect().Contains(Grid().ButtonRect(0)));
}

TEST_F(FormPreviewTest, AButtonIsDraggedBetweenOthers) {
    Show();
    EntryDrop marked;
    Drag(4, MiddleOfButton(1, 0.1), [&] { marked = Grid().Marked(); });
    EXPECT_EQ(TextOf(marked), "moved before R.2");
    EXPECT_EQ(TextOf(dropped), TextOf(marked));
    EXPECT_EQ(droppedIds, EntryIds{"R.5"});
    EXPECT_EQ(Grid().Marked().id, "") << "the mark goes away";
    EXPECT_EQ(taken, EntryIds{});
}

TEST_F(FormPreviewTest, SeveralButtonsAreDraggedIntoASubmenu) {
    Show();
    ClickButton(0);
    ClickButton(2, WXK_CONTROL);
    Drag(0, MiddleOfButton(3));
    EXPECT_EQ(TextOf(dropped), "moved into R.4");
    EXPECT_EQ(Sorted(droppedIds), "R.1 R.3");
}

TEST_F(FormPreviewTest, TheFreeAreaIsTheEnd) {
    Show();
    Drag(0, MiddleOfButton(5));
    EXPECT_EQ(TextOf(dropped), "moved after R.5");
}

TEST_F(FormPreviewTest, ASubmenuIsNotDroppedIntoItself) {
    Show();
    EntryDrop marked{"unset"};
    Drag(3, MiddleOfButton(3, 0.6), [&] { marked = Grid().Marked(); });
    EXPECT_EQ(marked.id, "");
    EXPECT_EQ(TextOf(dropped), "");
}

TEST_F(FormPreviewTest, EscapeCallsADragOff) {
    Show();
    Drag(4, MiddleOfButton(1, 0.1), [] { SendKey(WXK_ESCAPE); });
    EXPECT_EQ(TextOf(dropped), "");
    EXPECT_EQ(taken, EntryIds{});
    Drag(2, MiddleOfButton(1, 0.1));
    EXPECT_EQ(TextOf(dropped), "moved before R.2") << "the next drag";
}

#ifdef NESK_PORTABLE_STATION
// During a drag Wine does not notice a simulated key.
TEST_F(FormPreviewTest, ControlCopies) {
    Show();
    Drag(4, MiddleOfButton(1, 0.1), nullptr, WXK_CONTROL);
    EXPECT_EQ(TextOf(dropped), "copied before R.2");
}
#endif

} // namespace
} // namespace nesk::testing
