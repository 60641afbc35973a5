#include "gui/PartDialogFixture.h"

#include "menu/FormSelectMenuPicture.h"
#include "menu/PartFields.h"
#include "partedit/FormEditPart.h"
#include "partedit/FormSelectHelpFile.h"
#include "partedit/FormSelectHistory.h"
#include "partedit/FormSelectPart.h"
#include "settings/NeskRegistry.h"
#include "settings/RegEntry.h"
#include "widgets/FormPicture.h"
#include "widgets/UiUtilities.h"

#include <utility>

#include <wx/button.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

namespace nesk::testing {
namespace {

using modStringRes::FormatResString;
using modStringRes::LoadResString;
using modUtilities::FromWx;

// The dialogs that the part editor opens.
class FormEditPartDialogsTest : public PartDialogTest {
protected:
    ~FormEditPartDialogsTest() override { NeskRegistry::Instance() = NeskRegistry(); }

    // Shows the editor, runs an action on it, and returns its answer.
    bool Edit(const std::function<void(FormEditPart&)>& act, int screenWidth = 1024) {
        WhenShown<FormEditPart>("FormEditPart", act);
        return FormEditPart(nullptr, screenWidth).Edit("Angle", fields);
    }

    PartFields fields{"C:\\Gone\\a.bmp", "", "BRACKET", "C:\\help.chm", 12, "D:\\History", "Angles"};
};

TEST_F(FormEditPartDialogsTest, ThePartTreeGivesTheReference) {
    station.Write("D:\\Parts\\Shaft\\partinfo.ini", "[Part]\r\nName=Shaft 3\r\n");
    RegEntry common;
    common.CreateKey("Common");
    common.SetString("RepositoryRoot", "D:\\Parts\\");
    const auto isScanned = [](const FormSelectPart& tree) {
        return !tree.IsBusy() && tree.cmdSelectDrive->IsEnabled() && tree.tvMain->Root() != nullptr;
    };
    EXPECT_TRUE(Edit([&](FormEditPart& form) {
        WhenShown<FormSelectPart>(
            "FormSelectPart", [](FormSelectPart& tree) { Click(tree.cmdCancel); }, isScanned);
        Click(form.cmdSelectPart);
        EXPECT_EQ(TextOf(form.txtPartName), "BRACKET") << "nothing was selected";
        WhenShown<FormSelectPart>(
            "FormSelectPart",
            [](FormSelectPart& tree) {
                ASSERT_EQ(tree.tvMain->Root()->ChildCount(), 1u);
                tree.tvMain->Select(&tree.tvMain->Root()->Child(0));
                Click(tree.cmdOK);
            },
            isScanned);
        Click(form.cmdSelectPart);
        EXPECT_EQ(TextOf(form.lblDescription), FormatResString(32027, "Shaft 3"));
        EXPECT_TRUE(form.cmdSlideShow->IsEnabled());
        Click(form.cmdOK);
    }));
    EXPECT_EQ(fields.programId, "@D:\\Parts\\Shaft\\partinfo.ini@");
}

TEST_F(FormEditPartDialogsTest, OnASmallScreenThePictureDialogGivesThePicture) {
    constexpr int smallScreen = 640;
    const auto choose = [this](FormEditPart& form) {
        WhenShown<FormSelectMenuPicture>("FormSelectMenuPicture", [](FormSelectMenuPicture& library) {
            EXPECT_EQ(library.picItemHost->Path(), "C:\\Gone\\a.bmp");
            library.picItemHost->SetPath("C:\\lost.bmp");
            Click(library.cmdCancel);
        });
        Click(form.cmdMenuPicture);
        EXPECT_EQ(form.picItemHost->Path(), "C:\\Gone\\a.bmp") << "called off";
        WhenShown<FormSelectMenuPicture>("FormSelectMenuPicture", [](FormSelectMenuPicture& library) {
            library.picItemHost->SetPath("C:\\new.bmp");
            Click(library.cmdOK);
        });
        Click(form.cmdMenuPicture);
        EXPECT_EQ(form.picItemHost->Path(), "C:\\new.bmp");
        Click(form.cmdOK);
    };
    EXPECT_TRUE(Edit(choose, smallScreen));
    EXPECT_EQ(fields.graphic, "C:\\new.bmp");
}

TEST_F(FormEditPartDialogsTest, PicturesAreChosenInTheSystemsDialog) {
    NeskRegistry::Instance().DefaultBitmapDirectory = "C:\\Pictures";
    station.Write("C:\\Slides\\b.bmp", "");
    fields.preview = "C:\\Slides\\b.bmp";
    EXPECT_TRUE(Edit([this](FormEditPart& form) {
        ChooseFile("");
        Click(form.cmdMenuSelect);
        EXPECT_EQ(form.picItemHost->Path(), "C:\\Gone\\a.bmp") << "called off";
        ChooseFile("C:\\new.bmp");
        Click(form.cmdMenuSelect);
        ChooseFile("");
        Click(form.cmdPreviewSelect);
        EXPECT_EQ(form.picPreviewHost->Path(), "C:\\Slides\\b.bmp") << "called off";
        ChooseFile("C:\\other.bmp");
        Click(form.cmdPreviewSelect);
        Click(form.cmdOK);
    }));
    EXPECT_EQ(fields.graphic, "C:\\new.bmp");
    EXPECT_EQ(fields.preview, "C:\\other.bmp");
    // The folder of the settings replaces a picture's folder that no longer exists.
    const std::string title = LoadResString(32026);
    const std::string picture = title + "|C:\\Pictures|C:\\Gone\\a.bmp|";
    const std::string preview = title + "|C:\\Slides\\|C:\\Slides\\b.bmp|";
    EXPECT_EQ(fileDialogs, (std::vector<std::string>{picture, picture, preview, preview}));
}

TEST_F(FormEditPartDialogsTest, ADoubleClickChoosesAPictureToo) {
    // A single red pixel.
    station.Write("C:\\small.gif",
                  std::string("GIF89a\1\0\1\0\x80\0\0\xFF\0\0\0\0\0,\0\0\0\0\1\0\1\0\0\2\2D\1\0;", 35));
    Edit([this](FormEditPart& form) {
        const std::pair<const char*, FormPicture*> places[] = {{"picItemHost", form.picItemHost},
                                                               {"picItem", form.picItemHost},
                                                               {"picPreviewHost", form.picPreviewHost},
                                                               {"picPreview", form.picPreviewHost}};
        for (const auto& [name, picture] : places) {
            const std::string file = std::string("C:\\") + name + ".bmp";
            // The picture in the area can be seen only when there is one.
            if (Find(form, name) != picture) picture->SetPath("C:\\small.gif");
            ChooseFile(file);
            Send(Find(form, name), wxEVT_LEFT_DCLICK);
            EXPECT_EQ(picture->Path(), file);
        }
        Click(form.cmdCancel);
    });
}

TEST_F(FormEditPartDialogsTest, WhatTheOtherDialogsChangeIsStoredOnOk) {
    station.Write("C:\\History\\x.txt", "");
    const auto change = [this](FormEditPart& form) {
        Fill(form.txtPartName, "PLATE");
        WhenShown<FormSelectHelpFile>("FormSelectHelpFile", [](FormSelectHelpFile& help) {
            EXPECT_EQ(TextOf(help.txtHelpFile), "C:\\help.chm");
            EXPECT_EQ(TextOf(help.txtHelpTopic), "12");
            Fill(help.txtHelpFile, "C:\\other.chm");
            Fill(help.txtHelpTopic, "34");
            Click(help.cmdOK);
        });
        Click(form.cmdHelpFile);
        WhenShown<FormSelectHistory>("FormSelectHistory", [](FormSelectHistory& history) {
            EXPECT_EQ(TextOf(history.txtHistoryDir), "D:\\History");
            EXPECT_EQ(TextOf(history.txtHistoryTitle), "Angles");
            EXPECT_EQ(FromWx(history.cmdDefault->GetLabel()), LoadResString(32093));
            Fill(history.txtHistoryDir, "C:\\History");
            Fill(history.txtHistoryTitle, "Bolts");
            Click(history.cmdOK);
        });
        Click(form.cmdHistory);
    };
    const PartFields before = fields;
    EXPECT_FALSE(Edit([&](FormEditPart& form) {
        change(form);
        EXPECT_EQ(fields, before) << "changed on OK alone";
        Click(form.cmdCancel);
    }));
    EXPECT_EQ(fields, before);
    EXPECT_TRUE(Edit([&](FormEditPart& form) {
        change(form);
        Click(form.cmdOK);
    }));
    const PartFields after{"C:\\Gone\\a.bmp", "", "PLATE", "C:\\other.chm", 34, "C:\\History", "Bolts"};
    EXPECT_EQ(fields, after);
}

} // namespace
} // namespace nesk::testing
