#include "settings/FormDirectories.h"

#include "gui/PartDialogFixture.h"
#include "partedit/FormBrowse.h"
#include "partedit/FormFolderTree.h"
#include "partedit/FormSelectHistory.h"
#include "settings/FormSelectMachine.h"
#include "settings/FormSelectUser.h"
#include "settings/NeskRegistry.h"
#include "settings/RegEntry.h"
#include "shell/modStringRes.h"
#include "widgets/UiUtilities.h"

#include <filesystem>

#include <wx/button.h>
#include <wx/listbox.h>
#include <wx/settings.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>
#include <wx/utils.h>

namespace nesk::testing {
namespace {

using modStringRes::LoadResString;
using modUtilities::FromWx;

class FormDirectoriesTest : public PartDialogTest {
protected:
    FormDirectoriesTest() {
        for (const char* folder : {"Root", "Slides", "Pictures", "History", "Other"})
            station.Write(std::string("C:\\") + folder + "\\x.txt", "");
        Add("Machines\\M1", "Bridge");
        Add("Machines\\M2", "Gantry");
        Add("Users\\U1", "Smith");
        Add("Users\\U2", "Jones");
        NeskRegistry& settings = NeskRegistry::Instance();
        settings.NeskRoot = "C:\\Root";
        settings.DefaultSlideDirectory = "C:\\Slides";
        settings.DefaultBitmapDirectory = "C:\\Pictures";
        settings.NeskMachine = "Machines\\M1";
        settings.NeskUser = "Users\\U1";
        settings.HistoryDirectory = "C:\\History";
        settings.HistoryTitle = "Bolts";
        settings.HistoryMaxParts = 20;
        settings.SampleSize = 5;
    }
    ~FormDirectoriesTest() override { NeskRegistry::Instance() = NeskRegistry(); }

    static void Add(const std::string& key, const std::string& displayName) {
        RegEntry entry;
        entry.CreateKey(key);
        entry.SetString("Name", displayName);
    }

    // Shows the dialog, runs an action on it, closes it if the action did not, and returns its answer.
    bool Show(const std::function<void(FormDirectories&)>& act, bool mayMakeRoot = false) {
        WhenShown<FormDirectories>("FormDirectories", [act](FormDirectories& form) {
            act(form);
            if (IsOpen(form)) Click(form.cmdCancel);
        });
        return FormDirectories(nullptr).Invoke(mayMakeRoot);
    }

    // Confirms and expects a message about a box, which then gets the focus.
    void Refused(FormDirectories& form, wxTextCtrl* box, const std::string& text) {
        Focus(form.cmdOK);
        Expect();
        Click(form.cmdOK);
        ASSERT_FALSE(messages.empty());
        EXPECT_EQ(messages.back().text, text);
        EXPECT_EQ(messages.back().options, 48);
        EXPECT_EQ(messages.back().title, LoadResString(32067));
        EXPECT_TRUE(IsOpen(form));
        EXPECT_TRUE(WaitUntil([box] { return box->HasFocus(); })) << FromWx(box->GetName());
    }

    static std::string Selected(wxTextCtrl* box) { return FromWx(box->GetStringSelection()); }

