// Tests of the pages that the help file is made from.

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <regex>
#include <set>
#include <string>

namespace nesk {
namespace {

namespace fs = std::filesystem;

const fs::path Source = NESK_SOURCE_DIR;
const fs::path Help = Source / "help";

std::string Contents(const fs::path& file) {
    std::ifstream in(file, std::ios::binary);
    EXPECT_TRUE(in) << file;
    return {std::istreambuf_iterator<char>(in), {}};
}

// The text of the pattern's first group at each match.
std::set<std::string> Found(const std::string& text, const char* pattern) {
    const std::regex expression(pattern);
    std::set<std::string> found;
    for (std::sregex_iterator at(text.begin(), text.end(), expression), end; at != end; ++at)
        found.insert((*at)[1]);
    return found;
}

TEST(HelpPages, EveryTopicOfAWindowHasItsPage) {
    const std::string project = Contents(Help / "OVENU.hhp");
    std::set<std::string> topics;
    for (const char* folder : {"menu", "partedit", "settings", "shell", "widgets"})
        for (const auto& file : fs::directory_iterator(Source / folder))
            if (file.is_regular_file()) topics.merge(Found(Contents(file.path()), "HelpTopic = (33\\d+);"));
    EXPECT_GE(topics.size(), 8u);
    for (const std::string& topic : topics) {
        const std::set<std::string> names = Found(project, ("#define (\\w+) " + topic + "\\b").c_str());
        ASSERT_EQ(names.size(), 1u) << topic;
        const std::set<std::string> pages = Found(project, (*names.begin() + "=(\\S+)").c_str());
        ASSERT_EQ(pages.size(), 1u) << topic;
        EXPECT_TRUE(fs::is_regular_file(Help / *pages.begin())) << topic;
        EXPECT_NE(project.find("\n" + *pages.begin() + "\n"), std::string::npos)
            << topic << " is not compiled";
    }
}

TEST(HelpPages, EveryLinkLeadsToAPage) {
    int links = 0;
    for (const auto& file : fs::directory_iterator(Help)) {
        for (const std::string& link :
             Found(Contents(file.path()), "(?:href|\"Local\" value)=\"([^\"]+)\"")) {
            ++links;
            const std::size_t mark = link.find('#');
            const fs::path page = mark == 0 ? file.path() : Help / link.substr(0, mark);
            ASSERT_TRUE(fs::is_regular_file(page)) << file.path() << ": " << link;
            if (mark == std::string::npos) continue;
            EXPECT_EQ(Found(Contents(page), "<a name=\"([^\"]+)\"").count(link.substr(mark + 1)), 1u)
                << file.path() << ": " << link;
        }
    }
    EXPECT_GT(links, 40);
}

} // namespace
} // namespace nesk
