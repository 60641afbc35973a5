#include "shell/MessageBoxLayout.h"

#include <gtest/gtest.h>
#include <string>

namespace nesk {
namespace {

std::string Summary(std::int16_t options) {
    std::string result;
    for (const MessageBoxButton& button : LayoutOf(options).buttons)
        result += std::string(button.caption) + ":" + std::to_string(button.resultCode) + " ";
    return result;
}

TEST(MessageBoxLayout, ButtonSets) {
    EXPECT_EQ(Summary(0), "OK:1 ");
    EXPECT_EQ(Summary(1), "OK:1 Cancel:2 ");
    EXPECT_EQ(Summary(2), "Abort:3 Retry:4 Ignore:5 ");
    EXPECT_EQ(Summary(3), "Yes:6 No:7 Cancel:2 ");
    EXPECT_EQ(Summary(4), "Yes:6 No:7 ");
    EXPECT_EQ(Summary(5), "Retry:4 Cancel:2 ");
    for (std::int16_t options = 6; options < 16; ++options)
        EXPECT_EQ(Summary(options), "");
}

TEST(MessageBoxLayout, Icons) {
    EXPECT_EQ(LayoutOf(16).icon, "Critical");
    EXPECT_EQ(LayoutOf(32).icon, "Question");
    EXPECT_EQ(LayoutOf(0x30).icon, "Exclamation");
    EXPECT_EQ(LayoutOf(64).icon, "Information");
    for (const int options : {0, 80, 96, 112, 128, 240})
        EXPECT_EQ(LayoutOf(static_cast<std::int16_t>(options)).icon, "");
    EXPECT_EQ(Summary(0x30), "OK:1 ");
}

TEST(MessageBoxLayout, DefaultButton) {
    EXPECT_EQ(LayoutOf(0x103).defaultButton, 2);
    EXPECT_EQ(LayoutOf(0x203).defaultButton, 3);
    EXPECT_EQ(LayoutOf(0x204).defaultButton, 1);
    EXPECT_EQ(LayoutOf(0x104).defaultButton, 2);
    EXPECT_EQ(LayoutOf(0x100).defaultButton, 1);
    EXPECT_EQ(LayoutOf(0x300 | 3).defaultButton, 1);
}

TEST(MessageBoxLayout, EscapeIsCancelOrTheOnlyButton) {
    EXPECT_EQ(LayoutOf(0).EscapeCode(), 1);
    EXPECT_EQ(LayoutOf(1).EscapeCode(), 2);
    EXPECT_EQ(LayoutOf(2).EscapeCode(), 0);
    EXPECT_EQ(LayoutOf(3).EscapeCode(), 2);
    EXPECT_EQ(LayoutOf(4).EscapeCode(), 0);
    EXPECT_EQ(LayoutOf(6).EscapeCode(), 0);
}

} // namespace
} // namespace nesk
