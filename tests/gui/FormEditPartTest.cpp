#include "gui/GuiFixture.h"
#include "gui/ModalDriver.h"
#include "gui/Recorders.h"

#include "menu/Menu.h"
#include "menu/MenuItem.h"
#include "menu/MenuItemCollection.h"
#include "partedit/FormEditPart.h"
#include "platform/PartInfoEditor.h"
#include "settings/NeskRegistry.h"
#include "settings/RegEntry.h"
#include "shell/Startup.h"
#include "shell/modMessageBox.h"
#include "shell/modStringRes.h"
#include "widgets/FormPicture.h"
#include "widgets/FormReadOnlyText.h"
#include "widgets/UiUtilities.h"

#include <filesystem>
#include <functional>
#include <utility>
#include <vector>

#include <wx/button.h>
#include <wx/filedlg.h>
#include <wx/settings.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

namespace nesk::testing {
namespace {

using modStringRes::FormatResString;
using modStringRes::LoadResString;
using modUtilities::FromWx;

constexpr int WideScreen = 1024;

class FormEditPartTest : public ::testing::Test {
protected:
    FormEditPartTest() {
        station.Write("D:\\Parts\\Bracket\\partinfo.ini", "[Part]\r\nName=Bracket 7\r\n");
        Startup::InitLanguage();
        NeskRegistry::Instance() = NeskRegistry();
        menu.Initialize("C:\\Neskroot");
        item = &menu.SubMenus().Add("Angle", "Part Program");
        item->SetGraphic("C:\\a.bmp");
        item->SetPreview("C:\\b.bmp");
        item->SetProgramID("@D:\\Parts\\Bracket\\partinfo.ini@");
        item->SetHelpFile("C:\\help.chm");
        item->SetHelpTopic(12);
        item->SetHistoryDir("D:\\History");
        item->SetHistoryTitle("Angles");
        m_before = modMessageBox::SetHook([this](const std::string& text, std::int16_t, const std::string&) {
            messages.push_back(text);
            return modMessageBox::Result::Ok;
        });
    }

    ~FormEditPartTest() override { modMessageBox::SetHook(m_before); }

