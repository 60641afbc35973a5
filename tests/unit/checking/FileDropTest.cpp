#include "checking/FileDrop.h"

#include "unit/checking/CheckingFixture.h"
#include "unit/checking/FakeInspector.h"

#include <chrono>
#include <memory>
#include <thread>

namespace nesk {
namespace {

using Action = FileDrop::Action;
using State = FileFacts::State;

class FileDropTest : public testing::CheckingTest {
protected:
    FileDropTest() {
        part = Part("R", "Housing");
        submenu = editor.AddSubmenu("R", "Brackets");
        inspector->Block("D:");
    }
    ~FileDropTest() override { inspector->ComeBack("D:"); }

    // What is known of paths on D: while the drive does not answer.
    std::unique_ptr<FileDrop> Unknown(const std::vector<std::string>& names) {
        std::vector<std::string> paths;
        for (const std::string& name : names)
            paths.push_back("D:\\" + name);
        return std::make_unique<FileDrop>(paths, inspector);
    }

    // A drop of files that were looked at.
    std::unique_ptr<FileDrop> Known(const std::vector<std::pair<std::string, State>>& files) {
        std::vector<std::string> paths;
        for (const auto& [path, state] : files) {
            inspector->Set(path, {state, ""});
            paths.push_back(path);
        }
        auto drop = std::make_unique<FileDrop>(paths, inspector);
        drop->LookNow();
        return drop;
    }

    static std::string TextOf(const FileDrop::Effect& effect, Action action) {
        EXPECT_EQ(static_cast<int>(effect.action), static_cast<int>(action)) << effect.text;
        return effect.text;
    }
    std::string On(const std::unique_ptr<FileDrop>& drop, const std::string& id, Action action) {
        return TextOf(drop->At(*editor.Find(id)), action);
    }
    static std::string OnBox(const std::unique_ptr<FileDrop>& drop, Action action) {
        return TextOf(drop->OnPictureBox(), action);
    }

