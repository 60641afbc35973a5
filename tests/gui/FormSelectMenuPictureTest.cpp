#include "gui/GuiFixture.h"
#include "gui/ModalDriver.h"

#include "menu/FormEditMenu.h"
#include "menu/FormSelectMenuPicture.h"
#include "menu/Menu.h"
#include "menu/MenuItem.h"
#include "menu/MenuItemCollection.h"
#include "platform/OpenFileDialog.h"
#include "settings/NeskRegistry.h"
#include "shell/Startup.h"
#include "shell/modMessageBox.h"
#include "shell/modStringRes.h"
#include "widgets/FormPicture.h"
#include "widgets/UiUtilities.h"

#include <algorithm>
#include <filesystem>
#include <fstream>

#include <wx/button.h>
#include <wx/image.h>
#include <wx/stattext.h>

namespace nesk::testing {
namespace {

using modStringRes::LoadResString;
using modUtilities::FromWx;

// A stand-in for the file dialog that returns a file or is cancelled.
struct FileDialogScript {
    FileDialogScript() {
        platform::SetOpenFileDialog([this](wxWindow*, const platform::OpenFileRequest& asked) {
            requests.push_back(asked);
            return choice;
        });
    }
    ~FileDialogScript() { platform::SetOpenFileDialog({}); }
    FileDialogScript(const FileDialogScript&) = delete;
    FileDialogScript& operator=(const FileDialogScript&) = delete;

    std::string choice; // Windows path; "" to cancel the dialog
    std::vector<platform::OpenFileRequest> requests;
};

class PictureDialogTest : public ::testing::Test {
protected:
    PictureDialogTest() {
        station.Write("C:\\Pictures\\x.txt", "no picture");
        Startup::InitLanguage();
        NeskRegistry::Instance() = NeskRegistry();
        NeskRegistry::Instance().DefaultBitmapDirectory = "C:\\Pictures";
        // Half of the test's pictures are made with wxWidgets.
        if (wxImage::FindHandler(wxBITMAP_TYPE_PNG) == nullptr) wxImage::AddHandler(new wxPNGHandler);
    }

    std::string Host(const std::string& path) const { return TempStation::Host(path).string(); }

    void MakePicture(const std::string& path, int width, int height) const {
        wxImage image(width, height);
        image.SetRGB(wxRect(0, 0, width, height), 200, 30, 30);
        ASSERT_TRUE(image.SaveFile(wxString::FromUTF8(Host(path).c_str()), wxBITMAP_TYPE_PNG));
    }

