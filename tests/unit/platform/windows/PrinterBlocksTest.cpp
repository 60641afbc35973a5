#include "platform/windows/PrinterBlocks.h"

#include <cstring>
#include <gtest/gtest.h>
#include <string_view>
#include <vector>

namespace nesk::platform::windows {
namespace {

constexpr DWORD AllNumbers = DM_ORIENTATION | DM_PAPERSIZE | DM_DEFAULTSOURCE | DM_PRINTQUALITY | DM_SCALE;

HGLOBAL Block(std::string_view bytes) {
    const HGLOBAL block = ::GlobalAlloc(GMEM_MOVEABLE, bytes.size());
    std::memcpy(::GlobalLock(block), bytes.data(), bytes.size());
    ::GlobalUnlock(block);
    return block;
}

template <typename Content>
std::string_view BytesOf(const Content& content) {
    return {reinterpret_cast<const char*>(&content), sizeof content};
}

// A printer that is set to A4 and portrait, and supports none of the other numbers.
DEVMODEA ModeOfAPrinter() {
    DEVMODEA mode{};
    // Windows truncates a name that is too long for the field and adds a zero.
    const std::string_view name = "Printer of the hall, on the left of";
    name.copy(reinterpret_cast<char*>(mode.dmDeviceName), sizeof mode.dmDeviceName - 1);
    mode.dmSize = sizeof mode;
    mode.dmFields = DM_ORIENTATION | DM_PAPERSIZE | DM_COPIES;
    mode.dmOrientation = 1;
    mode.dmPaperSize = 9;
    mode.dmCopies = 3;
    return mode;
}

// Driver, device and port, each with a zero at its end.
HGLOBAL NamesBlock(std::string_view driver, std::string_view device) {
    DEVNAMES names{};
    names.wDriverOffset = sizeof names;
    names.wDeviceOffset = static_cast<WORD>(names.wDriverOffset + driver.size() + 1);
    names.wOutputOffset = static_cast<WORD>(names.wDeviceOffset + device.size() + 1);
    std::string bytes(BytesOf(names));
    bytes.append(driver).append(1, '\0').append(device).append(1, '\0').append("LPT1:").append(1, '\0');
    return Block(bytes);
}

const DEVMODEA& Mode(HGLOBAL block) {
    const auto* const mode = static_cast<const DEVMODEA*>(::GlobalLock(block));
    ::GlobalUnlock(block);
    return *mode;
}

const PrinterValues Chosen{"Laser", "winspool", "2", "8", "15", "-4", "150"};
constexpr const char* LongDevice = "Printer of the hall, on the left of the door";

TEST(PrinterBlocks, AppliesEveryNumber) {
    PrinterBlocks blocks;
    blocks.deviceMode = Block(BytesOf(ModeOfAPrinter()));
    blocks.Apply(Chosen);
    const DEVMODEA& mode = Mode(blocks.deviceMode);
    EXPECT_EQ(2, mode.dmOrientation);
    EXPECT_EQ(8, mode.dmPaperSize);
    EXPECT_EQ(15, mode.dmDefaultSource);
    EXPECT_EQ(DMRES_HIGH, mode.dmPrintQuality);
    EXPECT_EQ(150, mode.dmScale);
    EXPECT_EQ(AllNumbers | DM_COPIES, mode.dmFields);
    EXPECT_EQ(3, mode.dmCopies) << "what is not ours stays";
}

TEST(PrinterBlocks, LeavesAloneWhatIsNoNumber) {
    for (const char* text : {"", "A4", "9x", "x9", " 9", "9 ", "+9", "9.0", "32768", "-32769", "--1"}) {
        PrinterBlocks blocks;
        blocks.deviceMode = Block(BytesOf(ModeOfAPrinter()));
        blocks.Apply({"", "", text, text, text, text, text});
        const DEVMODEA before = ModeOfAPrinter();
        EXPECT_EQ(BytesOf(before), BytesOf(Mode(blocks.deviceMode))) << text;
    }
    PrinterBlocks blocks;
    blocks.deviceMode = Block(BytesOf(ModeOfAPrinter()));
    blocks.Apply({"", "", "", "32767", "-32768", "none", "0"});
    const DEVMODEA& mode = Mode(blocks.deviceMode);
    EXPECT_EQ(32767, mode.dmPaperSize);
    EXPECT_EQ(-32768, mode.dmDefaultSource);
    EXPECT_EQ(0, mode.dmScale);
    EXPECT_EQ(ModeOfAPrinter().dmFields | DM_DEFAULTSOURCE | DM_SCALE, mode.dmFields);
}

TEST(PrinterBlocks, ReadsWhatThePrinterKnows) {
    PrinterBlocks blocks;
    blocks.deviceMode = Block(BytesOf(ModeOfAPrinter()));
    blocks.deviceNames = NamesBlock("winspool", LongDevice);
    const PrinterValues expected{LongDevice, "winspool", "1", "9", "15", "-4", "150"};
    EXPECT_EQ(expected, blocks.Read(Chosen)) << "the names whole, and what it does not know as it was";
    blocks.Apply(Chosen);
    EXPECT_EQ((PrinterValues{LongDevice, "winspool", "2", "8", "15", "-4", "150"}), blocks.Read({}));
}

TEST(PrinterBlocks, ReadsNamesInTheCodePage) {
    PrinterBlocks blocks;
    blocks.deviceNames = NamesBlock("Treiber f\xFCr\x81", "B\xFCro \x80");
    const PrinterValues values = blocks.Read({});
    EXPECT_EQ("Büro €", values.device);
    EXPECT_EQ("Treiber für\u0081", values.driver);
}

TEST(PrinterBlocks, WithoutBlocksNothingChanges) {
    PrinterBlocks blocks;
    blocks.Apply(Chosen);
    EXPECT_EQ(nullptr, blocks.deviceMode);
    EXPECT_EQ(Chosen, blocks.Read(Chosen));
}

// A stand-in for the dialog: the requests that it gets, and its answers.
struct Dialog {
    std::vector<PRINTDLGA> requests;
    bool hasPrinter = true;
    bool confirms = true;
    std::string title;
    std::string note;          // the added text
    int grown = 0;             // by how much the dialog's height grew
    int moved = 0;             // by how much its control moved down
    bool choosesOther = false; // another printer: new blocks replace the given ones
};
Dialog theDialog;

std::string TextOf(HWND window) {
    char text[200]{};
    ::GetWindowTextA(window, text, sizeof text);
    return text;
}

RECT PlaceOf(HWND window) {
    RECT place{};
    ::GetWindowRect(window, &place);
    return place;
}

BOOL WINAPI Answer(PRINTDLGA* request) {
    theDialog.requests.push_back(*request);
    if (request->Flags == PD_RETURNDEFAULT) {
        if (!theDialog.hasPrinter) return FALSE;
        request->hDevMode = Block(BytesOf(ModeOfAPrinter()));
        request->hDevNames = NamesBlock("winspool", "Default");
        return TRUE;
    }
    // The dialog's actions once its window exists.
    const HWND window = ::CreateWindowA("STATIC", "Print Setup", WS_POPUP, 0, 0, 200, 100, nullptr, nullptr,
                                        nullptr, nullptr);
    const HWND button =
        ::CreateWindowA("BUTTON", "OK", WS_CHILD, 20, 30, 40, 20, window, nullptr, nullptr, nullptr);
    request->lpfnSetupHook(window, WM_INITDIALOG, 0, reinterpret_cast<LPARAM>(request));
    theDialog.title = TextOf(window);
    theDialog.grown = PlaceOf(window).bottom - 100;
    theDialog.moved = PlaceOf(button).top - 30;
    if (const HWND first = ::GetWindow(window, GW_CHILD); first != button) theDialog.note = TextOf(first);
    ::DestroyWindow(window);
    // The dialog receives the current values before it is confirmed or cancelled.
    if (theDialog.hasPrinter) {
        auto* const mode = static_cast<DEVMODEA*>(::GlobalLock(request->hDevMode));
        EXPECT_EQ(2, mode->dmOrientation);
        mode->dmPaperSize = 11;
        ::GlobalUnlock(request->hDevMode);
    }
    if (theDialog.choosesOther) {
        ::GlobalFree(request->hDevMode);
        ::GlobalFree(request->hDevNames);
        DEVMODEA mode = ModeOfAPrinter();
        mode.dmFields = DM_SCALE;
        mode.dmScale = 70;
        request->hDevMode = Block(BytesOf(mode));
        request->hDevNames = NamesBlock("other driver", "Other");
    }
    return theDialog.confirms ? TRUE : FALSE;
}

class AskForPrinterTest : public ::testing::Test {
protected:
    AskForPrinterTest() { theDialog = {}; }