    std::shared_ptr<testing::FakeInspector> inspector = std::make_shared<testing::FakeInspector>();
    std::string part;
    std::string submenu;
};

TEST_F(FileDropTest, WhileADriveDoesNotAnswerTheNameDecides) {
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(On(Unknown({"Pictures\\a.PNG"}), part, Action::SetPicture),
              "Makes a.PNG the picture of \"Housing\".");
    On(Unknown({"a.JPEG"}), submenu, Action::SetPicture);
    EXPECT_EQ(On(Unknown({"Parts\\A\\PartInfo.ini"}), submenu, Action::AddParts),
              "Adds the part programs of PartInfo.ini to \"Brackets\".");
    EXPECT_EQ(On(Unknown({"Parts"}), submenu, Action::Look),
              "Whether Parts can be dropped here is decided when it is dropped.");
    On(Unknown({"Parts"}), part, Action::Look);
    OnBox(Unknown({"Parts"}), Action::Look);
    OnBox(Unknown({"a.png"}), Action::SetPicture);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(8)) << "nothing waits for D:";
}

TEST_F(FileDropTest, TheAnswerComesDuringTheDrag) {
    inspector->Set("D:\\a.png", {State::NoPicture, ""});
    FileDrop drop({"D:\\a.png"}, inspector);
    EXPECT_EQ(drop.At(Item(part)).action, Action::SetPicture);
    inspector->ComeBack("D:");
    const auto limit = std::chrono::steady_clock::now() + std::chrono::seconds(10);
    while (drop.At(Item(part)).action != Action::Refuse && std::chrono::steady_clock::now() < limit)
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    EXPECT_EQ(TextOf(drop.At(Item(part)), Action::Refuse),
              "a.png is not a picture that can be shown. It must be a BMP, PNG, JPEG, GIF or ICO file.");
}

TEST_F(FileDropTest, APictureIsForEveryEntryAndForABox) {
    const std::string path = "C:\\P\\logo"; // a picture is known by its content
    EXPECT_EQ(On(Known({{path, State::Good}}), part, Action::SetPicture),
              "Makes C:\\P\\logo the picture of \"Housing\".");
    On(Known({{path, State::Good}}), submenu, Action::SetPicture);
    On(Known({{path, State::Good}}), "R", Action::SetPicture);
    EXPECT_EQ(OnBox(Known({{path, State::Good}}), Action::SetPicture), "Makes C:\\P\\logo the picture.");
}

TEST_F(FileDropTest, FoldersAndPartInfosAreForSubmenus) {
    const std::pair<std::string, State> folder{"C:\\Parts", State::WrongKind};
    const std::pair<std::string, State> info{"C:\\Parts\\A\\partinfo.ini", State::NoPicture};
    EXPECT_EQ(On(Known({folder}), submenu, Action::AddParts),
              "Adds the part programs of C:\\Parts to \"Brackets\".");
    On(Known({info}), "R", Action::AddParts);
    EXPECT_EQ(On(Known({folder, info}), submenu, Action::AddParts),
              "Adds the part programs of 2 folders to \"Brackets\".");
    for (const auto& dropped : {folder, info}) {
        EXPECT_EQ(On(Known({dropped}), part, Action::Refuse),
                  "\"Housing\" is a part. Part programs can be added to a submenu only.");
        EXPECT_EQ(OnBox(Known({dropped}), Action::Refuse),
                  dropped.first + " is not a picture. Only a picture can be dropped here.");
    }
}

TEST_F(FileDropTest, BesideTheEntriesPartsCanBeAdded) {
    const auto folder = Known({{"C:\\Parts", State::WrongKind}});
    EXPECT_EQ(folder->At(*editor.OpenMenu(), false).action, Action::AddParts);
    const auto picture = Known({{"C:\\a.png", State::Good}});
    EXPECT_EQ(TextOf(picture->At(*editor.OpenMenu(), false), Action::Refuse),
              "There is no entry here. Drop the picture on the entry that it is for.");
}

TEST_F(FileDropTest, EachRefusalHasAReason) {
    const std::pair<std::string, State> picture{"C:\\a.png", State::Good};
    const std::pair<std::string, State> other{"C:\\b.png", State::Good};
    const std::pair<std::string, State> folder{"C:\\Parts", State::WrongKind};
    EXPECT_EQ(On(Known({picture, other}), part, Action::Refuse),
              "Several pictures cannot be the picture of one button. Drop one picture.");
    OnBox(Known({picture, other}), Action::Refuse);
    EXPECT_EQ(
        On(Known({picture, folder}), submenu, Action::Refuse),
        "Pictures and folders cannot be dropped together. Drop one picture, or folders with part programs.");
    EXPECT_EQ(On(Known({{"C:\\x.txt", State::NoPicture}}), part, Action::Refuse),
              "C:\\x.txt is neither a picture nor a part program.");
    EXPECT_EQ(On(Known({{"C:\\x.iso", State::TooLarge}}), submenu, Action::Refuse),
              "C:\\x.iso is neither a picture nor a part program.");
    EXPECT_EQ(OnBox(Known({{"C:\\x.txt", State::NoPicture}}), Action::Refuse),
              "C:\\x.txt is not a picture. Only a picture can be dropped here.");
    EXPECT_EQ(OnBox(Known({{"C:\\x.bmp", State::NoPicture}}), Action::Refuse),
              "C:\\x.bmp is not a picture that can be shown. It must be a BMP, PNG, JPEG, GIF or ICO file.");
    EXPECT_EQ(On(Known({{"C:\\x.bmp", State::TooLarge}}), part, Action::Refuse),
              "The picture C:\\x.bmp is too large to be shown. Use one with fewer pixels.");
    EXPECT_EQ(On(Known({{"C:\\x.bmp", State::Missing}}), part, Action::Refuse),
              "C:\\x.bmp does not exist, or cannot be reached.");
    EXPECT_EQ(On(Known({{"C:\\x.bmp", State::Unreadable}}), part, Action::Refuse),
              "C:\\x.bmp could not be read. Check its access rights.");
    EXPECT_EQ(On(Known({folder, {"C:\\x.txt", State::NoPicture}}), submenu, Action::Refuse),
              "C:\\x.txt is neither a picture nor a part program.");
    EXPECT_EQ(On(Known({}), submenu, Action::Refuse),
              "Only files and folders of this computer and its network drives can be dropped here.");
}

TEST_F(FileDropTest, APathThatTheMenuCannotStoreIsRefused) {
    const std::string path = "C:\\\xE6\x97\xA5.png";
    EXPECT_NE(On(Known({{path, State::Good}}), part, Action::Refuse).find("\xE6\x97\xA5"), std::string::npos);
    EXPECT_NE(OnBox(Known({{path, State::Good}}), Action::Refuse).find("\xE6\x97\xA5"), std::string::npos);
}

TEST_F(FileDropTest, TheFilesOfTheStationAreLookedAt) {
    station.Write("C:\\P\\a.png", std::string("\x89PNG\r\n\x1A\n\0\0\0\rIHDR\0\0\0\x10\0\0\0\x10", 24));
    station.Write("C:\\P\\a.txt", "text");
    const auto action = [this](const std::string& path) {
        FileDrop drop({path});
        drop.LookNow();
        return drop.At(Item(submenu)).action;
    };
    EXPECT_EQ(action("C:\\P\\a.png"), Action::SetPicture);
    EXPECT_EQ(action("C:\\P"), Action::AddParts);
    EXPECT_EQ(action("C:\\P\\"), Action::AddParts);
    EXPECT_EQ(action("C:\\P\\a.txt"), Action::Refuse);
    EXPECT_EQ(action("C:\\P\\missing.png"), Action::Refuse);
    EXPECT_EQ(action("smb://server/share/a.png"), Action::Refuse);
}

} // namespace
} // namespace nesk
