#include "platform/windows/PartInfoObject.h"

#include "platform/windows/WideText.h"
#include "unit/FileBytes.h"
#include "unit/platform/windows/ComRegistration.h"

#include <gtest/gtest.h>
#include <limits>
#include <objbase.h>

namespace nesk::platform::windows {
namespace {

using nesk::testing::FileBytes;

const std::string Folder = "C:\\Parts\\Bracket";
const std::string Ini = Folder + "\\partinfo.ini";
const std::string Log = "C:\\log";
const std::string Calls = "C:\\calls";

class PartInfoObjectTest : public ::testing::Test {
protected:
    PartInfoObjectTest() {
        ::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
        station.Write(Ini, "[Part]\r\nName=Bracket\r\n");
        Set(L"NESK_TEST_EDITPIF_LOG", ToWide(Log).c_str());
        Set(L"NESK_TEST_EDITPIF_CALLS", ToWide(Calls).c_str());
        registration.Add(L"FakePartInfoEditor.dll");
    }
    ~PartInfoObjectTest() override {
        object.Release();
        for (const wchar_t* name : {L"LOG", L"CALLS", L"FAIL", L"GONE"})
            Set((std::wstring(L"NESK_TEST_EDITPIF_") + name).c_str(), nullptr);
        ::CoUninitialize();
    }

    static void Set(const wchar_t* name, const wchar_t* value) { ::SetEnvironmentVariableW(name, value); }

    PartInfoResult Edit() { return object.Edit(Folder, Ini, 1031); }

    TempStation station;
    nesk::testing::ComRegistration registration;
    PartInfoObject object{registration.ProgramId()};
};

// The stand-in refuses arguments that are not passed by reference, and any number of arguments except three.
TEST_F(PartInfoObjectTest, HandsOverFolderFileAndLanguage) {
    EXPECT_EQ(PartInfoResult::Done, Edit());
    EXPECT_EQ(Folder + "|" + Ini + "|1031|", FileBytes(Log));
    EXPECT_EQ("[Part]\r\nName=Renamed\r\n", FileBytes(Ini)) << "it is done when the call returns";
}

TEST_F(PartInfoObjectTest, HandsOverEveryCharacter) {
    const std::string folder = "C:\\Parts\\Gehäuse 部品 \U0001F527";
    station.Write(folder + "\\partinfo.ini", "");
    EXPECT_EQ(PartInfoResult::Done, object.Edit(folder, folder + "\\partinfo.ini", 1041));
    EXPECT_EQ(folder + "|" + folder + "\\partinfo.ini|1041|", FileBytes(Log));
}

TEST_F(PartInfoObjectTest, HandsOverEmptyTextsAndEveryNumber) {
    for (const std::int32_t language :
         {std::numeric_limits<std::int32_t>::min(), -1, 0, std::numeric_limits<std::int32_t>::max()}) {
        EXPECT_EQ(PartInfoResult::Done, object.Edit("", "", language));
        EXPECT_EQ("||" + std::to_string(language) + "|", FileBytes(Log));
    }
}

TEST_F(PartInfoObjectTest, KeepsOneObject) {
    for (const char* calls : {"1", "2", "3"}) {
        EXPECT_EQ(PartInfoResult::Done, Edit());
        EXPECT_EQ(calls, FileBytes(Calls)) << "as the object counts them";
    }
}

TEST_F(PartInfoObjectTest, MakesItAnewAfterItWasReleased) {
    object.Release();
    EXPECT_EQ(PartInfoResult::Done, Edit());
    EXPECT_EQ(PartInfoResult::Done, Edit());
    EXPECT_EQ("2", FileBytes(Calls));
    object.Release();
    object.Release();
    EXPECT_EQ(PartInfoResult::Done, Edit());
    EXPECT_EQ("1", FileBytes(Calls));
}

TEST_F(PartInfoObjectTest, AnObjectThatIsNotRegisteredIsMissing) {
    PartInfoObject missing(L"NeskTest.NoSuchObject");
    EXPECT_EQ(PartInfoResult::Missing, missing.Edit(Folder, Ini, 1033));
    PartInfoObject nameless(L"");
    EXPECT_EQ(PartInfoResult::Missing, nameless.Edit(Folder, Ini, 1033));
    registration.RemoveClasses();
    EXPECT_EQ(PartInfoResult::Missing, Edit()) << "a name without its class";
    registration.Add(L"FakePartInfoEditor.dll");
    EXPECT_EQ(PartInfoResult::Done, Edit()) << "registered meanwhile";
}

TEST_F(PartInfoObjectTest, AnObjectWhoseFileIsGoneCannotBeMade) {
    registration.Add(L"NoSuchModule.dll");
    // Windows reports the missing file, so the result is Failed. On Wine the class then counts as not
    // registered.
    EXPECT_NE(PartInfoResult::Done, Edit());
    EXPECT_EQ("", FileBytes(Log));
    EXPECT_EQ("[Part]\r\nName=Bracket\r\n", FileBytes(Ini));
}

TEST_F(PartInfoObjectTest, AMethodThatFails) {
    Set(L"NESK_TEST_EDITPIF_FAIL", L"1");
    EXPECT_EQ(PartInfoResult::Failed, Edit());
    EXPECT_EQ("[Part]\r\nName=Bracket\r\n", FileBytes(Ini));
    Set(L"NESK_TEST_EDITPIF_FAIL", nullptr);
    EXPECT_EQ(PartInfoResult::Done, Edit());
    EXPECT_EQ("2", FileBytes(Calls)) << "the object stayed";
}

TEST_F(PartInfoObjectTest, AnObjectWithoutTheMethod) {
    PartInfoObject other(registration.OtherProgramId());
    EXPECT_EQ(PartInfoResult::Failed, other.Edit(Folder, Ini, 1033));
    EXPECT_EQ("", FileBytes(Log));
}

TEST_F(PartInfoObjectTest, AnObjectThatHasGoneIsMadeAnew) {
    ASSERT_EQ(PartInfoResult::Done, Edit());
    Set(L"NESK_TEST_EDITPIF_GONE", L"find");
    EXPECT_EQ(PartInfoResult::Done, Edit());
    EXPECT_EQ("1", FileBytes(Calls)) << "by another object";
}

TEST_F(PartInfoObjectTest, ACallThatMayHaveBeenMadeIsNotRepeated) {
    ASSERT_EQ(PartInfoResult::Done, Edit());
    Set(L"NESK_TEST_EDITPIF_GONE", L"call");
    EXPECT_EQ(PartInfoResult::Failed, Edit());
    EXPECT_EQ("1", FileBytes(Calls));
}

} // namespace
} // namespace nesk::platform::windows
