#include "checking/MenuReport.h"

#include "base/Messages.h"
#include "base/ProblemMessages.h"
#include "base/ReportMessages.h"
#include "checking/EntryPlace.h"
#include "checking/EntryWalk.h"
#include "checking/MenuCheck.h"
#include "menu/Menu.h"
#include "menu/MenuItem.h"
#include "menu/MenuItemCollection.h"
#include "platform/Utf8.h"
#include "shell/modStringRes.h"

#include <algorithm>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace nesk {

using modStringRes::FormatResString;
using modStringRes::LoadResString;

namespace {

// The table of contents is indented up to this level: paper is narrow, a tree may be of any depth.
constexpr int MostIndented = 8;

// On paper, a longer word may be broken after a "\".
constexpr int LongestWord = 40;

// Keeps the text of a page together. Tags are in lower case; attributes and not styles set what the toolkit's
// printing has to know, which knows no styles.
class Page {
public:
    explicit Page(bool breaksWords) : m_breaksWords(breaksWords) {}

    Page& Raw(std::string_view html) {
        m_html += html;
        return *this;
    }

    Page& Text(std::string_view text) {
        int word = 0; // number of its characters so far
        while (!text.empty()) {
            const std::size_t length = std::max<std::size_t>(platform::Utf8Length(text), 1);
            AddCharacter(text.substr(0, length));
            word = text.front() == ' ' ? 0 : word + 1;
            if (m_breaksWords && text.front() == '\\' && word >= LongestWord) {
                m_html += ' ';
                word = 0;
            }
            text.remove_prefix(length);
        }
        return *this;
    }

    Page& Text(int id) { return Text(LoadResString(id)); }

    std::string Take() { return std::move(m_html); }

private:
    void AddCharacter(std::string_view character) {
        if (character == "&")
            m_html += "&amp;";
        else if (character == "<")
            m_html += "&lt;";
        else if (character == ">")
            m_html += "&gt;";
        else if (character == "\"")
            m_html += "&quot;";
        else if (character.size() == 4 && platform::Utf8Decode(character) >= platform::EscapeBase)
            m_html += "\uFFFD"; // a byte that the code page cannot decode
        else
            m_html += character;
    }

    bool m_breaksWords;
    std::string m_html;
};

const char* ColourOf(Severity severity) {
    switch (severity) {
    case Severity::Error: return "#f4c7c3";
    case Severity::Warning: return "#fce8b2";
    default: return "#e8eaed";
    }
}

int NameOf(Severity severity) {
    switch (severity) {
    case Severity::Error: return Message::SeverityError;
    case Severity::Warning: return Message::SeverityWarning;
    default: return Message::SeverityHint;
    }
}

class Report {
public:
    Report(const Menu& menu, const MenuCheck& check, const ReportOptions& options)
        : m_menu(menu)
        , m_check(check)
        , m_options(options)
        , m_partNames(check.PartNames())
        , m_page(options.isForPaper) {
        for (std::size_t i = 0; i < check.Count(); ++i)
            m_problems[check.EntryAt(i)].push_back(i);
        ForEachEntry(menu, [this](const MenuEntry& entry) {
            m_numbers.emplace(&entry, m_order.size());
            m_order.push_back(&entry);
        });
    }

    std::string Make() {
        Head();
        Contents();
        Problems();
        for (const MenuEntry* entry : m_order)
            if (IsListed(*entry)) Submenu(*entry);
        m_page.Raw("</body>\n</html>\n");
        return m_page.Take();
    }

private:
    // A submenu, or a part that has entries because another program wrote the file.
    static bool IsListed(const MenuEntry& entry) {
        if (entry.ParentMenu() == nullptr || entry.ChildCount() > 0) return true;
        return !static_cast<const MenuItem&>(entry).IsPart();
    }

    std::string Anchor(const MenuEntry& entry) const { return "e" + std::to_string(m_numbers.at(&entry)); }

    void Link(const MenuEntry& entry, std::string_view text) {
        if (m_options.isForPaper)
            m_page.Text(text);
        else
            m_page.Raw("<a href=\"#" + Anchor(entry) + "\">").Text(text).Raw("</a>");
    }

    void Head() {
        m_page.Raw("<!DOCTYPE html>\n<html>\n<head>\n<meta charset=\"utf-8\">\n<title>")
            .Text(m_menu.Caption())
            .Raw("</title>\n</head>\n<body>\n<h1>")
            .Text(m_menu.Caption())
            .Raw("</h1>\n<p>");
        if (!m_options.menuPath.empty())
            m_page.Text(FormatResString(Message::ReportMenuFile, m_options.menuPath)).Raw("<br>\n");
        if (m_options.isUnsaved) m_page.Text(Message::ReportUnsaved).Raw("<br>\n");
        m_page.Text(FormatResString(Message::ReportDate, m_options.date)).Raw("</p>\n");
    }

    void Contents() {
        m_page.Raw("<h2>").Text(Message::ReportContents).Raw("</h2>\n<p>");
        for (const MenuEntry* entry : m_order) {
            if (!IsListed(*entry)) continue;
            int level = 0;
            for (const MenuEntry* above = entry->ParentMenu(); above != nullptr && level < MostIndented;
                 above = above->ParentMenu())
                ++level;
            for (int i = 0; i < level; ++i)
                m_page.Raw("&nbsp;&nbsp;&nbsp;&nbsp;");
            Link(*entry, entry->Caption());
            m_page.Raw("<br>\n");
        }
        m_page.Raw("</p>\n");
    }

