#include "checking/CaptionFit.h"

#include <gtest/gtest.h>

#include "platform/Utf8.h"

#include <algorithm>

namespace nesk {
namespace {

using Shown = CaptionFit::Shown;

// Every character is 8 pixels wide. On a screen of 640 pixels a line has room for 12 of them.
class CaptionFitTest : public ::testing::Test {
protected:
    static int WidthOf(std::string_view text) {
        return 8 * static_cast<int>(std::count_if(text.begin(), text.end(), [](char byte) {
                   return !platform::ContinuesCharacter(byte);
               }));
    }

    const CaptionFit fit{{640, 480}, WidthOf};
};

TEST_F(CaptionFitTest, AShortCaptionIsOneLine) {
    EXPECT_EQ(fit.Fit("Housing"), (Shown{{"Housing"}, false}));
    EXPECT_EQ(fit.Fit(""), (Shown{{""}, false}));
    EXPECT_EQ(fit.Fit("exactly 12 c"), (Shown{{"exactly 12 c"}, false}));
}

TEST_F(CaptionFitTest, ALongerOneIsWrappedBetweenWords) {
    EXPECT_EQ(fit.Fit("Crankshaft bearing"), (Shown{{"Crankshaft", "bearing"}, false}));
    EXPECT_TRUE(fit.Fits("Crankshaft bearing"));
}

TEST_F(CaptionFitTest, AWordThatIsTooWideIsBroken) {
    EXPECT_EQ(fit.Fit("Kurbelwellenlager"), (Shown{{"Kurbelwellen", "lager"}, false}));
}

TEST_F(CaptionFitTest, WhatDoesNotFitIsCut) {
    const Shown shown = fit.Fit("Crankshaft bearing front left");
    EXPECT_EQ(shown, (Shown{{"Crankshaft", "bearing fro\xE2\x80\xA6"}, true}));
    EXPECT_FALSE(fit.Fits("Crankshaft bearing front left"));
    EXPECT_LE(WidthOf(shown.lines.back()), 12 * 8);
}

TEST_F(CaptionFitTest, NoCharacterIsCutInTwo) {
    std::string umlauts;
    for (int i = 0; i < 30; ++i)
        umlauts += "\xC3\xA4";
    const Shown shown = fit.Fit(umlauts);
    EXPECT_TRUE(shown.isCut);
    for (const std::string& line : shown.lines)
        EXPECT_TRUE(platform::IsUtf8(line));
    EXPECT_EQ(shown.lines[1].size(), 11 * 2 + 3u);
}

TEST_F(CaptionFitTest, TheScreenDecides) {
    const std::string caption = "Crankshaft bearing front left";
    EXPECT_FALSE(fit.Fits(caption));
    EXPECT_TRUE(CaptionFit({1024, 768}, WidthOf).Fits(caption));
    EXPECT_FALSE(
        CaptionFit({1024, 768}, [](std::string_view text) { return 2 * WidthOf(text); }).Fits(caption))
        << "a wider font";
}

TEST_F(CaptionFitTest, AVeryLongCaptionIsMeasuredInParts) {
    std::size_t measured = 0;
    const CaptionFit counting({640, 480}, [&](std::string_view text) {
        measured = std::max(measured, text.size());
        return WidthOf(text);
    });
    EXPECT_TRUE(counting.Fit(std::string(1000000, 'x')).isCut);
    EXPECT_LE(measured, 1000u);
    EXPECT_TRUE(CaptionFit({640, 480}, [](std::string_view) { return 0; }).Fit(std::string(2000, 'x')).isCut)
        << "characters without a width";
}

TEST_F(CaptionFitTest, NothingFitsIntoNoWidth) {
    const CaptionFit wide({640, 480}, [](std::string_view text) { return text.empty() ? 0 : 1000; });
    EXPECT_TRUE(wide.Fit("abcdef").isCut);
    EXPECT_TRUE(wide.Fits("a")) << "a single character is shown though it is too wide";
}

} // namespace
} // namespace nesk
