// Loads an arbitrary menu file. A file that loads without an error gives the same menu after saving and
// loading, and its bytes do not change after the first save. A file that does not load is left unchanged. The
// result does not depend on where the reader's blocks begin.

#include "editing/MenuEditor.h"
#include "fuzz/Fuzz.h"
#include "menu/BlockParser.h"
#include "menu/MenuItem.h"
#include "menu/MenuItemCollection.h"
#include "menu/PartFields.h"
#include "unit/FileBytes.h"

#include <algorithm>
#include <filesystem>
#include <optional>
#include <set>
#include <vector>

namespace nesk::fuzz {

namespace {

using nesk::testing::FileBytes;

const std::string Folder = "C:\\Neskroot";
const std::string Path = Folder + "\\menu.cfg";
const std::string Copy = Folder + "\\copy.cfg";
const std::string Shifted = Folder + "\\shifted.cfg";
// Block size of the reader, several times the largest input.
constexpr std::size_t BlockSize = std::size_t{1} << 18;
static_assert(BlockSize > LargestInput + 8, "a comment that ends in front of an input fits into a block");

// An entry of a tree and its depth, without its children.
struct Entry {
    int depth;
    std::string caption;
    std::string menuType;
    PartFields fields;

    bool operator==(const Entry&) const = default;
};

std::vector<Entry> EntriesOf(const Menu& menu) {
    std::vector<Entry> entries;
    std::vector<std::pair<const MenuEntry*, int>> open{{&menu, 0}};
    while (!open.empty()) {
        const auto [entry, depth] = open.back();
        open.pop_back();
        const auto* item = dynamic_cast<const MenuItem*>(entry);
        PartFields fields;
        if (item != nullptr)
            fields = PartFieldsOf(*item);
        else
            fields.graphic = entry->Graphic();
        entries.push_back({depth, std::string(entry->Caption()),
                           std::string(item != nullptr ? item->MenuType() : ""), std::move(fields)});
        for (int i = entry->ChildCount(); i > 0; --i) {
            const MenuItem& child = entry->Children()->Item(i);
            Require(child.ParentMenu() == entry, "an item points to its parent");
            open.emplace_back(&child, depth + 1);
        }
    }
    return entries;
}

void CheckIds(const Menu& menu) {
    const MenuEntry* entry = &menu;
    // Following only the last entry of each level is sufficient and keeps deep menus fast.
    for (int level = 0; level < 50 && entry->ChildCount() > 0; ++level) {
        entry = &entry->Children()->Item(entry->ChildCount());
        Require(menu.Find(entry->ID()) == entry, "an entry is found by its id");
    }
}

void SaveTwice(MenuEditor& editor) {
    const std::vector<Entry> entries = EntriesOf(*editor.OpenMenu());
    editor.Save(Copy);
    Require(!editor.IsDirty() && !editor.IsIncomplete(), "a saved menu is clean");
    const std::string bytes = FileBytes(Copy);
    MenuEditor again;
    const std::optional<NeskError> error = again.Open(Folder, Copy);
    Require(!error, "what was saved can be loaded");
    Require(EntriesOf(*again.OpenMenu()) == entries, "what was saved is loaded as it was");
    Require(again.CheckSave(Copy) == SaveHazard::None, "what was just loaded may be saved");
    again.Save(Copy);
    Require(FileBytes(Copy) == bytes, "loading and saving changes no byte");
    Require(FileBytes(Copy + ".bak") == bytes, "the version before is kept");
}

// Offsets of an input at which a block of the reader may end: inside lines, on both sides of some line ends,
// and between CR and LF. 0 is before the input.
std::set<std::size_t> Borders(const std::string& bytes) {
    if (bytes.empty()) return {0};
    std::set<std::size_t> borders{0, bytes.size() / 3, bytes.size() / 2, bytes.size() - 1};
    for (const std::size_t from : {std::size_t{0}, bytes.size() / 2}) {
        const std::size_t end = bytes.find_first_of("\r\n", from);
        if (end != std::string::npos) borders.insert({end, end + 1});
    }
    return borders;
}

// Checks that the block boundaries do not affect the result. `error` is the result of loading the file.
void CheckBlocks(Surroundings& surroundings, const std::string& bytes, const Menu& menu,
                 const std::optional<NeskError>& error) {
    const std::vector<Entry> entries = EntriesOf(menu);
    const auto check = [&](std::size_t length) {
        // A line of that length, including its line end.
        const std::string comment = ";" + std::string(length - 3, 'x') + "\r\n";
        surroundings.station.Write(Shifted, comment + bytes);
        MenuEditor editor;
        const std::optional<NeskError> again = editor.Open(Folder, Shifted);
        Require(again.has_value() == error.has_value(), "the blocks of reading make no error and hide none");
        Require(EntriesOf(*editor.OpenMenu()) == entries, "the blocks of reading change no entry");
        Require(editor.OpenMenu()->EndIsMissing() == menu.EndIsMissing(), "nor what is missing");
        if (!error) return;
        Require(again->number == error->number && again->messageId == error->messageId,
                "the blocks of reading change no error");
        Require(again->line == error->line + 1, "the blocks of reading change no line number");
    };
    for (const std::size_t before : Borders(bytes))
        check(BlockSize - before);
    // The first length puts a block boundary inside the comment's line end; the second makes a line longer
    // than a block.
    check(BlockSize + 1);
    check(BlockSize * 2 + 3);
}

void LoadMenu(Surroundings& surroundings, const std::string& bytes) {
    surroundings.station.Write(Path, bytes);
    MenuEditor editor;
    const std::optional<NeskError> error = editor.Open(Folder, Path);
    Require(editor.IsOpen() && !editor.IsDirty(), "a menu that was opened is clean");
    Require(editor.IsIncomplete() == (error.has_value() || editor.OpenMenu()->EndIsMissing()),
            "an error and a missing end leave the menu incomplete");
    Require(FileBytes(Path) == bytes, "opening changes no file");
    CheckIds(*editor.OpenMenu());
    // Lines are separated before they are decoded, so one code page is enough.
    if (platform::CodePage() == 1252) CheckBlocks(surroundings, bytes, *editor.OpenMenu(), error);
    if (!error) return SaveTwice(editor);
    Require(error->file == Path, "an error names the file");
    const auto lines =
        std::count_if(bytes.begin(), bytes.end(), [](char c) { return c == '\n' || c == '\r'; });
    Require(error->line >= 0 && error->line <= lines + 1, "an error names a line of the file");
    Require(editor.CheckSave(Path) == SaveHazard::Incomplete, "saving half a menu is a hazard");
}

// The parser continues after an error, and every call consumes at least one line.
void ReadTokens(const std::string& bytes) {
    BlockParser parser;
    parser.OpenFile(Path, false);
    std::int32_t line = 0;
    for (std::size_t calls = 0;; ++calls) {
        Require(calls <= bytes.size() + 1, "reading comes to an end");
        try {
            if (parser.GetToken() == BlockParser::TokenEndFile) break;
        } catch (const NeskError& error) {
            Require(error.number == 5000, "a line that is no token is error 5000");
        }
        Require(parser.CurrentLine() > line, "the line number grows");
        line = parser.CurrentLine();
    }
    Require(parser.GetToken() == BlockParser::TokenEndFile, "the end stays the end");
}

} // namespace

} // namespace nesk::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace nesk::fuzz;
    return WithEachCodePage(data, size, [](Surroundings& surroundings, const std::string& bytes) {
        LoadMenu(surroundings, bytes);
        ReadTokens(bytes);
    });
}