    TempStation station;
    FileDialogScript files;
};

TEST_F(PictureDialogTest, AnEmptyPathStaysEmptyOnOk) {
    FormSelectMenuPicture dialog(nullptr);
    std::string path;
    ModalDriver driver(dialog, [&] {
        EXPECT_EQ(FromWx(dialog.GetTitle()), LoadResString(32081));
        EXPECT_FALSE(dialog.picItemHost->ShowsPicture());
        // The file dialog starts in the folder of the settings.
        Click(dialog.cmdMenuSelect);
        ASSERT_EQ(files.requests.size(), 1u);
        EXPECT_EQ(files.requests[0].folder, "C:\\Pictures");
        EXPECT_EQ(files.requests[0].title, LoadResString(32026));
        EXPECT_EQ(files.requests[0].file, "");
        Click(dialog.cmdOK);
    });
    EXPECT_TRUE(dialog.Display(path));
    EXPECT_EQ(path, "");
}

TEST_F(PictureDialogTest, AChosenFileIsShownAndReturned) {
    MakePicture("C:\\Pictures\\small.png", 40, 20);
    files.choice = "C:\\Pictures\\small.png";
    FormSelectMenuPicture dialog(nullptr);
    std::string path = "C:\\Gone\\old.bmp";
    ModalDriver driver(dialog, [&] {
        EXPECT_FALSE(dialog.picItemHost->ShowsPicture());
        Click(dialog.cmdMenuSelect);
        EXPECT_TRUE(dialog.picItemHost->ShowsPicture());
        const wxSize host = dialog.picItemHost->GetClientSize();
        EXPECT_EQ(dialog.picItemHost->PictureRect(), wxRect((host.x - 40) / 2, (host.y - 20) / 2, 40, 20));
        EXPECT_EQ(TextOf(dialog.lblFile), "C:\\Pictures\\small.png");
        Click(dialog.cmdOK);
    });
    EXPECT_TRUE(dialog.Display(path));
    EXPECT_EQ(path, "C:\\Pictures\\small.png");
}

#ifdef NESK_PORTABLE_STATION
// Windows does not allow such names.
TEST_F(PictureDialogTest, TheNameOfAPictureIsNothingButAName) {
    for (const char* name : {"$(touch hit).png", "|touch hit", ";touch hit;.png", "-o hit.png", "%s%n.png",
                             "<b>&amp;.png", "http:hit.png", "memory:hit.png", "x.zip#zip:hit.png"}) {
        const std::string host = (station.Folder() / name).string();
        wxImage image(8, 8);
        image.SetRGB(wxRect(0, 0, 8, 8), 1, 2, 3);
        ASSERT_TRUE(image.SaveFile(wxString::FromUTF8(host.c_str()), wxBITMAP_TYPE_PNG));
        std::string path = "Z:" + host;
        std::replace(path.begin(), path.end(), '/', '\\');
        FormSelectMenuPicture dialog(nullptr);
        ModalDriver driver(dialog, [&] {
            EXPECT_TRUE(dialog.picItemHost->ShowsPicture()) << name;
            EXPECT_EQ(TextOf(dialog.lblFile), path);
            EXPECT_EQ(FromWx(dialog.picItemHost->GetToolTipText()), path);
            Click(dialog.cmdOK);
        });
        const std::string before = path;
        EXPECT_TRUE(dialog.Display(path));
        EXPECT_EQ(path, before);
    }
    EXPECT_FALSE(std::filesystem::exists("hit"));
}
#endif

TEST_F(PictureDialogTest, CancelAfterChoosingLeavesThePath) {
    MakePicture("C:\\Pictures\\small.png", 40, 20);
    files.choice = "C:\\Pictures\\small.png";
    FormSelectMenuPicture dialog(nullptr);
    std::string path = "C:\\old.bmp";
    ModalDriver driver(dialog, [&] {
        Click(dialog.cmdMenuSelect);
        Press(WXK_ESCAPE);
    });
    EXPECT_FALSE(dialog.Display(path));
    EXPECT_EQ(path, "C:\\old.bmp");
}

TEST_F(PictureDialogTest, DeleteEmptiesThePath) {
    MakePicture("C:\\Pictures\\small.png", 40, 20);
    FormSelectMenuPicture dialog(nullptr);
    std::string path = "C:\\Pictures\\small.png";
    ModalDriver driver(dialog, [&] {
        EXPECT_TRUE(dialog.picItemHost->ShowsPicture());
        Click(dialog.cmdMenuDelete);
        EXPECT_FALSE(dialog.picItemHost->ShowsPicture());
        EXPECT_EQ(TextOf(dialog.lblFile), "");
        Focus(dialog.cmdOK);
        Press(WXK_RETURN);
    });
    EXPECT_TRUE(dialog.Display(path));
    EXPECT_EQ(path, "");
}

TEST_F(PictureDialogTest, AFolderIsNoPictureButIsReturned) {
    FormSelectMenuPicture dialog(nullptr);
    std::string path = "C:\\Pictures\\";
    ModalDriver driver(dialog, [&] {
        EXPECT_FALSE(dialog.picItemHost->ShowsPicture());
        Click(dialog.cmdOK);
    });
    EXPECT_TRUE(dialog.Display(path));
    EXPECT_EQ(path, "C:\\Pictures\\");
}

TEST_F(PictureDialogTest, PicturesOfEveryFormatAreShown) {
    FormSelectMenuPicture dialog(nullptr);
    wxImage image(32, 24);
    image.SetRGB(wxRect(0, 0, 32, 24), 20, 120, 200);
    const struct {
        const char* path;
        wxBitmapType type;
    } formats[] = {{"C:\\Pictures\\a.bmp", wxBITMAP_TYPE_BMP},
                   {"C:\\Pictures\\a.png", wxBITMAP_TYPE_PNG},
                   {"C:\\Pictures\\a.jpg", wxBITMAP_TYPE_JPEG},
                   {"C:\\Pictures\\a.ico", wxBITMAP_TYPE_ICO}};
    for (const auto& format : formats) {
        ASSERT_TRUE(image.SaveFile(wxString::FromUTF8(Host(format.path).c_str()), format.type))
            << format.path;
        dialog.picItemHost->SetPath(format.path);
        EXPECT_TRUE(dialog.picItemHost->ShowsPicture()) << format.path;
        EXPECT_EQ(dialog.picItemHost->PictureRect().GetSize(), wxSize(32, 24)) << format.path;
    }
    // A single red pixel.
    station.Write("C:\\Pictures\\a.gif",
                  std::string("GIF89a\1\0\1\0\x80\0\0\xFF\0\0\0\0\0,\0\0\0\0\1\0\1\0\0\2\2D\1\0;", 35));
    dialog.picItemHost->SetPath("C:\\Pictures\\a.gif");
    EXPECT_TRUE(dialog.picItemHost->ShowsPicture());
    EXPECT_EQ(dialog.picItemHost->PictureRect().GetSize(), wxSize(1, 1));
}

TEST_F(PictureDialogTest, LargePicturesAreSqueezedInThatDirectionAlone) {
    MakePicture("C:\\Pictures\\wide.png", 2000, 20);
    FormSelectMenuPicture dialog(nullptr);
    std::string path = "C:\\Pictures\\wide.png";
    ModalDriver driver(dialog, [&] {
        const wxSize host = dialog.picItemHost->GetClientSize();
        EXPECT_EQ(dialog.picItemHost->PictureRect(), wxRect(0, (host.y - 20) / 2, host.x, 20));
        Click(dialog.cmdCancel);
    });
    dialog.Display(path);
}

TEST_F(PictureDialogTest, DamagedAndHugePicturesDoNoHarm) {
    // A header that claims 20,000 x 20,000 pixels, random bytes, and a truncated picture.
    station.Write("C:\\Pictures\\huge.png",
                  std::string("\x89PNG\r\n\x1A\n\0\0\0\rIHDR\0\0\x4E\x20\0\0\x4E\x20\x08\2\0\0\0", 29));
    std::string noise = "BM";
    for (int i = 0; i < 5000; ++i)
        noise += static_cast<char>(i * 7919 >> 3);
    station.Write("C:\\Pictures\\noise.bmp", noise);
    MakePicture("C:\\Pictures\\whole.png", 300, 300);
    std::ifstream whole(Host("C:\\Pictures\\whole.png"), std::ios::binary);
    std::string bytes(200, '\0');
    whole.read(bytes.data(), 200);
    station.Write("C:\\Pictures\\cut.png", bytes);
    FormSelectMenuPicture dialog(nullptr);
    std::string path;
    ModalDriver driver(dialog, [&] {
        for (const char* name : {"huge.png", "noise.bmp", "cut.png", "x.txt", "missing.bmp"}) {
            dialog.picItemHost->SetPath(std::string("C:\\Pictures\\") + name);
            EXPECT_FALSE(dialog.picItemHost->ShowsPicture()) << name;
        }
        Click(dialog.cmdOK);
    });
    EXPECT_TRUE(dialog.Display(path));
    EXPECT_EQ(path, "C:\\Pictures\\missing.bmp") << "the path is not checked";
}

TEST_F(PictureDialogTest, EveryControlHasItsText) {
    const FormSelectMenuPicture dialog(nullptr);
    const wxWindow* frame = Find(dialog, "Frame1");
    ASSERT_NE(frame, nullptr);
    EXPECT_EQ(FromWx(frame->GetLabel()), LoadResString(32056));
    EXPECT_EQ(TextOf(dialog.cmdMenuSelect), LoadResString(32066));
    EXPECT_EQ(TextOf(dialog.cmdMenuDelete), LoadResString(32065));
    EXPECT_EQ(FromWx(dialog.cmdOK->GetLabel()), LoadResString(32004));
    EXPECT_EQ(FromWx(dialog.cmdCancel->GetLabel()), LoadResString(32005));
    EXPECT_EQ(FromWx(dialog.cmdHelp->GetLabel()), LoadResString(32008));
}

TEST_F(PictureDialogTest, TheFileDialogBeginsWithThePicture) {
    FormSelectMenuPicture dialog(nullptr);
    std::string path = "C:\\Pictures\\x.txt";
    NeskRegistry::Instance().DefaultBitmapDirectory = "C:\\";
    ModalDriver driver(dialog, [&] {
        Click(dialog.cmdMenuSelect);
        ASSERT_EQ(files.requests.size(), 1u);
        EXPECT_EQ(files.requests[0].file, "C:\\Pictures\\x.txt");
        EXPECT_EQ(files.requests[0].folder, "C:\\Pictures\\");
        EXPECT_EQ(files.requests[0].filter, "");
        Click(dialog.cmdCancel);
    });
    dialog.Display(path);
}

TEST_F(PictureDialogTest, OnlyAPictureThatIsThereIsRemoved) {
    FormSelectMenuPicture dialog(nullptr);
    std::string path;
    ModalDriver driver(dialog, [&] {
        EXPECT_FALSE(dialog.cmdMenuDelete->IsEnabled());
        files.choice = "C:\\Pictures\\x.txt";
        Click(dialog.cmdMenuSelect);
        EXPECT_TRUE(dialog.cmdMenuDelete->IsEnabled());
        Click(dialog.cmdMenuDelete);
        EXPECT_FALSE(dialog.cmdMenuDelete->IsEnabled());
        Click(dialog.cmdCancel);
    });
    dialog.Display(path);
}

class EditMenuTest : public PictureDialogTest {
protected:
    EditMenuTest() {
        menu.Initialize("C:\\Neskroot");
        item = &menu.SubMenus().Add("Brackets", "Menu");
        item->SetGraphic("C:\\Pictures\\small.png");
    }
    ~EditMenuTest() override { modMessageBox::SetHook(m_before); }