    // A setting as stored in the registry; "" if it is missing.
    static std::string Saved(const std::string& name) {
        RegEntry entry;
        if (!entry.TestKey("Neskworks")) return "";
        entry.OpenKey("Neskworks");
        return entry.GetString(name);
    }
};

TEST_F(FormDirectoriesTest, ShowsTextsAndSettings) {
    const bool confirmed = Show([](FormDirectories& form) {
        EXPECT_EQ(FromWx(form.GetTitle()), LoadResString(32035));
        const std::pair<wxWindow*, int> texts[] = {
            {form.lblRoot, 32036},       {form.lblSlides, 32038},  {form.lblBitmap, 32074},
            {form.lblMachine, 32039},    {form.lblUser, 32040},    {form.lblMaxParts, 32087},
            {form.lblSampleSize, 32088}, {form.cmdHistory, 32083}, {form.cmdPrinter, 32082},
            {form.cmdOK, 32004},         {form.cmdCancel, 32005},  {form.cmdHelp, 32008},
        };
        for (const auto& [control, text] : texts)
            EXPECT_EQ(FromWx(control->GetLabel()), LoadResString(text));
        EXPECT_EQ(form.txtRoot->GetValue(), "C:\\Root");
        EXPECT_EQ(form.txtSlides->GetValue(), "C:\\Slides");
        EXPECT_EQ(form.txtBitmap->GetValue(), "C:\\Pictures");
        EXPECT_EQ(form.txtMachine->GetValue(), "Bridge");
        EXPECT_EQ(form.txtUser->GetValue(), "Smith");
        EXPECT_EQ(form.txtMaxParts->GetValue(), "20");
        EXPECT_EQ(form.txtSampleSize->GetValue(), "5");
        EXPECT_TRUE(form.txtMaxParts->IsEnabled());
        EXPECT_TRUE(form.txtSampleSize->IsEnabled());
        for (const char* name : {"lblRoot", "txtRoot", "cmdRoot", "cmdSlides", "cmdBitmap", "cmdMachine",
                                 "cmdUser", "txtMaxParts", "txtSampleSize", "cmdHistory", "cmdPrinter"})
            Find(form, name);
        EXPECT_EQ(TabOrder(),
                  "txtRoot cmdRoot txtSlides cmdSlides txtBitmap cmdBitmap txtMachine cmdMachine "
                  "txtUser cmdUser txtMaxParts txtSampleSize cmdHistory cmdPrinter cmdOK cmdCancel "
                  "cmdHelp");
    });
    EXPECT_FALSE(confirmed);
}

TEST_F(FormDirectoriesTest, AClickIntoANumberSelectsIt) {
    Show([](FormDirectories& form) {
        ClickInto(form.txtMaxParts);
        EXPECT_TRUE(form.txtMaxParts->HasFocus());
        EXPECT_EQ(Selected(form.txtMaxParts), "20");
        Type("7");
        EXPECT_EQ(form.txtMaxParts->GetValue(), "7");
        // A click into a box that already has the focus sets the caret to the clicked position.
        Type("5");
        constexpr int longerThanADoubleClick = 700;
        wxMilliSleep(longerThanADoubleClick);
        ClickInto(form.txtMaxParts);
        EXPECT_EQ(Selected(form.txtMaxParts), "");
        ClickInto(form.txtSampleSize);
        EXPECT_EQ(Selected(form.txtSampleSize), "5");
    });
}

TEST_F(FormDirectoriesTest, MachineAndUserLookAsTheyCannotBeTyped) {
    Show([](FormDirectories& form) {
        const wxColour plain = wxSystemSettings::GetColour(wxSYS_COLOUR_BTNFACE);
        for (wxTextCtrl* box : {form.txtMachine, form.txtUser}) {
            EXPECT_FALSE(box->IsEditable());
            EXPECT_EQ(box->GetBackgroundColour(), plain) << FromWx(box->GetName());
        }
        EXPECT_NE(form.txtRoot->GetBackgroundColour(), plain) << "otherwise nothing is told by it";
    });
}

TEST_F(FormDirectoriesTest, AccessKeysLeadToTheBoxes) {
    Show([](FormDirectories& form) {
        const std::pair<int, wxWindow*> keys[] = {
            {'S', form.txtSlides},   {'P', form.txtBitmap},     {'M', form.txtMachine}, {'U', form.txtUser},
            {'N', form.txtMaxParts}, {'Z', form.txtSampleSize}, {'R', form.txtRoot}};
        for (const auto& [key, box] : keys) {
            Press(key, wxMOD_ALT);
            EXPECT_TRUE(box->HasFocus()) << FromWx(box->GetName());
        }
    });
}

TEST_F(FormDirectoriesTest, EnterStoresWhatWasTyped) {
    const bool confirmed = Show([](FormDirectories& form) {
        Focus(form.txtRoot);
        form.txtRoot->SelectAll();
        Type("C:\\Other\\");
        Press('N', wxMOD_ALT);
        EXPECT_EQ(Selected(form.txtMaxParts), "20") << "gaining the focus selects the number";
        Type("30");
        Press(WXK_TAB);
        EXPECT_EQ(Selected(form.txtSampleSize), "5");
        Type("7");
        Press(WXK_RETURN);
        EXPECT_TRUE(WaitUntil([&] { return !IsOpen(form); }));
    });
    EXPECT_TRUE(confirmed);
    const NeskRegistry& settings = NeskRegistry::Instance();
    EXPECT_EQ(settings.NeskRoot, "C:\\Other");
    EXPECT_EQ(settings.HistoryMaxParts, 30);
    EXPECT_EQ(settings.SampleSize, 7);
    EXPECT_EQ(Saved("NeskRoot"), "C:\\Other");
    EXPECT_EQ(Saved("HistoryMaxParts"), "30");
    EXPECT_EQ(Saved("SampleSize"), "7");
    EXPECT_EQ(Saved("NeskMachine"), "Machines\\M1");
}

TEST_F(FormDirectoriesTest, EscapeStoresNothing) {
    const bool confirmed = Show([](FormDirectories& form) {
        Type("C:\\Other");
        Press(WXK_ESCAPE);
        EXPECT_FALSE(IsOpen(form));
    });
    EXPECT_FALSE(confirmed);
    EXPECT_EQ(NeskRegistry::Instance().NeskRoot, "C:\\Root");
    EXPECT_EQ(Saved("NeskRoot"), "");
}

TEST_F(FormDirectoriesTest, FaultsKeepTheDialogOpen) {
    const bool confirmed = Show([this](FormDirectories& form) {
        const std::string check = LoadResString(32067) + " ";
        Fill(form.txtRoot, "C:\\Gone");
        Fill(form.txtSlides, "");
        Fill(form.txtBitmap, "C:\\Root\\x.txt");
        // Nobody can type into these two. They are empty until something is chosen.
        form.txtMachine->SetValue("");
        form.txtUser->SetValue("");
        Fill(form.txtMaxParts, "1000");
        Fill(form.txtSampleSize, "0021");
        Refused(form, form.txtRoot, check + "Root folder");
        EXPECT_EQ(form.txtRoot->GetValue(), "C:\\Gone") << "everything stays as typed";
        Fill(form.txtRoot, "C:\\Root");
        Refused(form, form.txtSlides, check + "Slide folder");
        Fill(form.txtSlides, "C:\\Slides");
        Refused(form, form.txtBitmap, check + "Picture folder");
        Fill(form.txtBitmap, "C:\\Pictures");
        Refused(form, form.txtMachine, check + "Machine");
        form.txtMachine->SetValue("Bridge");
        Refused(form, form.txtUser, check + "User");
        form.txtUser->SetValue("Smith");
        Refused(form, form.txtMaxParts, LoadResString(32086));
        EXPECT_EQ(form.txtMaxParts->GetValue(), "1000");
        EXPECT_EQ(Selected(form.txtMaxParts), "1000");
        Fill(form.txtMaxParts, "");
        Refused(form, form.txtMaxParts, LoadResString(32086));
        EXPECT_EQ(form.txtMaxParts->GetValue(), "0");
        Fill(form.txtMaxParts, "20");
        Refused(form, form.txtSampleSize, check + "Sample size");
        EXPECT_EQ(form.txtSampleSize->GetValue(), "21");
        EXPECT_EQ(Selected(form.txtSampleSize), "21");
        // A fault found while its own box has the focus also selects the number.
        Fill(form.txtSampleSize, "1");
        form.txtSampleSize->SetInsertionPointEnd();
        Expect();
        Press(WXK_RETURN);
        EXPECT_TRUE(WaitUntil([&] { return Selected(form.txtSampleSize) == "1"; }));
        EXPECT_EQ(messages.size(), 9u);
    });
    EXPECT_FALSE(confirmed);
    EXPECT_EQ(Saved("NeskRoot"), "");
    EXPECT_EQ(NeskRegistry::Instance().SampleSize, 5);
}

TEST_F(FormDirectoriesTest, OnlyDigitsCanBeTypedIntoTheNumbers) {
    Show([](FormDirectories& form) {
        for (wxTextCtrl* box : {form.txtMaxParts, form.txtSampleSize}) {
            Focus(box);
            box->SelectAll();
            Type("1a-.2,3 ");
            EXPECT_EQ(box->GetValue(), "123");
            Press(WXK_BACK);
            EXPECT_EQ(box->GetValue(), "12");
        }
    });
}

TEST_F(FormDirectoriesTest, NamesCannotBeTyped) {
    Show([](FormDirectories& form) {
        Focus(form.txtMachine);
        Type("x");
        EXPECT_EQ(form.txtMachine->GetValue(), "Bridge");
        EXPECT_TRUE(form.txtUser->HasFlag(wxTE_READONLY));
    });
}

TEST_F(FormDirectoriesTest, WithoutAHistoryTheNumbersAreNotUsed) {
    NeskRegistry::Instance().HistoryDirectory = " ";
    const bool confirmed = Show([](FormDirectories& form) {
        EXPECT_FALSE(form.txtMaxParts->IsEnabled());
        EXPECT_FALSE(form.txtSampleSize->IsEnabled());
        EXPECT_EQ(form.txtMaxParts->GetValue(), "0");
        EXPECT_EQ(form.txtSampleSize->GetValue(), "0");
        Click(form.cmdOK);
    });
    EXPECT_TRUE(confirmed);
    EXPECT_EQ(NeskRegistry::Instance().HistoryMaxParts, 0);
    EXPECT_EQ(NeskRegistry::Instance().SampleSize, 0);
}

TEST_F(FormDirectoriesTest, TheHistoryDialogSwitchesTheNumbers) {
    const bool confirmed = Show([this](FormDirectories& form) {
        Fill(form.txtMaxParts, "44");
        // Confirmed without a change: the typed text stays.
        WhenShown<FormSelectHistory>("FormSelectHistory", [](FormSelectHistory& history) {
            EXPECT_EQ(history.txtHistoryDir->GetValue(), "C:\\History");
            EXPECT_EQ(history.txtHistoryTitle->GetValue(), "Bolts");
            EXPECT_EQ(FromWx(history.cmdDefault->GetLabel()), LoadResString(32094));
            Click(history.cmdOK);
        });
        Click(form.cmdHistory);
        EXPECT_EQ(form.txtMaxParts->GetValue(), "44");
        // The history is removed.
        WhenShown<FormSelectHistory>("FormSelectHistory",
                                     [](FormSelectHistory& history) { Click(history.cmdDefault); });
        Click(form.cmdHistory);
        EXPECT_FALSE(form.txtMaxParts->IsEnabled());
        EXPECT_FALSE(form.txtSampleSize->IsEnabled());
        EXPECT_EQ(form.txtMaxParts->GetValue(), "0");
        // Another history: the numbers must be entered again.
        WhenShown<FormSelectHistory>("FormSelectHistory", [](FormSelectHistory& history) {
            EXPECT_EQ(history.txtHistoryDir->GetValue(), "");
            Fill(history.txtHistoryDir, "C:\\Other");
            Fill(history.txtHistoryTitle, "Nuts");
            Click(history.cmdOK);
        });
        Click(form.cmdHistory);
        EXPECT_TRUE(form.txtMaxParts->IsEnabled());
        EXPECT_TRUE(form.txtSampleSize->IsEnabled());
        EXPECT_EQ(form.txtMaxParts->GetValue(), "0");
        Fill(form.txtMaxParts, "0.6");
        Fill(form.txtSampleSize, "-3");
        Click(form.cmdOK);
    });
    EXPECT_TRUE(confirmed);
    EXPECT_EQ(Saved("HistoryDirectory"), "C:\\Other");
    EXPECT_EQ(Saved("HistoryTitle"), "Nuts");
    EXPECT_EQ(Saved("HistoryMaxParts"), "1");
    EXPECT_EQ(Saved("SampleSize"), "-3");
}

TEST_F(FormDirectoriesTest, FoldersAreBrowsedFor) {
    const bool confirmed = Show([this](FormDirectories& form) {
        struct Row {
            wxButton* button;
            wxTextCtrl* box;
            int prompt;
        };
        for (const Row& row :
             {Row{form.cmdRoot, form.txtRoot, 32023}, Row{form.cmdSlides, form.txtSlides, 32024},
              Row{form.cmdBitmap, form.txtBitmap, 32073}}) {
            const std::string before = TextOf(row.box);
            const auto check = [before, row](FormBrowse& browse) {
                EXPECT_EQ(TextOf(browse.lblPrompt), LoadResString(row.prompt));
                EXPECT_EQ(browse.Dir1->Path(), before);
            };
            WhenShown<FormBrowse>("FormBrowse", [check](FormBrowse& browse) {
                check(browse);
                browse.Dir1->SetPath("C:\\Other");
                Click(browse.cmdCancel);
            });
            Click(row.button);
            EXPECT_EQ(TextOf(row.box), before);
            WhenShown<FormBrowse>("FormBrowse", [check](FormBrowse& browse) {
                check(browse);
                browse.Dir1->SetPath("C:\\Other");
                Click(browse.cmdOK);
            });
            Click(row.button);
            EXPECT_EQ(row.box->GetValue(), "C:\\Other\\");
            EXPECT_EQ(row.box->GetToolTipText(), "C:\\Other\\");
        }
        Click(form.cmdOK);
    });
    EXPECT_TRUE(confirmed);
    EXPECT_EQ(Saved("NeskRoot"), "C:\\Other");
    EXPECT_EQ(Saved("DefaultSlideDirectory"), "C:\\Other");
    EXPECT_EQ(Saved("DefaultBitmapDirectory"), "C:\\Other");
}

TEST_F(FormDirectoriesTest, MachineAndUserAreChosen) {
    const auto choose = [this](FormDirectories& form) {
        WhenShown<FormSelectMachine>("FormSelectMachine", [](FormSelectMachine& list) {
            EXPECT_EQ(list.lstMain->GetStringSelection(), "Bridge") << "the one that is set";
            Choose(list.lstMain, "Gantry");
            Click(list.cmdOK);
        });
        Click(form.cmdMachine);
        EXPECT_EQ(form.txtMachine->GetValue(), "Gantry");
        WhenShown<FormSelectUser>("FormSelectUser", [](FormSelectUser& list) {
            EXPECT_EQ(list.lstMain->GetStringSelection(), "Smith");
            Choose(list.lstMain, "Jones");
            Click(list.cmdOK);
        });
        Click(form.cmdUser);
        EXPECT_EQ(form.txtUser->GetValue(), "Jones");
    };
    EXPECT_FALSE(Show([&](FormDirectories& form) {
        choose(form);
        Click(form.cmdCancel);
    }));
    EXPECT_EQ(NeskRegistry::Instance().NeskMachine, "Machines\\M1");
    EXPECT_EQ(NeskRegistry::Instance().NeskUser, "Users\\U1");
    EXPECT_TRUE(Show([&](FormDirectories& form) {
        choose(form);
        // A cancelled choice changes nothing.
        WhenShown<FormSelectMachine>("FormSelectMachine",
                                     [](FormSelectMachine& list) { Click(list.cmdCancel); });
        Click(form.cmdMachine);
        WhenShown<FormSelectUser>("FormSelectUser", [](FormSelectUser& list) { Click(list.cmdCancel); });
        Click(form.cmdUser);
        EXPECT_EQ(form.txtMachine->GetValue(), "Gantry");
        Click(form.cmdOK);
    }));
    EXPECT_EQ(Saved("NeskMachine"), "Machines\\M2");
    EXPECT_EQ(Saved("NeskUser"), "Users\\U2");
}

#ifdef NESK_PORTABLE_STATION
// Cancelling the options also cancels the choice and restores the stored user and machine, so these cannot be
// removed.
TEST_F(FormDirectoriesTest, WhatIsStoredCannotBeRemovedAfterAnotherChoice) {
    EXPECT_FALSE(Show([this](FormDirectories& form) {
        WhenShown<FormSelectUser>("FormSelectUser", [](FormSelectUser& list) {
            Choose(list.lstMain, "Jones");
            Click(list.cmdOK);
        });
        Click(form.cmdUser);
        WhenShown<FormSelectUser>("FormSelectUser", [](FormSelectUser& list) {
            EXPECT_FALSE(list.cmdRemove->IsEnabled()) << "the one just chosen";
            Focus(list.lstMain);
            Press(WXK_UP);
            EXPECT_EQ(list.lstMain->GetStringSelection(), "Smith");
            EXPECT_FALSE(list.cmdRemove->IsEnabled()) << "the one that is stored";
            Click(list.cmdCancel);
        });
        Click(form.cmdUser);
        WhenShown<FormSelectMachine>("FormSelectMachine", [](FormSelectMachine& list) {
            Choose(list.lstMain, "Gantry");
            Click(list.cmdOK);
        });
        Click(form.cmdMachine);
        WhenShown<FormSelectMachine>("FormSelectMachine", [](FormSelectMachine& list) {
            EXPECT_FALSE(list.cmdRemove->IsEnabled()) << "the one just chosen";
            Focus(list.lstMain);
            Press(WXK_UP);
            EXPECT_EQ(list.lstMain->GetStringSelection(), "Bridge");
            EXPECT_FALSE(list.cmdRemove->IsEnabled()) << "the one that is stored";
            Click(list.cmdCancel);
        });
        Click(form.cmdMachine);
        Click(form.cmdCancel);
    }));
}
#endif

// Chooses landscape A3 in the printer dialog, or cancels it.
class PrinterDialogScript {
public:
    PrinterDialogScript()
        : m_before(platform::SetPrinterSetup([this](wxWindow* parent, platform::PrinterValues& values,
                                                    const platform::PrinterSetupTexts& texts) {
            EXPECT_NE(dynamic_cast<FormDirectories*>(parent), nullptr);
            EXPECT_TRUE(wxIsBusy());
            ++shown;
            initial = values;
            asked = texts;
            if (!confirmed) return platform::PrinterSetupResult::Cancelled;
            values.orientation = "2";
            values.paperSize = "8";
            if (standIn.empty()) return platform::PrinterSetupResult::Confirmed;
            values.device = standIn;
            return platform::PrinterSetupResult::StandIn;
        })) {}
    ~PrinterDialogScript() { platform::SetPrinterSetup(m_before); }
    PrinterDialogScript(const PrinterDialogScript&) = delete;
    PrinterDialogScript& operator=(const PrinterDialogScript&) = delete;

