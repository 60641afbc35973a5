#include "gui/GuiFixture.h"

#include "settings/NeskRegistry.h"
#include "shell/Startup.h"
#include "widgets/UiUtilities.h"

#include <fstream>
#include <functional>
#include <sstream>
#include <stdexcept>

#include <wx/infobar.h>
#include <wx/msgdlg.h>

namespace nesk::testing {

using modUtilities::FromWx;

namespace {

std::string Item(const std::string& tabs, const std::string& caption, const std::string& type,
                 const std::string& children = "") {
    const std::string inner = tabs + "\t";
    std::string text = tabs + "BLOCK SUBMENU\r\n";
    for (const std::string& line :
         {"CAPTION=" + caption, std::string("GRAPHIC="), std::string("PREVIEW="), std::string("HELPFILE="),
          std::string("HELPTOPIC=0"), "MENUTYPE=" + type, std::string("PROGRAMID="),
          std::string("HISTORY_DIR="), std::string("HISTORY_TITLE=")})
        text += inner + line + "\r\n";
    return text + children + tabs + "END\r\n";
}

} // namespace

const std::string SmallMenu = "BLOCK MENU\r\n\tCAPTION=Main Menu\r\n\tGRAPHIC=\r\n" +
                              Item("\t", "First", "Part Program") +
                              Item("\t", "Brackets", "Menu", Item("\t\t", "Angle", "Part Program")) +
                              Item("\t", "Last", "Part Program") + "END\r\n";

DialogScript::~DialogScript() {
    Unregister();
    EXPECT_TRUE(m_answers.empty()) << "a dialog that was expected did not come";
}

int DialogScript::Enter(wxDialog* dialog) {
    ShownDialog entry;
    entry.title = FromWx(dialog->GetTitle());
    if (const auto* message = dynamic_cast<wxMessageDialog*>(dialog)) {
        entry.title = FromWx(message->GetCaption());
        entry.text = FromWx(message->GetMessage());
        entry.style = message->GetMessageDialogStyle();
    }
    shown.push_back(entry);
    if (m_answers.empty()) {
        ADD_FAILURE() << "unexpected dialog: " << entry.title << ": " << entry.text;
        return wxID_CANCEL;
    }
    const int answer = m_answers.front();
    m_answers.pop_front();
    return answer;
}

MainWindowTest::MainWindowTest() {
    station.Write("C:\\Neskroot\\readme.txt", "");
    Startup::InitLanguage();
    NeskRegistry::Instance() = NeskRegistry();
    NeskRegistry::Instance().NeskRoot = "C:\\Neskroot";
}

MainWindowTest::~MainWindowTest() {
    if (window != nullptr) {
        window->Editor().Close();
        window->Destroy();
        Settle();
    }
}

std::string MainWindowTest::MenuOnDisk() const {
    std::ifstream file(TempStation::Host("C:\\Neskroot\\menu.cfg"), std::ios::binary);
    std::ostringstream bytes;
    bytes << file.rdbuf();
    return bytes.str();
}

void MainWindowTest::OpenWindow() {
    window = new FormMain;
    ShowActive(*window);
}

void MainWindowTest::Select(const std::string& id) {
    window->tvMain->SelectKey(id);
    Settle();
}

std::string MainWindowTest::TreeText() const {
    std::string text;
    platform::TreeView& tree = Tree();
    const std::function<void(platform::TreeNode&, std::size_t)> add = [&](platform::TreeNode& node,
                                                                          std::size_t level) {
        text += std::string(level, ' ') + node.Text() + "\n";
        tree.Fill(node);
        for (std::size_t i = 0; i < node.ChildCount(); ++i)
            add(node.Child(i), level + 1);
    };
    if (tree.Root() != nullptr) add(*tree.Root(), 0);
    return text;
}

platform::TreeNode& MainWindowTest::Row(const std::string& id) const {
    platform::TreeNode* node = window->tvMain->NodeOf(id);
    if (node == nullptr) throw std::runtime_error("no row for " + id);
    return *node;
}

bool MainWindowTest::IsShown(const FormMain::InfoBar& bar) {
    return bar.window != nullptr && bar.window->IsShown() && bar.window->GetName() == bar.name;
}

std::string MainWindowTest::SelectedText() const {
    std::string text;
    for (const platform::TreeNode* node : Tree().Selection())
        text += (text.empty() ? "" : " ") + node->Text();
    return text;
}

wxPoint MainWindowTest::PointIn(const std::string& id, double part) const {
    // A row has a position only after the layout of the window.
    if (!WaitUntil([&] { return !Tree().RowRect(Row(id)).IsEmpty(); }))
        throw std::runtime_error("the row of " + id + " cannot be seen");
    const wxRect row = Tree().RowRect(Row(id));
    const wxPoint point(row.x + 8, row.y + static_cast<int>(row.height * part));
    return Tree().Window().ClientToScreen(point);
}

void MainWindowTest::ClickRow(const std::string& id, int button, int key) {
    ClickPoint(MiddleOf(id), button, key);
}

void MainWindowTest::DoubleClickRow(const std::string& id) {
    DoubleClickPoint(MiddleOf(id));
}

} // namespace nesk::testing
