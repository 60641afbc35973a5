#pragma once

#include "base/NeskError.h"
#include "journal/MenuJournal.h"
#include "journal/UnsavedChanges.h"
#include "menu/ReadMenuQuietly.h"
#include "unit/CoreFixture.h"
#include "unit/FileBytes.h"
#include "unit/journal/ReadableFiles.h"
#include "unit/journal/TreeText.h"

#include <filesystem>
#include <fstream>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace nesk::testing {

/// A menu file with a few entries in C:\Neskroot, and options for its journal.
class JournalTest : public CoreTest {
protected:
    JournalTest() {
        std::filesystem::create_directories(TempStation::Host(Folder));
        station.Write(Path, Menu1);
        m_options.folder = "C:\\User\\unsaved";
        m_options.owner = "meier on STATION4";
        m_options.keepsBase = false;
        m_options.inBackground = [this](std::function<void()> work) {
            m_background.push_back(std::move(work));
            return true;
        };
    }

    void Open(MenuEditor& editor) { ASSERT_FALSE(editor.Open(Folder, Path).has_value()); }

    /// Runs what waits to run in the background.
    void RunBackground() {
        for (const auto& work : std::exchange(m_background, {}))
            work();
    }

    /// The menu with the changes in a journal, whose editor may be running.
    /// @param path  the journal
    std::string Restored(const std::string& path) {
        FoundJournal found;
        found.path = path;
        const RestoredMenu restored =
            UnsavedChanges::RestoreInto(found, *ReadMenuQuietly(Path, Folder).menu, m_files);
        EXPECT_FALSE(restored.isDamaged);
        return TreeText(*restored.menu);
    }

    /// The contents of a journal, whose editor may be running.
    std::string JournalBytes(const std::string& path) {
        std::unique_ptr<platform::FileReader> reader;
        EXPECT_EQ(m_files.OpenForReading(path, reader), platform::ErrorCode::Success);
        std::string bytes(std::size_t{1} << 20, '\0');
        std::size_t count = 0;
        EXPECT_EQ(reader->Read(bytes.data(), bytes.size(), count), platform::ErrorCode::Success);
        bytes.resize(count);
        return bytes;
    }

    std::optional<FoundJournal> Find() { return UnsavedChanges::Find(Path, m_options); }

    /// What is in the folder of the menu.
    static std::string Names() { return FilesIn(Folder); }

    static void WriteBytes(const std::string& path, const std::string& bytes) {
        std::ofstream(TempStation::Host(path), std::ios::binary) << bytes;
    }

    inline static const std::string Folder = "C:\\Neskroot";
    inline static const std::string Path = Folder + "\\menu.cfg";
    inline static const std::string Place = Path + ".unsaved";
    inline static const std::string Menu1 = "BLOCK MENU\r\n"
                                            "\tCAPTION=Station\r\n"
                                            "\tGRAPHIC=\r\n"
                                            "\tBLOCK SUBMENU\r\n"
                                            "\t\tCAPTION=Housings\r\n"
                                            "\t\tMENUTYPE=Menu\r\n"
                                            "\t\tBLOCK SUBMENU\r\n"
                                            "\t\t\tCAPTION=Housing 1\r\n"
                                            "\t\t\tMENUTYPE=Part Program\r\n"
                                            "\t\tEND\r\n"
                                            "\t\tBLOCK SUBMENU\r\n"
                                            "\t\t\tCAPTION=Housing 2\r\n"
                                            "\t\t\tHELPTOPIC=-7\r\n"
                                            "\t\t\tMENUTYPE=Part Program\r\n"
                                            "\t\tEND\r\n"
                                            "\tEND\r\n"
                                            "\tBLOCK SUBMENU\r\n"
                                            "\t\tCAPTION=Flanges\r\n"
                                            "\t\tMENUTYPE=Menu\r\n"
                                            "\tEND\r\n"
                                            "\tBLOCK SUBMENU\r\n"
                                            "\t\tCAPTION=Arms\r\n"
                                            "\t\tMENUTYPE=Menu\r\n"
                                            "\tEND\r\n"
                                            "END\r\n";

    ReadableFiles m_files; ///< for journals
    JournalOptions m_options;
    std::vector<std::function<void()>> m_background;
};

} // namespace nesk::testing