    TempStation station;
    PartInfoRecorder editor{station};
    Menu menu;
    MenuItem* item = nullptr;
    std::vector<std::string> messages;

private:
    modMessageBox::Hook m_before;
};

TEST_F(FormEditPartTest, ShowsTheItem) {
    FormEditPart dialog(nullptr, WideScreen);
    ModalDriver driver(dialog, [&] {
        EXPECT_EQ(FromWx(dialog.GetTitle()), FormatResString(32029, "Angle"));
        EXPECT_EQ(TextOf(dialog.txtPartName), "@D:\\Parts\\Bracket\\partinfo.ini@");
        EXPECT_EQ(TextOf(dialog.lblDescription), FormatResString(32027, "Bracket 7"));
        EXPECT_TRUE(dialog.cmdSlideShow->IsEnabled());
        EXPECT_EQ(dialog.picItemHost->Path(), "C:\\a.bmp");
        EXPECT_EQ(dialog.picPreviewHost->Path(), "C:\\b.bmp");
        for (const char* name : {"txtPartName",    "cmdSelectPart",    "lblDescription",
                                 "cmdSlideShow",   "Frame1",           "picItemHost",
                                 "picItem",        "cmdMenuSelect",    "cmdMenuDelete",
                                 "cmdMenuPicture", "Frame2",           "picPreviewHost",
                                 "picPreview",     "cmdPreviewSelect", "cmdPreviewDelete",
                                 "Frame3",         "cmdHelpFile",      "cmdHistory",
                                 "cmdOK",          "cmdCancel",        "cmdHelp"})
            Find(dialog, name);
        Click(dialog.cmdOK);
    });
    const PartFields before = PartFieldsOf(*item);
    EXPECT_TRUE(dialog.Edit(item));
    EXPECT_EQ(PartFieldsOf(*item), before) << "confirmed as it was";
}

TEST_F(FormEditPartTest, EveryControlHasItsText) {
    const FormEditPart dialog(nullptr, 640);
    const std::pair<const wxWindow*, int> texts[] = {
        {dialog.cmdOK, 32004},        {dialog.cmdCancel, 32005},      {dialog.cmdHelp, 32008},
        {dialog.cmdSlideShow, 32043}, {dialog.cmdHelpFile, 32075},    {dialog.cmdHistory, 32083},
        {dialog.Frame3, 32055},       {dialog.lblPartName, 32044},    {dialog.Frame2, 32057},
        {dialog.Frame1, 32056},       {dialog.cmdMenuPicture, 32042},
    };
    for (const auto& [control, text] : texts)
        EXPECT_EQ(FromWx(control->GetLabel()), LoadResString(text)) << text;
    // These texts appear twice, so their access keys are chosen for this dialog.
    const std::pair<const wxButton*, int> pictureTexts[] = {{dialog.cmdPreviewSelect, 32066},
                                                            {dialog.cmdPreviewDelete, 32065},
                                                            {dialog.cmdMenuSelect, 32066},
                                                            {dialog.cmdMenuDelete, 32065}};
    for (const auto& [button, text] : pictureTexts) {
        EXPECT_EQ(TextOf(button), LoadResString(text)) << text;
        EXPECT_NE(button->GetLabel(), button->GetLabelText()) << "it has an access key";
    }
}

TEST_F(FormEditPartTest, AccessKeysPressTheButtonsOfThePictures) {
    FormEditPart dialog(nullptr, WideScreen);
    ModalDriver driver(dialog, [&] {
        Press('E', wxMOD_ALT);
        EXPECT_TRUE(WaitUntil([&] { return dialog.picItemHost->Path().empty(); }));
        EXPECT_FALSE(dialog.picPreviewHost->Path().empty());
        // Wine does not find the access keys of a group while the focus is in another group.
        Focus(dialog.txtPartName);
        Press('O', wxMOD_ALT);
        EXPECT_TRUE(WaitUntil([&] { return dialog.picPreviewHost->Path().empty(); }));
        Click(dialog.cmdCancel);
    });
    dialog.Edit(item);
}

TEST_F(FormEditPartTest, OnlyAPictureThatIsThereIsRemoved) {
    item->SetPreview("");
    FormEditPart dialog(nullptr, WideScreen);
    ModalDriver driver(dialog, [&] {
        EXPECT_TRUE(dialog.cmdMenuDelete->IsEnabled());
        EXPECT_FALSE(dialog.cmdPreviewDelete->IsEnabled());
        Focus(dialog.cmdMenuDelete);
        Click(dialog.cmdMenuDelete);
        EXPECT_FALSE(dialog.cmdMenuDelete->IsEnabled());
        EXPECT_TRUE(dialog.cmdMenuSelect->HasFocus()) << "the keyboard goes on from here";
        dialog.picPreviewHost->SetPath("C:\\new.bmp");
        EXPECT_TRUE(dialog.cmdPreviewDelete->IsEnabled());
        Click(dialog.cmdCancel);
    });
    dialog.Edit(item);
}

TEST_F(FormEditPartTest, HelpAndHistoryAreShown) {
    FormEditPart dialog(nullptr, WideScreen);
    ModalDriver driver(dialog, [&] {
        const std::pair<const wxTextCtrl*, const char*> boxes[] = {{dialog.txtHelpFile, "C:\\help.chm"},
                                                                   {dialog.txtHelpTopic, "12"},
                                                                   {dialog.txtHistoryDir, "D:\\History"},
                                                                   {dialog.txtHistoryTitle, "Angles"}};
        for (const auto& [box, text] : boxes) {
            EXPECT_EQ(TextOf(box), text);
            EXPECT_FALSE(box->IsEditable()) << text;
            EXPECT_EQ(box->GetBackgroundColour(), wxSystemSettings::GetColour(wxSYS_COLOUR_BTNFACE))
                << "it looks as if it cannot be edited";
            EXPECT_EQ(FromWx(box->GetToolTipText()), text);
        }
        for (const wxTextCtrl* path : {dialog.txtHelpFile, dialog.txtHistoryDir})
            EXPECT_EQ(path->GetInsertionPoint(), path->GetLastPosition()) << "its end is in view";
        Click(dialog.cmdCancel);
    });
    dialog.Edit(item);
}

TEST_F(FormEditPartTest, SaysWhatIsWrongWithThePart) {
    FormEditPart dialog(nullptr, WideScreen);
    ModalDriver driver(dialog, [&] {
        EXPECT_EQ(TextOf(dialog.lblProblem), "");
        Fill(dialog.txtPartName, "@D:\\Parts\\None\\partinfo.ini@");
        EXPECT_EQ(TextOf(dialog.lblDescription), FormatResString(32027, ""));
        EXPECT_EQ(TextOf(dialog.lblProblem), "The file D:\\Parts\\None\\partinfo.ini does not exist.");
        Fill(dialog.txtPartName, "D:\\Parts\\None\\partinfo.ini");
        EXPECT_EQ(TextOf(dialog.lblDescription), LoadResString(32028));
        EXPECT_EQ(TextOf(dialog.lblProblem),
                  "The program is a path without @ and is started as an identifier.");
        Fill(dialog.txtPartName, "BRACKET");
        EXPECT_EQ(TextOf(dialog.lblProblem), "");
        Click(dialog.cmdCancel);
    });
    dialog.Edit(item);
}

TEST_F(FormEditPartTest, AMissingItemIsNotEdited) {
    FormEditPart dialog(nullptr, WideScreen);
    EXPECT_FALSE(dialog.Edit(nullptr));
}

TEST_F(FormEditPartTest, TheLayoutFollowsTheScreen) {
    FormEditPart wide(nullptr, 641);
    EXPECT_TRUE(wide.Frame1->IsShown());
    EXPECT_FALSE(wide.cmdMenuPicture->IsShown());
    FormEditPart compact(nullptr, 640);
    EXPECT_FALSE(compact.Frame1->IsShown());
    EXPECT_TRUE(compact.cmdMenuPicture->IsShown());
    EXPECT_TRUE(compact.picCompact->IsShown());
    EXPECT_FALSE(wide.picCompact->IsShown());
    // The title bar and panels need the rest of the screen.
    EXPECT_LE(compact.GetSize().x, 640);
    EXPECT_LE(compact.GetSize().y, 420);
    EXPECT_LE(wide.GetSize().x, 800);
    EXPECT_LE(wide.GetSize().y, 520);
}

TEST_F(FormEditPartTest, TheSmallLayoutShowsTheMenuPicture) {
    FormEditPart compact(nullptr, 640);
    ModalDriver driver(compact, [&] {
        EXPECT_EQ(compact.picCompact->Path(), "C:\\a.bmp");
        compact.picItemHost->SetPath("C:\\b.bmp");
        EXPECT_EQ(compact.picCompact->Path(), "C:\\b.bmp");
        Click(compact.cmdCancel);
    });
    compact.Edit(item);
}

TEST_F(FormEditPartTest, TheDescriptionFollowsTheText) {
    FormEditPart dialog(nullptr, WideScreen);
    ModalDriver driver(dialog, [&] {
        Fill(dialog.txtPartName, "BRACKET");
        EXPECT_EQ(TextOf(dialog.lblDescription), LoadResString(32028));
        EXPECT_FALSE(dialog.cmdSlideShow->IsEnabled());
        Fill(dialog.txtPartName, "@");
        EXPECT_EQ(TextOf(dialog.lblDescription), FormatResString(32027, ""));
        EXPECT_TRUE(dialog.cmdSlideShow->IsEnabled());
        Fill(dialog.txtPartName, "two\nlines");
        EXPECT_EQ(TextOf(dialog.txtPartName), "two lines");
        Click(dialog.cmdOK);
    });
    EXPECT_TRUE(dialog.Edit(item));
    EXPECT_EQ(item->ProgramID(), "two lines") << "a plain program name is stored as it stands";
    EXPECT_EQ(item->Caption(), "Angle");
    EXPECT_EQ(item->MenuType(), "Part Program");
}

TEST_F(FormEditPartTest, CancelLeavesThePictures) {
    FormEditPart dialog(nullptr, WideScreen);
    ModalDriver driver(dialog, [&] {
        Click(dialog.cmdMenuDelete);
        Click(dialog.cmdPreviewDelete);
        Press(WXK_ESCAPE);
    });
    EXPECT_FALSE(dialog.Edit(item));
    EXPECT_EQ(item->Graphic(), "C:\\a.bmp");
    EXPECT_EQ(item->Preview(), "C:\\b.bmp");
}

TEST_F(FormEditPartTest, DeletedPicturesAreGoneOnOk) {
    FormEditPart dialog(nullptr, WideScreen);
    ModalDriver driver(dialog, [&] {
        Click(dialog.cmdMenuDelete);
        Click(dialog.cmdPreviewDelete);
        Click(dialog.cmdOK);
    });
    EXPECT_TRUE(dialog.Edit(item));
    EXPECT_EQ(item->Graphic(), "");
    EXPECT_EQ(item->Preview(), "");
    EXPECT_EQ(item->HelpTopic(), 12);
    EXPECT_EQ(item->HistoryTitle(), "Angles");
}

TEST_F(FormEditPartTest, TheInformationEditorGetsItsThreeArguments) {
    editor.Install("D:\\Parts\\Bracket\\partinfo.ini");
    FormEditPart dialog(nullptr, WideScreen);
    ModalDriver driver(dialog, [&] {
        Click(dialog.cmdSlideShow);
        EXPECT_EQ(editor.Log(), "D:\\Parts\\Bracket|D:\\Parts\\Bracket\\partinfo.ini|1033|");
        EXPECT_EQ(TextOf(dialog.lblDescription), FormatResString(32027, "Renamed"));
        Click(dialog.cmdCancel);
    });
    dialog.Edit(item);
    EXPECT_TRUE(messages.empty());
}

TEST_F(FormEditPartTest, TheInformationEditorGetsTheLanguageOfTheProgram) {
    editor.Install("D:\\Parts\\Bracket\\partinfo.ini");
    FormEditPart dialog(nullptr, WideScreen);
    RegEntry settings;
    settings.CreateKey("Orvane\\Settings");
    settings.SetString("DefaultLanguage", "1031");
    Startup::InitLanguage();
    ModalDriver driver(dialog, [&] {
        Click(dialog.cmdSlideShow);
        EXPECT_EQ(editor.Log(), "D:\\Parts\\Bracket|D:\\Parts\\Bracket\\partinfo.ini|1031|");
        Click(dialog.cmdCancel);
    });
    dialog.Edit(item);
    settings.SetString("DefaultLanguage", "");
    Startup::InitLanguage();
}

TEST_F(FormEditPartTest, AMissingOrFailingEditorGivesAMessage) {
    FormEditPart dialog(nullptr, WideScreen);
    ModalDriver driver(dialog, [&] {
        Click(dialog.cmdSlideShow);
        ASSERT_EQ(messages.size(), 1u);
        EXPECT_EQ(messages[0], FormatResString(34301, platform::PartInfoEditorName()));
        editor.InstallFailing();
        Click(dialog.cmdSlideShow);
        ASSERT_EQ(messages.size(), 2u);
        EXPECT_TRUE(IsOpen(dialog)) << "the dialog stays open";
        Click(dialog.cmdCancel);
    });
    dialog.Edit(item);
}

TEST_F(FormEditPartTest, AReferenceWithoutAFolderStartsNoEditor) {
    editor.Install("D:\\Parts\\Bracket\\partinfo.ini");
    item->SetProgramID("@");
    FormEditPart dialog(nullptr, WideScreen);
    ModalDriver driver(dialog, [&] {
        Click(dialog.cmdSlideShow);
        EXPECT_EQ(editor.Log(), "");
        Click(dialog.cmdCancel);
    });
    dialog.Edit(item);
    EXPECT_TRUE(messages.empty());
}

#ifdef NESK_PORTABLE_STATION
// On Windows the paths are passed to an object and are never part of a command line.
TEST_F(FormEditPartTest, TheInformationEditorGetsAReferenceAsItIs) {
    editor.Install("D:\\Parts\\Bracket\\partinfo.ini");
    const std::string folder = "D:\\$(touch hit) `touch hit`;touch hit & 'x' \"y\" %s * ~";
    item->SetProgramID("@" + folder + "\\partinfo.ini@");
    FormEditPart dialog(nullptr, WideScreen);
    ModalDriver driver(dialog, [&] {
        Click(dialog.cmdSlideShow);
        EXPECT_EQ(editor.Log(), folder + "|" + folder + "\\partinfo.ini|1033|");
        Click(dialog.cmdCancel);
    });
    dialog.Edit(item);
    EXPECT_TRUE(messages.empty());
    EXPECT_FALSE(std::filesystem::exists("hit"));
}

TEST_F(FormEditPartTest, TheInformationEditorIsGivenNoOption) {
    editor.Install("D:\\Parts\\Bracket\\partinfo.ini");
    for (const char* reference : {"@--run=x\\partinfo.ini@", "@-x\\@"}) {
        messages.clear();
        item->SetProgramID(reference);
        FormEditPart dialog(nullptr, WideScreen);
        ModalDriver driver(dialog, [&] {
            Click(dialog.cmdSlideShow);
            EXPECT_EQ(messages, std::vector{FormatResString(34302, platform::PartInfoEditorName())});
            Click(dialog.cmdCancel);
        });
        dialog.Edit(item);
    }
    EXPECT_EQ(editor.Log(), "") << "it was not started";
}
#endif

TEST_F(FormEditPartTest, ATextThatCannotBeStoredKeepsTheDialogOpen) {
    FormEditPart dialog(nullptr, WideScreen);
    ModalDriver driver(dialog, [&] {
        Fill(dialog.txtPartName, "部品");
        Click(dialog.cmdOK);
        ASSERT_EQ(messages.size(), 1u);
        EXPECT_NE(messages[0].find("部"), std::string::npos);
        EXPECT_TRUE(IsOpen(dialog));
        Fill(dialog.txtPartName, "PART");
        Click(dialog.cmdOK);
    });
    EXPECT_TRUE(dialog.Edit(item));
    EXPECT_EQ(item->ProgramID(), "PART");
}

TEST_F(FormEditPartTest, WhatWasNotEditedIsStoredAsItWas) {
    // A text box cannot hold either of these completely.
    for (const std::string& program : {std::string("BRACKET\0 7", 10), std::string(70'000, 'p')}) {
        item->SetProgramID(program);
        FormEditPart dialog(nullptr, WideScreen);
        ModalDriver driver(dialog, [&] {
            Click(dialog.cmdMenuDelete);
            Click(dialog.cmdOK);
        });
        EXPECT_TRUE(dialog.Edit(item));
        EXPECT_TRUE(item->ProgramID() == program) << item->ProgramID().size();
        EXPECT_EQ(item->Graphic(), "") << "another field may change beside it";
        item->SetGraphic("C:\\a.bmp");
    }
    EXPECT_EQ(messages, std::vector<std::string>{});
}

TEST_F(FormEditPartTest, AnEditedTextTakesThePlaceOfOneThatNoBoxHolds) {
    item->SetProgramID(std::string("BRACKET\0 7", 10));
    FormEditPart dialog(nullptr, WideScreen);
    ModalDriver driver(dialog, [&] {
        Fill(dialog.txtPartName, "BRACKET 8");
        Click(dialog.cmdOK);
    });
    EXPECT_TRUE(dialog.Edit(item));
    EXPECT_EQ(item->ProgramID(), "BRACKET 8");
}

} // namespace
} // namespace nesk::testing
