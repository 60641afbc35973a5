// Files that are dropped on the pictures of dialogs.

#include "gui/FileSource.h"
#include "gui/GuiFixture.h"
#include "gui/ModalDriver.h"
#include "gui/MouseDrag.h"
#include "gui/PictureSamples.h"
#include "menu/FormSelectMenuPicture.h"
#include "partedit/FormEditPart.h"
#include "shell/Startup.h"
#include "shell/modMessageBox.h"
#include "widgets/FormPicture.h"

#include <wx/button.h>

namespace nesk::testing {
namespace {

class FormPictureDropTest : public ::testing::Test {
protected:
    FormPictureDropTest() {
        Startup::InitLanguage();
        station.Write(Red, PictureSample(8, 8));
        station.Write("C:\\P\\x.txt", "text");
        m_before = modMessageBox::SetHook([this](const std::string& text, std::int16_t, const std::string&) {
            messages.push_back(text);
            return modMessageBox::Result::Ok;
        });
    }
    ~FormPictureDropTest() override { modMessageBox::SetHook(m_before); }

    // Drags files to the middle of a picture box and waits there until it says something.
    static wxDragResult Drag(wxWindow& dialog, const FormPicture& box, const std::vector<std::string>& paths,
                             const std::string& text, const std::function<void()>& held = nullptr) {
        FileSource source(dialog);
        const wxSize size = box.GetClientSize();
        const wxPoint middle = box.ClientToScreen(wxPoint(size.x / 2, size.y / 2));
        const wxDragResult result = source.DragAlong(paths, [&](MouseDrag& drag) {
            drag.To(middle).RestUntil([&box, text] { return box.DropText() == text; });
            drag.To(middle);
            if (held) drag.Do(held);
        });
        EXPECT_EQ(box.DropText(), "") << "after the drag";
        return result;
    }

    const std::string Red = "C:\\P\\red.png";
    TempStation station;
    std::vector<std::string> messages;

private:
    modMessageBox::Hook m_before;
};

TEST_F(FormPictureDropTest, APictureIsTakenOver) {
    FormSelectMenuPicture dialog(nullptr);
    std::string path;
    ModalDriver driver(dialog, [&] {
        EXPECT_EQ(Drag(dialog, *dialog.picItemHost, {Red}, "Makes red.png the picture."), wxDragCopy);
        EXPECT_EQ(dialog.picItemHost->Path(), Red);
        EXPECT_TRUE(dialog.picItemHost->ShowsPicture());
        EXPECT_TRUE(dialog.cmdMenuDelete->IsEnabled());
        Click(dialog.cmdOK);
    });
    EXPECT_TRUE(dialog.Display(path));
    EXPECT_EQ(path, Red);
    EXPECT_EQ(messages, std::vector<std::string>{});
}

TEST_F(FormPictureDropTest, TheBoxSaysWhyFilesAreRefused) {
    FormSelectMenuPicture dialog(nullptr);
    std::string path = Red;
    ModalDriver driver(dialog, [&] {
        const FormPicture& box = *dialog.picItemHost;
        bool isHidden = false;
        ExpectRefused(Drag(dialog, box, {"C:\\P\\x.txt"},
                           "x.txt is not a picture. Only a picture can be dropped here.",
                           [&] { isHidden = !Find(box, "picItem")->IsShown(); }));
        EXPECT_TRUE(isHidden) << "the picture gives way to the reason";
        EXPECT_TRUE(Find(box, "picItem")->IsShown());
        ExpectRefused(
            Drag(dialog, box, {"C:\\P"}, "P is not a picture. Only a picture can be dropped here."));
        EXPECT_EQ(box.Path(), Red);
        Click(dialog.cmdOK);
    });
    EXPECT_TRUE(dialog.Display(path));
    EXPECT_EQ(path, Red);
    EXPECT_EQ(messages, std::vector<std::string>{});
}

TEST_F(FormPictureDropTest, WhatIsNoPictureWhenItIsDroppedChangesNothing) {
    FormSelectMenuPicture dialog(nullptr);
    std::string path;
    ModalDriver driver(dialog, [&] {
        Drag(dialog, *dialog.picItemHost, {Red}, "Makes red.png the picture.",
             [&] { station.Write(Red, "no picture any more"); });
        EXPECT_EQ(dialog.picItemHost->Path(), "");
        Click(dialog.cmdOK);
    });
    EXPECT_TRUE(dialog.Display(path));
    EXPECT_EQ(path, "");
    EXPECT_EQ(messages,
              std::vector<std::string>{
                  "Nothing was changed.\n\nC:\\P\\red.png is not a picture that can be shown. It must "
                  "be a BMP, PNG, JPEG, GIF or ICO file."});
}

TEST_F(FormPictureDropTest, EachPictureOfThePartEditorIsOfItsOwn) {
    PartFields fields;
    FormEditPart dialog(nullptr, 1280);
    ModalDriver driver(dialog, [&] {
        Drag(dialog, *dialog.picPreviewHost, {Red}, "Makes red.png the picture.");
        Click(dialog.cmdOK);
    });
    EXPECT_TRUE(dialog.Edit("Part", fields));
    EXPECT_EQ(fields.preview, Red);
    EXPECT_EQ(fields.graphic, "");
}

} // namespace
} // namespace nesk::testing
