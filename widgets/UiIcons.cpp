#include "widgets/UiIcons.h"

#include <algorithm>
#include <array>
#include <string>

namespace nesk {

namespace {

struct Icon {
    std::string_view key;
    const char* svg;
};

// All icons use a grid of 32. Edges are at even coordinates, so that they are also sharp at 16 pixels.
constexpr std::array<Icon, 9> icons = {{
    {"folder", R"(<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 32 32">
<path fill="#c98a1b" d="M2 7a3 3 0 0 1 3-3h7l4 4h11a3 3 0 0 1 3 3v14H2z"/>
<path fill="#fff7e0" d="M5 10h22v8H5z"/>
<path fill="#f5be4b" d="M2 12h28v13a3 3 0 0 1-3 3H5a3 3 0 0 1-3-3z"/>
<path fill="#e0a02f" d="M2 24v1a3 3 0 0 0 3 3h22a3 3 0 0 0 3-3v-1z"/>
</svg>)"},

    // The pale edge separates the wheel from the colour of a selected row.
    {"part", R"(<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 32 32">
<path fill="#ffffff" stroke="#ffffff" stroke-width="3" stroke-linejoin="round" d="M13.2 4.9 13.7 1.2 18.3 1.2 18.8 4.9
21.9 6.2 24.8 3.9 28.1 7.2 25.8 10.1 27.1 13.2 30.8 13.7 30.8 18.3 27.1 18.8
25.8 21.9 28.1 24.8 24.8 28.1 21.9 25.8 18.8 27.1 18.3 30.8 13.7 30.8 13.2 27.1
10.1 25.8 7.2 28.1 3.9 24.8 6.2 21.9 4.9 18.8 1.2 18.3 1.2 13.7 4.9 13.2
6.2 10.1 3.9 7.2 7.2 3.9 10.1 6.2z"/>
<path fill="#5d7f99" fill-rule="evenodd" d="M13.2 4.9 13.7 1.2 18.3 1.2 18.8 4.9
21.9 6.2 24.8 3.9 28.1 7.2 25.8 10.1 27.1 13.2 30.8 13.7 30.8 18.3 27.1 18.8
25.8 21.9 28.1 24.8 24.8 28.1 21.9 25.8 18.8 27.1 18.3 30.8 13.7 30.8 13.2 27.1
10.1 25.8 7.2 28.1 3.9 24.8 6.2 21.9 4.9 18.8 1.2 18.3 1.2 13.7 4.9 13.2
6.2 10.1 3.9 7.2 7.2 3.9 10.1 6.2z
M11 16a5 5 0 0 0 10 0a5 5 0 0 0-10 0z"/>
<path fill="#a9c4d6" fill-rule="evenodd" d="M8 16a8 8 0 0 1 16 0a8 8 0 0 1-16 0z
M11 16a5 5 0 0 0 10 0a5 5 0 0 0-10 0z"/>
</svg>)"},

    // A probe that touches a menu button
    {"app", R"(<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 32 32">
<rect fill="#1d4e7a" x="0" y="0" width="32" height="32" rx="6"/>
<path fill="#dfe8ef" d="M10 0h12v8l-4 4h-4l-4-4z"/>
<path fill="#a8bccb" d="M18 0h4v8l-4 4z"/>
<rect fill="#dfe8ef" x="15" y="12" width="2" height="4"/>
<circle fill="#e5484d" cx="16" cy="18" r="4"/>
<rect fill="#f5be4b" x="4" y="22" width="24" height="6" rx="2"/>
</svg>)"},

    {"edit", R"(<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 32 32">
<path fill="#f5be4b" stroke="#8a5f12" stroke-width="2" stroke-linejoin="round" d="M22 4l6 6-16 16-6-6z"/>
<path fill="#e5848a" stroke="#8a3a40" stroke-width="2" stroke-linejoin="round" d="M22 4l2-2h2l4 4v2l-2 2z"/>
<path fill="#f7e3c0" stroke="#8a5f12" stroke-width="2" stroke-linejoin="round" d="M6 20l6 6-9 3z"/>
<path fill="#3a2c05" d="M3 29l1-4 3 3z"/>
</svg>)"},

    {"remove", R"(<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 32 32">
<path fill="none" stroke="#8a1a12" stroke-width="8" stroke-linecap="round" d="M7 7l18 18M25 7L7 25"/>
<path fill="none" stroke="#d83a2f" stroke-width="5" stroke-linecap="round" d="M7 7l18 18M25 7L7 25"/>
</svg>)"},

    {"Critical", R"(<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 32 32">
<circle fill="#a8232b" cx="16" cy="16" r="15"/>
<circle fill="#d83a42" cx="16" cy="16" r="13"/>
<path fill="none" stroke="#ffffff" stroke-width="4" stroke-linecap="round" d="M11 11l10 10M21 11l-10 10"/>
</svg>)"},

    {"Question", R"(<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 32 32">
<circle fill="#0f6b62" cx="16" cy="16" r="15"/>
<circle fill="#178f83" cx="16" cy="16" r="13"/>
<path fill="none" stroke="#ffffff" stroke-width="3.6" stroke-linecap="round" stroke-linejoin="round"
 d="M11.4 11.6a4.6 4.6 0 1 1 7.2 3.8c-1.8 1.2-2.6 1.6-2.6 3.2"/>
<circle fill="#ffffff" cx="16" cy="24.2" r="2.2"/>
</svg>)"},

    {"Exclamation", R"(<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 32 32">
<path fill="#f2b632" stroke="#c58a12" stroke-width="2" stroke-linejoin="round" d="M16 3l14 25H2z"/>
<path fill="none" stroke="#3a2c05" stroke-width="4" stroke-linecap="round" d="M16 12v5"/>
<circle fill="#3a2c05" cx="16" cy="23.8" r="2.2"/>
</svg>)"},

    {"Information", R"(<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 32 32">
<circle fill="#1c5aa0" cx="16" cy="16" r="15"/>
<circle fill="#2f7ed8" cx="16" cy="16" r="13"/>
<circle fill="#ffffff" cx="16" cy="8.6" r="2.4"/>
<path fill="none" stroke="#ffffff" stroke-width="4" stroke-linecap="round" d="M16 15.6v7.4"/>
</svg>)"},
}};

// Small pictures in the lower right corner of another one. Each has a light edge, so that it stands out on
// any picture, and a form of its own, so that it can be told without its colour.
constexpr std::array<Icon, 2> overlays = {{
    {"add",
     R"(<path fill="none" stroke="#ffffff" stroke-width="10" stroke-linecap="round" d="M23 17v12M17 23h12"/>
<path fill="none" stroke="#1a7f37" stroke-width="6" stroke-linecap="butt" d="M23 15v16M15 23h16"/>
</svg>)"},

    {"warning",
     R"(<path fill="#ffffff" stroke="#ffffff" stroke-width="4" stroke-linejoin="round" d="M21 12l9 18H12z"/>
<path fill="#ffcf3f" stroke="#7a4a00" stroke-width="2" stroke-linejoin="round" d="M21 12l9 18H12z"/>
<path fill="#000000" d="M19.5 17h3v7h-3zM19.5 25.5h3v3h-3z"/>
</svg>)"},
}};

template <std::size_t Count>
std::string_view SvgOf(const std::array<Icon, Count>& pictures, std::string_view key) {
    const auto* icon =
        std::find_if(pictures.begin(), pictures.end(), [key](const Icon& i) { return i.key == key; });
    return icon == pictures.end() ? std::string_view() : icon->svg;
}

} // namespace

wxBitmapBundle IconBundle(std::string_view key, wxSize size) {
    const std::size_t plus = key.find('+');
    std::string svg(SvgOf(icons, key.substr(0, plus)));
    if (plus != std::string_view::npos && !svg.empty()) {
        const std::string_view overlay = SvgOf(overlays, key.substr(plus + 1));
        if (overlay.empty()) return {};
        svg.resize(svg.rfind("</svg>"));
        svg += overlay;
    }
    return svg.empty() ? wxBitmapBundle() : wxBitmapBundle::FromSVG(svg.c_str(), size);
}

} // namespace nesk