    Menu menu;
    MenuItem* item = nullptr;
    std::vector<std::string> messages;

private:
    modMessageBox::Hook m_before =
        modMessageBox::SetHook([this](const std::string& text, std::int16_t, const std::string&) {
            messages.push_back(text);
            return modMessageBox::Result::Ok;
        });
};

TEST_F(EditMenuTest, EveryControlHasItsText) {
    FormEditMenu dialog(nullptr);
    EXPECT_EQ(FromWx(dialog.GetTitle()), LoadResString(32041)) << "until it is shown for an item";
    EXPECT_EQ(TextOf(dialog.cmdPicture), LoadResString(32066));
    EXPECT_EQ(TextOf(dialog.cmdDelete), LoadResString(32065));
    EXPECT_EQ(FromWx(dialog.cmdOK->GetLabel()), LoadResString(32004));
    EXPECT_EQ(FromWx(dialog.cmdCancel->GetLabel()), LoadResString(32005));
    EXPECT_EQ(FromWx(dialog.cmdHelp->GetLabel()), LoadResString(32008));
}

TEST_F(EditMenuTest, OkAfterDeleteStoresAnEmptyPicture) {
    FormEditMenu dialog(nullptr);
    ModalDriver driver(dialog, [&] {
        EXPECT_EQ(FromWx(dialog.GetTitle()), "Brackets");
        Click(dialog.cmdDelete);
        Click(dialog.cmdOK);
    });
    EXPECT_EQ(dialog.Edit(*item), "");
    EXPECT_EQ(item->Graphic(), "C:\\Pictures\\small.png") << "the caller stores it";
}

TEST_F(EditMenuTest, CancelLeavesThePictureEvenAfterAnotherWasChosen) {
    MakePicture("C:\\Pictures\\other.png", 10, 10);
    files.choice = "C:\\Pictures\\other.png";
    FormEditMenu dialog(nullptr);
    ModalDriver driver(dialog, [&] {
        Click(dialog.cmdPicture);
        EXPECT_EQ(dialog.picItemHost->Path(), "C:\\Pictures\\other.png");
        Click(dialog.cmdCancel);
    });
    EXPECT_EQ(dialog.Edit(*item), std::nullopt);
    EXPECT_EQ(item->Graphic(), "C:\\Pictures\\small.png");
}

TEST_F(EditMenuTest, OkStoresTheChosenPicture) {
    MakePicture("C:\\Pictures\\other.png", 10, 10);
    files.choice = "C:\\Pictures\\other.png";
    FormEditMenu dialog(nullptr);
    ModalDriver driver(dialog, [&] {
        Click(dialog.cmdPicture);
        Click(dialog.cmdOK);
    });
    EXPECT_EQ(dialog.Edit(*item), "C:\\Pictures\\other.png");
}

TEST_F(EditMenuTest, APathThatCannotBeStoredIsRefused) {
    files.choice = "C:\\Pictures\\\xE6\x97\xA5.png";
    FormEditMenu dialog(nullptr);
    ModalDriver driver(dialog, [&] {
        Click(dialog.cmdPicture);
        Click(dialog.cmdOK);
        ASSERT_TRUE(IsOpen(dialog)) << "the dialog stays open";
        Click(dialog.cmdCancel);
    });
    EXPECT_EQ(dialog.Edit(*item), std::nullopt);
    EXPECT_EQ(item->Graphic(), "C:\\Pictures\\small.png");
    ASSERT_EQ(messages.size(), 1u);
    EXPECT_NE(messages[0].find("\xE6\x97\xA5"), std::string::npos) << messages[0];
}

TEST_F(EditMenuTest, APathThatWasNotChangedIsNotChecked) {
    const std::string strange("C:\\a\0b.png", 10);
    item->SetGraphic(strange);
    FormEditMenu dialog(nullptr);
    ModalDriver driver(dialog, [&] { Click(dialog.cmdOK); });
    EXPECT_TRUE(dialog.Edit(*item) == strange);
    std::string path = strange;
    FormSelectMenuPicture picture(nullptr);
    ModalDriver second(picture, [&] { Click(picture.cmdOK); });
    EXPECT_TRUE(picture.Display(path));
    EXPECT_TRUE(path == strange);
    EXPECT_EQ(messages, std::vector<std::string>{});
}

} // namespace
} // namespace nesk::testing
