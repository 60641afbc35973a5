// Files from the system's file manager, dropped on entries in the tree, in the preview and in the details.

#include "gui/FileSource.h"
#include "gui/GuiFixture.h"
#include "gui/MouseDrag.h"
#include "gui/NextDialog.h"
#include "gui/PictureSamples.h"
#include "menu/MenuItem.h"
#include "partedit/FormAddParts.h"

#include "shell/FormDetails.h"
#include "shell/FormPreview.h"
#include "shell/FormStatusBar.h"
#include "shell/modMessageBox.h"

#include "widgets/UiUtilities.h"

#include <wx/menu.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

namespace nesk::testing {
namespace {

using platform::TreeDrop;

// SmallMenu: part R.1 First, submenu R.2 Brackets (part R.2.1 Angle), part R.3 Last
class FormMainFilesTest : public MainWindowTest {
protected:
    FormMainFilesTest() {
        station.Write(Picture, PictureSample(8, 8));
        station.Write("C:\\P\\b.png", PictureSample(8, 8));
        station.Write("C:\\P\\x.txt", "text");
        for (const char* part : {"Doors\\front", "Doors\\rear", "b100"})
            station.Write("C:\\Parts\\" + std::string(part) + "\\partinfo.ini",
                          "[Part]\r\nName=" + std::string(part) + "\r\n");
        WriteMenu(SmallMenu);
        OpenWindow();
        window->SetSize(0, 0, 900, 640);
        Press('O', wxMOD_CONTROL);
        source = std::make_unique<FileSource>(*window);
        m_before = modMessageBox::SetHook([this](const std::string& text, std::int16_t, const std::string&) {
            messages.push_back(text);
            return modMessageBox::Result::Ok;
        });
    }
    ~FormMainFilesTest() override { modMessageBox::SetHook(m_before); }

    std::string GraphicOf(const std::string& id) const {
        return std::string(window->Editor().Find(id)->Graphic());
    }
    std::size_t Steps() const { return window->Editor().History().UndoNames().size(); }

    std::string Hint() const {
        return modUtilities::FromWx(window->sbMain->GetStatusText(FormStatusBar::HelpPanel));
    }

    // Drags files to a point and waits there until the status bar says something.
    wxDragResult DragUntil(const std::string& hint, const std::vector<std::string>& paths, wxPoint to,
                           const std::function<void()>& held = nullptr) {
        const wxDragResult result = source->DragAlong(paths, [&](MouseDrag& drag) {
            drag.To(to).RestUntil([this, hint] { return Hint() == hint; });
            // The answer to the last move may have come before the files were looked at.
            drag.To(to);
            if (held) drag.Do(held);
        });
        EXPECT_EQ(Hint(), "") << "after the drag";
        return result;
    }

    // Drops files, and adds the parts that the dialog then shows.
    void DropParts(const std::string& hint, const std::vector<std::string>& paths, wxPoint to,
                   const std::string& count) {
        const NextDialog<FormAddParts> next([&](FormAddParts& dialog) {
            EXPECT_TRUE(WaitUntil([&] { return !dialog.IsSearching(); }));
            EXPECT_EQ(TextOf(dialog.lblCount), count);
            Press(WXK_RETURN);
            EXPECT_TRUE(WaitUntil([&] { return !IsOpen(dialog); }));
        });
        dialogs.Answer(wxID_NONE); // the dialog is shown
        EXPECT_EQ(DragUntil(hint, paths, to), wxDragCopy);
    }

    wxPoint BelowTheRows() const {
        const wxRect last = Tree().RowRect(Row("R.3"));
        return Tree().Window().ClientToScreen(wxPoint(60, last.GetBottom() + 3 * last.height));
    }

