#pragma once

/// Names for the numbers of the strings of the preview. The texts are in languages/.
namespace nesk::Message {

constexpr int CommandPreview = 35010;

constexpr int PreviewName = 35400;       // %0% submenu
constexpr int PreviewPage = 35401;       // %0% page, %1% pages
constexpr int PreviewScreen = 35402;     // label
constexpr int PreviewScreenSize = 35403; // %0% width, %1% height
constexpr int PreviewThisScreen = 35404; // %0% width, %1% height
constexpr int PreviewPin = 35405;
constexpr int PreviewPinHelp = 35406;
constexpr int PreviewUp = 35407;
constexpr int PreviewUpHelp = 35408;
constexpr int PreviewEmpty = 35409;
constexpr int PreviewNoPicture = 35410; // %0% file
constexpr int PreviewPart = 35411;      // %0% submenu, %1% part, %2% number, %3% count
constexpr int PreviewSubmenu = 35412;   // %0% submenu, %1% submenu in it, %2% number, %3% count
constexpr int PreviewScreenHelp = 35413;

} // namespace nesk::Message
