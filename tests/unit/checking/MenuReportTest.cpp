#include "checking/MenuReport.h"

#include "checking/MenuCheck.h"
#include "unit/checking/CheckingFixture.h"
#include "unit/checking/FakeInspector.h"

#include <chrono>
#include <regex>
#include <set>
#include <thread>

namespace nesk {
namespace {

using State = FileFacts::State;
using namespace std::chrono_literals;

class MenuReportTest : public testing::CheckingTest {
protected:
    std::string Report() {
        const auto end = std::chrono::steady_clock::now() + 10s;
        while (!check.IsDone() && std::chrono::steady_clock::now() < end)
            if (!check.Step(5ms)) std::this_thread::sleep_for(1ms);
        return MenuReport(*editor.OpenMenu(), check, options);
    }

    static bool Has(const std::string& page, const std::string& text) {
        return page.find(text) != std::string::npos;
    }

    static std::multiset<std::string> All(const std::string& page, const std::string& pattern) {
        const std::regex expression(pattern);
        std::multiset<std::string> found;
        for (std::sregex_iterator at(page.begin(), page.end(), expression); at != std::sregex_iterator();
             ++at)
            found.insert((*at)[1]);
        return found;
    }

    std::shared_ptr<testing::FakeInspector> files = std::make_shared<testing::FakeInspector>();
    MenuCheck check{editor, files};
    ReportOptions options{"C:\\Neskroot\\menu.cfg", "today", {}, false, false};
};

TEST_F(MenuReportTest, EachEntryWithItsFields) {
    const std::string folder = editor.AddSubmenu("R", "Housing");
    PartFields fields;
    fields.graphic = "C:\\a.bmp";
    fields.preview = "C:\\b.bmp";
    fields.programId = "@C:\\Parts\\A\\partinfo.ini@";
    fields.helpFile = "C:\\h.chm";
    fields.helpTopic = 12;
    fields.historyDir = "C:\\hist";
    fields.historyTitle = "Bore";
    Part(folder, "Part A", fields);
    files->Set("C:\\Parts\\A\\partinfo.ini", {State::Good, "Name of A"});
    const std::string page = Report();
    for (const char* text :
         {"Menu file: C:\\Neskroot\\menu.cfg", "Date: today", "Housing", "Part A", "Part name: Name of A",
          "Picture: C:\\a.bmp", "Preview: C:\\b.bmp", "Part program: C:\\Parts\\A\\partinfo.ini",
          "Help file: C:\\h.chm", "Help topic: 12", "History directory: C:\\hist", "History title: Bore",
          "No problems were found."})
        EXPECT_TRUE(Has(page, text)) << text << "\n" << page;
}

TEST_F(MenuReportTest, UnsavedChangesAreMentioned) {
    const char* text = "The report contains changes that are not saved.";
    EXPECT_FALSE(Has(Report(), text));
    options.isUnsaved = true;
    EXPECT_TRUE(Has(Report(), text));
}

TEST_F(MenuReportTest, EveryLinkLeadsToOneAnchor) {
    for (int i = 0; i < 3; ++i) {
        const std::string folder = editor.AddSubmenu("R", "Folder");
        editor.AddPart(folder, "");
        editor.AddSubmenu(folder, "Inner");
    }
    const std::string page = Report();
    const std::multiset<std::string> anchors = All(page, "name=\"([^\"]*)\"");
    const std::multiset<std::string> links = All(page, "href=\"#([^\"]*)\"");
    EXPECT_EQ(anchors.size(), 10u);
    EXPECT_EQ(std::set<std::string>(anchors.begin(), anchors.end()).size(), anchors.size());
    EXPECT_GT(links.size(), 7u);
    for (const std::string& link : links)
        EXPECT_EQ(anchors.count(link), 1u) << link;
}

TEST_F(MenuReportTest, ProblemsAreListedAndStandAtTheirEntry) {
    editor.AddPart("R", "A");
    const std::string page = Report();
    const std::string problem = "The button starts no part program";
    const std::size_t first = page.find(problem);
    ASSERT_NE(first, std::string::npos);
    EXPECT_NE(page.find("<b>Error:</b> " + problem, first), std::string::npos);
}

TEST_F(MenuReportTest, TextsAreEscaped) {
    editor.SetCaption(editor.AddSubmenu("R", "x"), "<b> & \"c\"");
    const std::string page = Report();
    EXPECT_TRUE(Has(page, "&lt;b&gt; &amp; &quot;c&quot;"));
    EXPECT_FALSE(Has(page, "<b> &"));
}

TEST_F(MenuReportTest, PicturesAreAskedFor) {
    editor.SetGraphic(editor.AddSubmenu("R", "x"), "C:\\a.bmp");
    editor.SetGraphic(editor.AddSubmenu("R", "y"), "C:\\gone.bmp");
    editor.SetGraphic("R", "C:\\logo.bmp");
    options.pictureAddress = [](const std::string& path) {
        return path == "C:\\gone.bmp" ? "" : "data:" + path.substr(3);
    };
    EXPECT_EQ(All(Report(), "src=\"([^\"]*)\""), (std::multiset<std::string>{"data:a.bmp", "data:logo.bmp"}));
}

TEST_F(MenuReportTest, ThePaperHasNoLinksAndBreaksLongPaths) {
    PartFields fields;
    fields.programId = "x";
    fields.helpFile =
        "C:\\" + std::string(30, 'a') + "\\" + std::string(30, 'b') + "\\" + std::string(30, 'c');
    Part("R", "A", fields);
    EXPECT_TRUE(Has(Report(), fields.helpFile));
    options.isForPaper = true;
    const std::string page = Report();
    EXPECT_FALSE(Has(page, "href"));
    EXPECT_TRUE(Has(page, std::string(30, 'b') + "\\ ccc")) << page;
    EXPECT_TRUE(Has(page, std::string(30, 'a') + "\\bbb"));
}

TEST_F(MenuReportTest, FilesThatWereNotLookedUpAreCounted) {
    files->Block("D:");
    editor.SetGraphic(editor.AddSubmenu("R", "x"), "D:\\slow.bmp");
    while (check.Step(5ms)) {
    }
    EXPECT_TRUE(
        Has(MenuReport(*editor.OpenMenu(), check, options), "Files that have not been looked up yet: 1"));
    files->ComeBack("D:");
}

TEST_F(MenuReportTest, ATreeOfAnyDepth) {
    std::string text;
    constexpr int depth = 20000;
    for (int i = 0; i < depth; ++i)
        text += "BLOCK SUBMENU\nCAPTION=level\nMENUTYPE=Menu\n";
    station.Write("C:\\Neskroot\\menu.cfg", "BLOCK MENU\n" + text);
    editor.Open("C:\\Neskroot", "C:\\Neskroot\\menu.cfg");
    EXPECT_EQ(All(Report(), "<h2><a name=\"(e)").size(), static_cast<std::size_t>(depth) + 1);
}

} // namespace
} // namespace nesk
