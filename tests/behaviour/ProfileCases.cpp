#include "behaviour/Table.h"
#include "platform/ProfileFile.h"
#include "unit/platform/TempStation.h"

#include <array>
#include <string>

namespace nesk::behaviour {

namespace {

using namespace std::string_literals;

struct File {
    std::string_view name;
    std::string content;
};

const std::array Files = {
    File{"plain", "[Part]\r\nName=Bracket\r\nOther=2\r\n"},
    File{"line feeds", "[Part]\nName=Bracket\n"},
    File{"no last line end", "[Part]\r\nName=Bracket"},
    File{"empty", ""},
    File{"blank lines", "\r\n\r\n[Part]\r\n\r\nName=Bracket\r\n"},
    File{"comments", ";[Part]\r\n[Part]\r\n;Name=no\r\n ;Name=no\r\nName=yes;no comment\r\n"},
    File{"blanks around", " [Part] \r\n  Name  =  Bracket 7  \r\n"},
    File{"tabs around", "\t[Part]\t\r\n\tName\t=\tBracket\t\r\n"},
    File{"blanks in the section's name", "[ Part ]\r\nName=inner\r\n[Part]\r\nName=outer\r\n"},
    File{"quotes", "[Part]\r\nName=\"  Bracket  \"\r\nOther='x'\r\n"},
    File{"one quote", "[Part]\r\nName=\"Bracket\r\nOther=x\"\r\n"},
    File{"mixed quotes", "[Part]\r\nName=\"Bracket'\r\nOther='a\"b'\r\n"},
    File{"quotes alone", "[Part]\r\nName=\"\"\r\nOther=\"\r\n"},
    File{"nested quotes", "[Part]\r\nName=\"\"a\"\"\r\nOther=\"'a'\"\r\n"},
    File{"case", "[PART]\r\nNAME=upper\r\n"},
    File{"umlauts", "[Part]\r\nName=M\xE4\xDF\r\nOther=\x80\r\n"},
    File{"bytes without a character", "[Part]\r\nName=a\x81z\x9D\r\n"},
    File{"section twice", "[Part]\r\nOther=1\r\n[Tool]\r\nName=no\r\n[Part]\r\nName=second\r\n"},
    File{"key twice", "[Part]\r\nName=first\r\nName=second\r\n"},
    File{"key before any section", "Name=early\r\n[Part]\r\nOther=1\r\n"},
    File{"no equals sign", "[Part]\r\nName\r\nOther=1\r\n"},
    File{"two equals signs", "[Part]\r\nName=a=b\r\nOther==\r\n"},
    File{"no value", "[Part]\r\nName=\r\nOther=   \r\n"},
    File{"text behind the section", "[Part] tail\r\nName=Bracket\r\n"},
    File{"section without a name", "[]\r\nName=empty\r\n[Part]\r\nName=Bracket\r\n"},
    File{"key without a name", "[Part]\r\n=nothing\r\nName=Bracket\r\n"},
    File{"long value", "[Part]\r\nName=" + std::string(5000, 'x') + "\r\n"},
    File{"lines ended by CR LF and LF", "[Part]\nOther=1\r\nName=Bracket\n"},
    File{"UTF-16", "\xFF\xFE[\0P\0a\0r\0t\0]\0\r\0\n\0N\0a\0m\0e\0=\0\xE4\0\xAC\x20\r\0\n\0"s},
    File{"UTF-16 with a character that the code page lacks",
         "\xFF\xFE[\0P\0a\0r\0t\0]\0\n\0N\0a\0m\0e\0=\0\x41\x04x\0\n\0"s},
};

constexpr const char* Path = "C:\\Parts\\partinfo.ini";

std::string Read(const std::string& section, const std::string& key, std::size_t capacity) {
    return platform::ReadProfileString(Path, section, key, "default", capacity);
}

// Adds a case in which Wine differs from Windows.
void AddDocumented(Table& table, std::string_view name, const std::string& content, const std::string& answer,
                   std::string_view why) {
    TempStation station;
    station.Write(Path, content);
    table.AddDocumented("profile " + std::string(name), Read("Part", "Name", 4096), answer, why);
}

} // namespace

void AddProfileCases(Table& table) {
    for (const File& file : Files) {
        TempStation station;
        station.Write(Path, file.content);
        const std::string prefix = "profile " + std::string(file.name) + ": ";
        table.Add(prefix + "Part, Name", Read("Part", "Name", 4096));
        table.Add(prefix + "part, NAME", Read("part", "NAME", 4096));
        table.Add(prefix + "Part, Other", Read("Part", "Other", 4096));
        table.Add(prefix + "Part, Missing", Read("Part", "Missing", 4096));
        table.Add(prefix + "Tool, Name", Read("Tool", "Name", 4096));
        for (const std::size_t capacity : {1U, 2U, 8U, 9U})
            table.Add(prefix + "Part, Name in " + std::to_string(capacity), Read("Part", "Name", capacity));
    }
    AddDocumented(table, "bracket in the section's name", "[Pa]rt]\r\nName=x\r\n[Part]]\r\nName=y\r\n", "y",
                  "a section's name ends at the first closing bracket; Wine goes by the last one");
    AddDocumented(table, "section not closed", "[Part\r\nName=Bracket\r\n", "Bracket",
                  "a section's name ends with its line; Wine does not take an open one for a section");
    const TempStation station;
    table.Add("profile missing file", Read("Part", "Name", 4096));
    table.Add("profile default is trimmed", platform::ReadProfileString(Path, "Part", "Name", " a  ", 4096));
    table.Add("profile folder", platform::ReadProfileString("C:\\Parts", "Part", "Name", "default", 4096));
}

} // namespace nesk::behaviour