    void Problems() {
        m_page.Raw("<h2>").Text(Message::ProblemsTitle).Raw("</h2>\n");
        if (m_check.FilesWaiting() > 0)
            m_page.Raw("<p>")
                .Text(FormatResString(Message::ReportFilesWaiting, m_check.FilesWaiting()))
                .Raw("</p>\n");
        if (m_check.Count() == 0) {
            m_page.Raw("<p>").Text(Message::ProblemsNone).Raw("</p>\n");
            return;
        }
        BeginTable({LoadResString(Message::ProblemsSeverityColumn), LoadResString(Message::ReplaceEntry),
                    LoadResString(Message::EntrySubmenu), LoadResString(Message::ReplaceField),
                    LoadResString(Message::ProblemsTextColumn)});
        for (std::size_t i = 0; i < m_check.Count(); ++i) {
            const Finding finding = m_check.At(i);
            m_page.Raw("<tr><td bgcolor=\"").Raw(ColourOf(finding.severity)).Raw("\">");
            m_page.Text(NameOf(finding.severity)).Raw("</td><td>");
            Link(*finding.entry, finding.entry->Caption());
            m_page.Raw("</td><td>").Text(EntryPlace(*finding.entry)).Raw("</td><td>");
            m_page.Text(finding.FieldName()).Raw("</td><td>").Text(finding.Text()).Raw("</td></tr>\n");
        }
        m_page.Raw("</table>\n");
    }

    void BeginTable(const std::vector<std::string>& titles) {
        m_page.Raw(R"(<table border="1" cellspacing="0" cellpadding="4" width="100%">)").Raw("\n<tr>");
        for (const std::string& title : titles)
            m_page.Raw(R"(<th align="left" bgcolor="#dddddd">)").Text(title).Raw("</th>");
        m_page.Raw("</tr>\n");
    }

    void Submenu(const MenuEntry& entry) {
        m_page.Raw("<h2><a name=\"" + Anchor(entry) + "\"></a>").Text(entry.Caption()).Raw("</h2>\n");
        if (const std::string place = EntryPlace(entry); !place.empty())
            m_page.Raw("<p>").Text(place).Raw("</p>\n");
        // The fields of a submenu are in the table of the submenu above. The menu itself is in none.
        if (entry.ParentMenu() == nullptr) {
            Picture(entry.Graphic());
            ProblemsOf(entry);
        }
        if (entry.ChildCount() == 0) {
            m_page.Raw("<p>").Text(Message::ProblemEmptySubmenu).Raw("</p>\n");
            return;
        }
        BeginTable({TextFieldName(TextField::Picture), TextFieldName(TextField::Caption),
                    LoadResString(Message::ReportFields)});
        for (int i = 1; i <= entry.ChildCount(); ++i)
            Row(entry.Children()->Item(i));
        m_page.Raw("</table>\n");
    }

    void Row(const MenuItem& item) {
        m_page.Raw("<tr valign=\"top\"><td>");
        Picture(item.Graphic());
        m_page.Raw("&nbsp;</td><td>");
        if (IsListed(item)) {
            Link(item, item.Caption());
        } else {
            m_page.Raw("<a name=\"" + Anchor(item) + "\"></a>").Text(item.Caption());
        }
        m_page.Raw("</td><td>");
        Fields(item);
        ProblemsOf(item);
        m_page.Raw("&nbsp;</td></tr>\n");
    }

    void Picture(std::string_view path) {
        if (path.empty() || !m_options.pictureAddress) return;
        const std::string address = m_options.pictureAddress(std::string(path));
        if (!address.empty()) m_page.Raw("<img src=\"").Text(address).Raw("\" alt=\"\">\n");
    }

    void Fields(const MenuItem& item) {
        if (const auto name = m_partNames.find(&item); name != m_partNames.end())
            Field(LoadResString(Message::FindPartName), name->second);
        for (const TextFieldInfo& info : TextFields())
            if (info.field != TextField::Caption)
                Field(TextFieldName(info.field), FieldText(item, info.field));
        if (item.HelpTopic() != 0)
            Field(LoadResString(Message::ReportHelpTopic), std::to_string(item.HelpTopic()));
    }

    void Field(std::string_view name, std::string_view text) {
        if (!text.empty()) m_page.Text(name).Raw(": ").Text(text).Raw("<br>\n");
    }

    void ProblemsOf(const MenuEntry& entry) {
        const auto found = m_problems.find(&entry);
        if (found == m_problems.end()) return;
        for (const std::size_t index : found->second) {
            const Finding finding = m_check.At(index);
            m_page.Raw("<b>").Text(NameOf(finding.severity)).Raw(":</b> ");
            m_page.Text(finding.Text()).Raw("<br>\n");
        }
    }

    const Menu& m_menu;
    const MenuCheck& m_check;
    const ReportOptions& m_options;
    std::unordered_map<const MenuEntry*, std::string> m_partNames;
    std::unordered_map<const MenuEntry*, std::vector<std::size_t>> m_problems;
    std::unordered_map<const MenuEntry*, std::size_t> m_numbers;
    std::vector<const MenuEntry*> m_order;
    Page m_page;
};

} // namespace

std::string MenuReport(const Menu& menu, const MenuCheck& check, const ReportOptions& options) {
    return Report(menu, check, options).Make();
}

} // namespace nesk