    const std::string Picture = "C:\\P\\a.png";
    const std::string Before = "Main Menu\n First\n Brackets\n  Angle\n Last\n";
    std::unique_ptr<FileSource> source;
    std::vector<std::string> messages;

private:
    modMessageBox::Hook m_before;
};

TEST_F(FormMainFilesTest, APictureOnAnEntryIsItsPicture) {
    Select("R.3");
    TreeDrop marked;
    EXPECT_EQ(DragUntil("Makes a.png the picture of \"First\".", {Picture}, PointIn("R.1", 0.9),
                        [&] { marked = Tree().Marked(); }),
              wxDragCopy);
    EXPECT_EQ(marked.node, &Row("R.1"));
    EXPECT_EQ(marked.where, TreeDrop::Where::On) << "near the edge of the row, too";
    EXPECT_EQ(Tree().Marked().node, nullptr);
    EXPECT_EQ(GraphicOf("R.1"), Picture);
    EXPECT_EQ(SelectedText(), "First");
    EXPECT_EQ(Steps(), 1u);
    Press('Z', wxMOD_CONTROL);
    EXPECT_EQ(GraphicOf("R.1"), "");
    EXPECT_FALSE(window->Editor().IsDirty());
    DragUntil("Makes a.png the picture of \"Brackets\".", {Picture}, MiddleOf("R.2"));
    EXPECT_EQ(GraphicOf("R.2"), Picture);
}

TEST_F(FormMainFilesTest, AFolderOnASubmenuAddsItsParts) {
    DropParts("Adds the part programs of Doors to \"Brackets\".", {"C:\\Parts\\Doors"}, MiddleOf("R.2"),
              "Parts to add: 2. Submenus: 0, of them new: 0.");
    EXPECT_EQ(TreeText(), "Main Menu\n First\n Brackets\n  Angle\n  Doors\\front\n  Doors\\rear\n Last\n");
    EXPECT_EQ(SelectedText(), "Doors\\front Doors\\rear");
    Press('Z', wxMOD_CONTROL);
    EXPECT_EQ(TreeText(), Before) << "one step";
}

TEST_F(FormMainFilesTest, APartInfoBelowTheRowsIsForTheMenuItself) {
    DropParts("Adds the part programs of partinfo.ini to \"Main Menu\".", {"C:\\Parts\\b100\\partinfo.ini"},
              BelowTheRows(), "Parts to add: 1. Submenus: 0, of them new: 0.");
    EXPECT_EQ(TreeText(), Before + " b100\n");
}

TEST_F(FormMainFilesTest, SeveralFoldersAreAddedInOneStep) {
    DropParts("Adds the part programs of 2 folders to \"Brackets\".", {"C:\\Parts\\Doors", "C:\\Parts\\b100"},
              MiddleOf("R.2"), "Parts to add: 3. Submenus: 1, of them new: 1.");
    EXPECT_EQ(
        TreeText(),
        "Main Menu\n First\n Brackets\n  Angle\n  Doors\n   Doors\\front\n   Doors\\rear\n  b100\n Last\n");
    EXPECT_EQ(Steps(), 1u);
}

TEST_F(FormMainFilesTest, TheStatusBarSaysWhyFilesAreRefused) {
    TreeDrop marked{&Row("R.1"), TreeDrop::Where::On, false};
    ExpectRefused(DragUntil("x.txt is neither a picture nor a part program.", {"C:\\P\\x.txt"},
                            MiddleOf("R.1"), [&] { marked = Tree().Marked(); }));
    EXPECT_EQ(marked.node, nullptr);
    ExpectRefused(DragUntil("Several pictures cannot be the picture of one button. Drop one picture.",
                            {Picture, "C:\\P\\b.png"}, MiddleOf("R.1")));
    ExpectRefused(DragUntil("\"First\" is a part. Part programs can be added to a submenu only.",
                            {"C:\\Parts\\Doors"}, MiddleOf("R.1")));
    ExpectRefused(DragUntil("There is no entry here. Drop the picture on the entry that it is for.",
                            {Picture}, BelowTheRows()));
    EXPECT_FALSE(window->Editor().IsDirty());
    EXPECT_EQ(TreeText(), Before);
}

TEST_F(FormMainFilesTest, WhatIsNoPictureWhenItIsDroppedChangesNothing) {
    dialogs.Answer(wxID_OK);
    EXPECT_EQ(DragUntil("Makes a.png the picture of \"First\".", {Picture}, MiddleOf("R.1"),
                        [&] { station.Write(Picture, "no picture any more"); }),
              wxDragCopy);
    EXPECT_TRUE(WaitUntil([&] { return !dialogs.shown.empty(); }));
    ASSERT_EQ(dialogs.shown.size(), 1u);
    EXPECT_EQ(
        dialogs.shown[0].text,
        "Nothing was changed.\n\nC:\\P\\a.png is not a picture that can be shown. It must be a BMP, PNG, "
        "JPEG, GIF or ICO file.");
    EXPECT_EQ(GraphicOf("R.1"), "");
    EXPECT_FALSE(window->Editor().IsDirty());
}

TEST_F(FormMainFilesTest, ACollapsedSubmenuOpensUnderTheFiles) {
    ASSERT_FALSE(Row("R.2").IsExpanded());
    source->DragAlong({Picture}, [&](MouseDrag& drag) {
        drag.To(MiddleOf("R.2"));
        drag.RestUntil([&] { return Row("R.2").IsExpanded(); });
        drag.To([&] { return MiddleOf("R.2.1"); });
    });
    EXPECT_EQ(GraphicOf("R.2.1"), Picture);
    EXPECT_EQ(GraphicOf("R.2"), "");
}

TEST_F(FormMainFilesTest, WhatIsTypedIntoALabelIsKept) {
    Select("R.1");
    Press(WXK_F2);
    Type("New");
    source->Drag({Picture}, MiddleOf("R.3"));
    EXPECT_EQ(TreeText(), "Main Menu\n New\n Brackets\n  Angle\n Last\n");
    EXPECT_EQ(GraphicOf("R.3"), Picture);
}

TEST_F(FormMainFilesTest, ARefusedCaptionStopsADrop) {
    Select("R.1");
    Press(WXK_F2);
    Tree().SetEditText("日");
    dialogs.Answer(wxID_OK);
    source->Drag({Picture}, MiddleOf("R.3"));
    EXPECT_TRUE(WaitUntil([&] { return dialogs.shown.size() == 1; })) << "about the caption";
    Settle();
    EXPECT_EQ(GraphicOf("R.3"), "");
    EXPECT_EQ(Tree().EditText(), "日") << "to be corrected";
    Press(WXK_ESCAPE);
}

TEST_F(FormMainFilesTest, NothingIsDroppedBehindADialog) {
    window->SetSize(0, 0, 1270, 980); // the dialog in its middle does not cover the row
    Settle();
    const wxPoint row = MiddleOf("R.1");
    wxDragResult result = wxDragError;
    const NextDialog<FormAddParts> next([&](FormAddParts& dialog) {
        {
            EXPECT_FALSE(dialog.GetScreenRect().Contains(row));
            FileSource inDialog(dialog);
            result = inDialog.Drag({Picture}, row, [&] { EXPECT_EQ(Hint(), ""); });
        }
        Press(WXK_ESCAPE);
        EXPECT_TRUE(WaitUntil([&] { return !IsOpen(dialog); }));
    });
    dialogs.Answer(wxID_NONE); // the dialog is shown
    Select("R.2");
    Press('P', wxMOD_CONTROL | wxMOD_SHIFT);
    ExpectRefused(result);
    EXPECT_EQ(GraphicOf("R.1"), "");
}

// --- the preview and the details ---

class FormMainFilesPreviewTest : public FormMainFilesTest {
protected:
    FormMainFilesPreviewTest() {
        Press(WXK_F8);
        Select("R.1");
    }

