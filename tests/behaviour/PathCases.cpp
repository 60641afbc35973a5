#include "behaviour/Table.h"
#include "platform/ErrorCode.h"
#include "platform/FileSystem.h"
#include "shell/modUtilities.h"
#include "unit/platform/TempStation.h"

#include <array>
#include <set>
#include <tuple>

namespace nesk::behaviour {

namespace {

platform::FileSystem& Files() {
    return platform::StationFiles();
}

// The results of a search, sorted by name because every file system has its own order.
std::string Found(const std::string& pattern) {
    std::unique_ptr<platform::DirectorySearch> search;
    platform::DirectoryEntry entry;
    const platform::ErrorCode result = Files().Search(pattern, search, entry);
    if (result != platform::ErrorCode::Success) return std::to_string(Number(result));
    std::set<std::string> names;
    do {
        const bool isFolder = (entry.attributes & platform::FileAttribute::Directory) != 0;
        names.insert(entry.name + (isFolder ? "\\" : ""));
    } while (search->Next(entry) == platform::ErrorCode::Success);
    std::string text;
    for (const std::string& name : names)
        text += name + " ";
    return text;
}

std::string Attributes(const std::string& path) {
    std::uint32_t attributes = 0;
    const platform::ErrorCode result = Files().Attributes(path, attributes);
    if (result != platform::ErrorCode::Success) return std::to_string(Number(result));
    return (attributes & platform::FileAttribute::Directory) != 0 ? "folder" : "file";
}

platform::ErrorCode OpenResult(const std::string& path) {
    std::unique_ptr<platform::FileReader> reader;
    return Files().OpenForReading(path, reader);
}

platform::ErrorCode CreateResult(const std::string& path) {
    std::unique_ptr<platform::FileWriter> writer;
    return Files().CreateNew(path, writer);
}

// Cases in which Wine differs from Windows.
void AddDocumented(Table& table) {
    const auto missingDrive = [&](const char* what, const std::string& answer) {
        table.AddDocumented(std::string("path ") + what + " Q:\\x", answer, "3",
                            "a drive that is missing is a path that is missing; Wine says that the file is");
    };
    missingDrive("attributes", Attributes("Q:\\x"));
    missingDrive("open", std::to_string(Number(OpenResult("Q:\\x"))));
    missingDrive("create", std::to_string(Number(CreateResult("Q:\\x"))));
    missingDrive("make folder", std::to_string(Number(Files().MakeFolder("Q:\\x"))));
    const std::string named = "C:\\Data\\one.txt\\";
    table.AddDocumented("path attributes " + named, Attributes(named), "123",
                        "a separator stands behind folders alone; Wine says that the path is missing");
    table.Add("path open " + named, OpenResult(named));
    table.Add("path is file " + named, modUtilities::FileExists(named) ? 1 : 0);
}

void AddReading(Table& table) {
    for (const char* path : {"C:\\Data",
                             "C:\\Data\\",
                             "c:\\data",
                             "C:/Data/one.txt",
                             "C:\\Data\\one.txt",
                             "C:\\DATA\\ONE.TXT",
                             "C:\\Data\\.",
                             "C:\\Data\\..",
                             "C:\\Data\\..\\Data\\one.txt",
                             "C:\\Data\\\\one.txt",
                             "C:\\Data\\none.txt",
                             "C:\\None\\none.txt",
                             "C:\\Data\\one.txt\\x",
                             "C:\\Data\\one.txt.",
                             "C:\\Data\\one.txt ",
                             "C:\\Data\\Gr\xC3\xB6\xC3\x9F"
                             "e.txt",
                             "C:\\Data\\GR\xC3\x96\xC3\x9F"
                             "E.TXT",
                             "C:\\Data\\a*b",
                             "C:\\Data\\a?b",
                             "C:\\Data\\a<b",
                             "C:\\Data\\a|b",
                             "C:\\Data\\a\"b",
                             "C:\\",
                             "C:",
                             "Q:\\",
                             "",
                             "\\",
                             "C:\\Data\\sub\\two.txt"}) {
        const std::string name = path;
        table.Add("path attributes " + name, Attributes(name));
        table.Add("path open " + name, OpenResult(name));
        table.Add("path is file " + name, modUtilities::FileExists(name) ? 1 : 0);
        table.Add("path is folder " + name, modUtilities::DirectoryExists(name) ? 1 : 0);
    }
    for (const char* pattern :
         {"C:\\Data\\*", "C:\\Data\\*.*", "C:\\Data\\*.txt", "C:\\Data\\*.TXT", "C:\\Data\\one.*",
          "C:\\Data\\???.txt", "C:\\Data\\o*", "C:\\Data\\*o*", "C:\\Data\\none*", "C:\\None\\*",
          "C:\\Data\\one.txt", "C:\\Data\\one.txt\\*", "C:\\Data\\sub", "C:\\Data\\sub\\*.*",
          "C:\\Data\\empty\\*", "Q:\\*", "C:\\Data\\*\\x"})
        table.Add(std::string("path search ") + pattern, Found(pattern));
}

void AddWriting(Table& table) {
    for (const char* path :
         {"C:\\Made", "C:\\Made", "C:\\made", "C:\\Made\\A\\B", "C:\\Data\\one.txt", "C:\\Data\\one.txt\\x",
          "C:\\Made\\a*", "C:\\Made\\a?", "C:\\Made\\a<", "C:\\Made\\a|b", "C:\\Made\\\"", "C:\\", ""})
        table.Add(std::string("path make folder ") + path, Files().MakeFolder(path));
    for (const char* path :
         {"C:\\Made\\new.txt", "C:\\Made\\NEW.txt", "C:\\Made", "C:\\None\\x", "C:\\Made\\a*"})
        table.Add(std::string("path create ") + path, CreateResult(path));
    for (const char* path : {"C:\\Made\\NEW.TXT", "C:\\Made\\new.txt", "C:\\None\\x", "C:\\Made"})
        table.Add(std::string("path remove ") + path, Files().RemoveFile(path));
    // The answers of the following cases show whether the files exist.
    std::ignore = CreateResult("C:\\Made\\a");
    std::ignore = CreateResult("C:\\Made\\b");
    table.Add("path keep copy", Files().KeepCopy("C:\\Made\\a", "C:\\Made\\c", false));
    table.Add("path keep copy again", Files().KeepCopy("C:\\Made\\a", "C:\\Made\\c", false));
    table.Add("path keep copy over", Files().KeepCopy("C:\\Made\\a", "C:\\Made\\c", true));
    table.Add("path keep copy of nothing", Files().KeepCopy("C:\\Made\\none", "C:\\Made\\d", true));
    table.Add("path replace", Files().Replace("C:\\Made\\a", "C:\\Made\\b"));
    table.Add("path replace nothing", Files().Replace("C:\\Made\\new", "C:\\Made\\c"));
    table.Add("path replace by nothing", Files().Replace("C:\\Made\\a", "C:\\Made\\none"));
    table.Add("path replace a folder", Files().Replace("C:\\Made", "C:\\Data\\one.txt"));
    table.Add("path what is left", Found("C:\\Made\\*"));
}

} // namespace

void AddPathCases(Table& table) {
    TempStation station;
    for (const char* path :
         {"C:\\Data\\one.txt", "C:\\Data\\two.TXT", "C:\\Data\\noextension", "C:\\Data\\sub\\two.txt",
          "C:\\Data\\Gr\xC3\xB6\xC3\x9F"
          "e.txt"})
        station.Write(path, "x");
    // The search in the folder shows whether it exists.
    std::ignore = Files().MakeFolder("C:\\Data\\empty");
    AddReading(table);
    AddDocumented(table);
    AddWriting(table);
    for (const char* relative :
         {"a", ".\\a", "..\\a", "..\\..\\..\\a", "\\a", "D:\\a", "", ".", "..", "a\\..\\b"})
        table.Add(std::string("path join ") + relative, modUtilities::PathJoin("C:\\Data\\sub", relative));
}

} // namespace nesk::behaviour