    bool confirmed = true;
    std::string standIn; // printer that replaces one that is not on the machine
    int shown = 0;
    platform::PrinterValues initial; // values that the dialog started with
    platform::PrinterSetupTexts asked;

private:
    platform::PrinterSetupFunction m_before;
};

TEST_F(FormDirectoriesTest, PrinterValuesAreStoredOnOk) {
    NeskRegistry& settings = NeskRegistry::Instance();
    settings.PrinterDevice = "Laser";
    settings.PrinterOrientation = "1";
    settings.PrinterPaperSize = "9";
    settings.PrinterZoom = "75";
    PrinterDialogScript printer;
    EXPECT_FALSE(Show([](FormDirectories& form) {
        Click(form.cmdPrinter);
        Click(form.cmdCancel);
    }));
    EXPECT_EQ(settings.PrinterPaperSize, "9");
    printer.confirmed = false;
    EXPECT_TRUE(Show([](FormDirectories& form) {
        Click(form.cmdPrinter);
        Click(form.cmdOK);
    }));
    EXPECT_EQ(Saved("PrinterPaperSize"), "9");
    EXPECT_EQ(Saved("PrinterOrientation"), "1");
    EXPECT_EQ(Saved("PrinterQuality"), "");
    printer.confirmed = true;
    EXPECT_TRUE(Show([](FormDirectories& form) {
        Click(form.cmdPrinter);
        Click(form.cmdOK);
    }));
    EXPECT_EQ(printer.shown, 3);
    EXPECT_EQ(printer.initial, (platform::PrinterValues{"Laser", "", "1", "9", "", "", "75"}));
    EXPECT_EQ(Saved("PrinterDevice"), "Laser");
    EXPECT_EQ(Saved("PrinterOrientation"), "2");
    EXPECT_EQ(Saved("PrinterPaperSize"), "8");
    EXPECT_EQ(Saved("PrinterZoom"), "75");
}

TEST_F(FormDirectoriesTest, APrinterThatIsNotHereStaysUntilAnotherIsChosenOnPurpose) {
    NeskRegistry& settings = NeskRegistry::Instance();
    settings.PrinterDevice = "Laser";
    settings.PrinterDriver = "laserdrv";
    settings.Save();
    PrinterDialogScript printer;
    printer.standIn = "PDF";
    Expect(modMessageBox::Result::No);
    EXPECT_TRUE(Show([](FormDirectories& form) {
        EXPECT_EQ(TextOf(form.lblPrinter), "Printer: Laser");
        Click(form.cmdPrinter);
        EXPECT_EQ(TextOf(form.lblPrinter), "Printer: Laser");
        Click(form.cmdOK);
    }));
    EXPECT_EQ(printer.asked.title, "Printer setup") << "as the command is called";
    EXPECT_NE(printer.asked.missing.find("\"Laser\" is not on this computer"), std::string::npos);
    EXPECT_EQ(Saved("PrinterDevice"), "Laser");
    EXPECT_EQ(Saved("PrinterDriver"), "laserdrv");
    EXPECT_EQ(Saved("PrinterPaperSize"), "8") << "the rest is as it was chosen";
    Expect(modMessageBox::Result::Yes);
    EXPECT_TRUE(Show([](FormDirectories& form) {
        Click(form.cmdPrinter);
        EXPECT_EQ(TextOf(form.lblPrinter), "Printer: PDF");
        Click(form.cmdOK);
    }));
    EXPECT_EQ(Saved("PrinterDevice"), "PDF");
}

TEST_F(FormDirectoriesTest, AFailedSaveIsReportedAndClosesTheDialog) {
    // A character that the station's code page cannot store.
    NeskRegistry::Instance().HistoryTitle = "\xE6\xBC\xA2";
    const bool confirmed = Show([this](FormDirectories& form) {
        Fill(form.txtRoot, "C:\\Other");
        Expect();
        Click(form.cmdOK);
        EXPECT_FALSE(IsOpen(form));
    });
    EXPECT_TRUE(confirmed);
    ASSERT_EQ(messages.size(), 1u);
    EXPECT_EQ(messages[0].title, LoadResString(34123));
    EXPECT_EQ(Saved("NeskRoot"), "C:\\Other") << "what was written before the failure stays";
    EXPECT_EQ(Saved("NeskMachine"), "");
}

TEST_F(FormDirectoriesTest, ARootFolderIsCreatedAfterAQuestion) {
    const auto answer = [this](FormDirectories& form, std::int16_t result) {
        Expect(result);
        if (result == modMessageBox::Result::No) Expect();
        Click(form.cmdOK);
    };
    const bool confirmed = Show(
        [&](FormDirectories& form) {
            Fill(form.txtRoot, "C:\\New\\Menus\\");
            answer(form, modMessageBox::Result::No);
            ASSERT_EQ(messages.size(), 2u);
            EXPECT_EQ(messages[0].text, modStringRes::FormatResString(34432, "C:\\New\\Menus\\"));
            EXPECT_NE(messages[1].text.find("oot folder"), std::string::npos) << messages[1].text;
            EXPECT_TRUE(IsOpen(form));
            EXPECT_FALSE(std::filesystem::exists(TempStation::Host("C:\\New")));
            answer(form, modMessageBox::Result::Yes);
            EXPECT_FALSE(IsOpen(form));
        },
        true);
    EXPECT_TRUE(confirmed);
    EXPECT_EQ(Saved("NeskRoot"), "C:\\New\\Menus");
    EXPECT_TRUE(std::filesystem::is_directory(TempStation::Host("C:\\New\\Menus")));
}

TEST_F(FormDirectoriesTest, ARootFolderThatCannotBeCreatedKeepsTheDialogOpen) {
    const bool confirmed = Show(
        [&](FormDirectories& form) {
            Fill(form.txtRoot, "C:\\Root\\x.txt\\Menus");
            Expect(modMessageBox::Result::Yes);
            Expect();
            Click(form.cmdOK);
            EXPECT_NE(messages.back().text.find("x.txt"), std::string::npos) << messages.back().text;
            EXPECT_TRUE(IsOpen(form));
        },
        true);
    EXPECT_FALSE(confirmed);
    EXPECT_EQ(Saved("NeskRoot"), "");
}

TEST_F(FormDirectoriesTest, ANumberThatNothingCanHoldIsReported) {
    const bool confirmed = Show([this](FormDirectories& form) {
        Fill(form.txtSampleSize, "-40000");
        Expect();
        Click(form.cmdOK);
        EXPECT_TRUE(IsOpen(form));
    });
    EXPECT_FALSE(confirmed);
    EXPECT_EQ(messages.back().title, LoadResString(34123));
    EXPECT_EQ(Saved("NeskRoot"), "");
}

} // namespace
} // namespace nesk::testing