    FormButtonGrid& Grid() const { return *window->pnPreview->grdButtons; }
    FormDetails& Details() const { return *window->pnDetails; }

    wxPoint MiddleOfButton(int button) const {
        const wxRect rect = Grid().ButtonRect(button);
        return Grid().ClientToScreen(wxPoint(rect.x + rect.width / 2, rect.y + rect.height / 2));
    }
    wxPoint BetweenButtons() const {
        return Grid().ClientToScreen(Grid().ButtonRect(0).GetTopLeft() - wxPoint(3, 3));
    }
    wxPoint MiddleOfView(DetailField field) const {
        const wxSize size = Details().View(field)->GetClientSize();
        return Details().View(field)->ClientToScreen(wxPoint(size.x / 2, size.y / 2));
    }
};

TEST_F(FormMainFilesPreviewTest, APictureOnAButton) {
    EntryDrop marked;
    EXPECT_EQ(DragUntil("Makes a.png the picture of \"Last\".", {Picture}, MiddleOfButton(2),
                        [&] { marked = Grid().Marked(); }),
              wxDragCopy);
    EXPECT_EQ(marked.id, "R.3");
    EXPECT_EQ(Grid().Marked().id, "");
    EXPECT_EQ(GraphicOf("R.3"), Picture);
    EXPECT_EQ(SelectedText(), "Last");
    EXPECT_EQ(Steps(), 1u);
}

TEST_F(FormMainFilesPreviewTest, BetweenTheButtonsIsTheSubmenuThatIsShown) {
    DropParts("Adds the part programs of b100 to \"Main Menu\".", {"C:\\Parts\\b100"}, BetweenButtons(),
              "Parts to add: 1. Submenus: 0, of them new: 0.");
    EXPECT_EQ(TreeText(), Before + " b100\n");
}

TEST_F(FormMainFilesPreviewTest, AFolderOnTheButtonOfASubmenu) {
    DropParts("Adds the part programs of b100 to \"Brackets\".", {"C:\\Parts\\b100"}, MiddleOfButton(1),
              "Parts to add: 1. Submenus: 0, of them new: 0.");
    EXPECT_EQ(TreeText(), "Main Menu\n First\n Brackets\n  Angle\n  b100\n Last\n");
    EXPECT_EQ(window->pnPreview->Place().Id(), "R") << "the pane stays where the user works";
}

TEST_F(FormMainFilesPreviewTest, AButtonOfAPartTakesNoFolder) {
    ExpectRefused(DragUntil("\"First\" is a part. Part programs can be added to a submenu only.",
                            {"C:\\Parts\\b100"}, MiddleOfButton(0),
                            [&] { EXPECT_EQ(Grid().Marked().id, ""); }));
    EXPECT_FALSE(window->Editor().IsDirty());
}

TEST_F(FormMainFilesPreviewTest, BothPicturesInTheDetails) {
    EXPECT_EQ(DragUntil("Makes a.png the picture.", {Picture}, MiddleOfView(DetailField::Picture)),
              wxDragCopy);
    EXPECT_EQ(GraphicOf("R.1"), Picture);
    EXPECT_EQ(DragUntil("Makes b.png the picture.", {"C:\\P\\b.png"}, MiddleOfView(DetailField::Preview)),
              wxDragCopy);
    EXPECT_EQ(dynamic_cast<const MenuItem&>(*window->Editor().Find("R.1")).Preview(), "C:\\P\\b.png");
    EXPECT_EQ(TextOf(Details().TextBox(DetailField::Preview)), "C:\\P\\b.png");
    EXPECT_EQ(Steps(), 2u);
}

TEST_F(FormMainFilesPreviewTest, TheDetailsRefuseWhatIsNoPicture) {
    const wxPoint view = MiddleOfView(DetailField::Picture);
    EXPECT_EQ(
        DragUntil("b100 is not a picture. Only a picture can be dropped here.", {"C:\\Parts\\b100"}, view),
        wxDragNone);
    EXPECT_EQ(DragUntil("Makes a.png the picture.", {Picture}, view,
                        [&] { station.Write(Picture, "no picture any more"); }),
              wxDragCopy);
    ASSERT_EQ(messages.size(), 1u);
    EXPECT_EQ(messages[0].find("Nothing was changed.\n\nC:\\P\\a.png is not a picture"), 0u) << messages[0];
    Select("R.2");
    ExpectRefused(DragUntil("What is selected does not have this picture. Select a part first.",
                            {"C:\\P\\b.png"}, MiddleOfView(DetailField::Preview)));
    EXPECT_FALSE(window->Editor().IsDirty());
}

} // namespace
} // namespace nesk::testing