    static bool IsHere(const std::string&) { return true; }
    static bool IsMissing(const std::string&) { return false; }

    PrinterSetupResult Ask(PrinterExistsFunction exists = IsHere, HWND owner = nullptr) {
        return AskForPrinter(owner, values, {"Printer setup", "Laser is missing", ""}, Answer, exists);
    }

    PrinterValues values = Chosen;
};

TEST_F(AskForPrinterTest, BeginsWithTheDefaultPrinter) {
    const HWND owner = ::GetDesktopWindow();
    EXPECT_EQ(PrinterSetupResult::Confirmed, Ask(IsHere, owner));
    ASSERT_EQ(2U, theDialog.requests.size());
    const PRINTDLGA& first = theDialog.requests[0];
    EXPECT_EQ(sizeof(PRINTDLGA), first.lStructSize);
    EXPECT_EQ(DWORD{PD_RETURNDEFAULT}, first.Flags);
    EXPECT_EQ(nullptr, first.hDevMode) << "as that flag asks for";
    EXPECT_EQ(nullptr, first.hDevNames);
    const PRINTDLGA& second = theDialog.requests[1];
    EXPECT_EQ(DWORD{PD_PRINTSETUP | PD_ENABLESETUPHOOK | PD_ENABLEPRINTHOOK}, second.Flags);
    EXPECT_EQ(second.lpfnSetupHook, second.lpfnPrintHook) << "which of them is called depends on the system";
    EXPECT_EQ(owner, second.hwndOwner);
    EXPECT_NE(nullptr, second.hDevMode);
    EXPECT_EQ((PrinterValues{"Default", "winspool", "2", "11", "15", "-4", "150"}), values);
}

TEST_F(AskForPrinterTest, AnotherPrinterIsChosen) {
    theDialog.choosesOther = true;
    EXPECT_EQ(PrinterSetupResult::Confirmed, Ask());
    EXPECT_EQ((PrinterValues{"Other", "other driver", "2", "8", "15", "-4", "70"}), values);
}

TEST_F(AskForPrinterTest, AnotherThanTheMissingPrinterIsChosenOnPurposeOrNot) {
    EXPECT_EQ(PrinterSetupResult::StandIn, Ask(IsMissing)) << "the default printer, which was offered";
    EXPECT_EQ("Default", values.device);
    values = Chosen;
    theDialog.choosesOther = true;
    EXPECT_EQ(PrinterSetupResult::Confirmed, Ask(IsMissing));
    theDialog = {};
    values = {"", "", "2", "8", "15", "-4", "150"};
    EXPECT_EQ(PrinterSetupResult::Confirmed, Ask(IsMissing)) << "none was stored";
}

TEST_F(AskForPrinterTest, ALineAboveTheDialogNamesTheMissingPrinter) {
    Ask(IsHere);
    EXPECT_EQ("Printer setup", theDialog.title);
    EXPECT_EQ("", theDialog.note);
    EXPECT_EQ(0, theDialog.grown);
    EXPECT_EQ(0, theDialog.moved);
    theDialog = {};
    values = Chosen;
    Ask(IsMissing);
    EXPECT_EQ("Printer setup", theDialog.title);
    EXPECT_EQ("Laser is missing", theDialog.note);
    EXPECT_GT(theDialog.grown, 10) << "a line of text";
    EXPECT_EQ(theDialog.grown, theDialog.moved);
}

TEST_F(AskForPrinterTest, APrinterThatNobodyInstalledIsMissing) {
    EXPECT_FALSE(PrinterExists("No printer of this machine has such a name"));
}

TEST_F(AskForPrinterTest, ACancelledDialogKeepsTheValues) {
    theDialog.confirms = false;
    EXPECT_EQ(PrinterSetupResult::Cancelled, Ask());
    EXPECT_EQ(2U, theDialog.requests.size());
    EXPECT_EQ(Chosen, values);
    theDialog.choosesOther = true;
    EXPECT_EQ(PrinterSetupResult::Cancelled, Ask());
    EXPECT_EQ(Chosen, values);
}

TEST_F(AskForPrinterTest, WithoutAnyPrinterTheDialogSaysSo) {
    theDialog.hasPrinter = false;
    theDialog.confirms = false;
    EXPECT_EQ(PrinterSetupResult::Cancelled, Ask());
    ASSERT_EQ(2U, theDialog.requests.size()) << "it is shown all the same";
    EXPECT_EQ(nullptr, theDialog.requests[1].hDevMode);
    EXPECT_EQ(Chosen, values);
    theDialog.confirms = true;
    EXPECT_EQ(PrinterSetupResult::Confirmed, Ask());
    EXPECT_EQ(Chosen, values);
}

} // namespace
} // namespace nesk::platform::windows
