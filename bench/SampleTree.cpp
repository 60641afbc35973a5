#include "bench/SampleTree.h"

#include <algorithm>

namespace nesk::bench {

namespace {

constexpr int MostChildren = 32;

SampleEntry EntryOf(int number, bool part) {
    const std::string n = std::to_string(number);
    const std::string group = std::to_string(number / 100);
    SampleEntry entry;
    // One caption in eight has a character whose bytes differ between the code page and UTF-8.
    entry.caption = (number % 8 == 0 ? "Geh\xC3\xA4use " : "Housing ") + n;
    entry.graphic = R"(C:\Neskroot\Pictures\group)" + group + "\\" + n + ".bmp";
    entry.menuType = part ? "Part Program" : "Menu";
    if (!part) return entry;
    entry.preview = R"(C:\Neskroot\Preview\group)" + group + "\\" + n + ".bmp";
    entry.helpFile = R"(C:\Neskroot\Help\part)" + group + ".chm";
    entry.helpTopic = number % 5000;
    entry.programId = R"(@C:\Neskroot\Parts\group)" + group + "\\part" + n + "\\partinfo.ini@";
    entry.historyTitle = "Bore and flange of " + n;
    return entry;
}

class Visit {
public:
    explicit Visit(SampleWriter& writer) : m_writer(writer) {}

    // Writes the items below one entry: buttons if they fit, otherwise submenus that share them.
    void Below(int items) {
        if (items <= MostChildren) {
            for (int i = 0; i < items; ++i)
                Item(true, 0);
            return;
        }
        for (int child = 0; child < MostChildren; ++child) {
            const int share = items / MostChildren + (child < items % MostChildren ? 1 : 0);
            Item(share == 1, share - 1);
        }
    }

private:
    void Item(bool part, int below) {
        m_writer.BeginItem(EntryOf(++m_number, part));
        Below(below);
        m_writer.EndItem();
    }

    SampleWriter& m_writer;
    int m_number = 0;
};

} // namespace

void VisitSampleTree(SampleWriter& writer, int items) {
    writer.BeginMenu();
    Visit(writer).Below(items);
    writer.EndMenu();
}

} // namespace nesk::bench
