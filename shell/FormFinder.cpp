#include "shell/FormFinder.h"

#include "base/Messages.h"
#include "menu/MenuId.h"
#include "menu/MenuItem.h"
#include "menu/MenuItemCollection.h"
#include "shell/FormFindBar.h"
#include "shell/FormMenuTree.h"
#include "shell/FormToolBar.h"
#include "shell/modStringRes.h"
#include "widgets/UiUtilities.h"

#include <algorithm>
#include <chrono>

#include <wx/app.h>
#include <wx/checkbox.h>
#include <wx/frame.h>
#include <wx/sizer.h>
#include <wx/srchctrl.h>
#include <wx/utils.h>
#include <wx/wupdlock.h>

namespace nesk {

using modStringRes::FormatResString;
using modStringRes::LoadResString;
using platform::TreeNode;

namespace {

// Short enough that a key pressed meanwhile is answered at once.
constexpr std::chrono::milliseconds Slice{3};

// A filtered tree shows so many entries at once; the user expands the others.
constexpr std::size_t MostExpanded = 300;
constexpr std::size_t MostLevels = 100;

// An entry at a greater depth cannot be shown: the control would recurse over all levels.
constexpr std::size_t DeepestShown = 1000;

} // namespace

FormFinder::FormFinder(wxFrame& frame, MenuEditor& editor, FormMenuTree& tree)
    : m_frame(frame), m_editor(editor), m_tree(tree), m_search(editor) {
    editor.AddListener(*this);
    m_tree.View().on.isMarked = [this](TreeNode& node) {
        if (!m_search.IsActive()) return false;
        const MenuEntry* entry = m_editor.Find(FormMenuTree::KeyOf(&node));
        return entry != nullptr && m_search.Matches(*entry);
    };
    m_frame.Bind(wxEVT_IDLE, &FormFinder::OnIdle, this);
}

FormFinder::~FormFinder() {
    m_frame.Unbind(wxEVT_IDLE, &FormFinder::OnIdle, this);
    m_tree.View().on.isMarked = {};
    m_tree.SetFilter({});
    m_editor.RemoveListener(*this);
}

bool FormFinder::IsShown() const {
    return m_bar != nullptr && m_bar->IsShown();
}

std::string FormFinder::Text() const {
    return IsShown() ? m_bar->Text() : "";
}

void FormFinder::BuildBar() {
    m_bar = new FormFindBar(&m_frame);
    m_bar->Hide();
    // The bar is above the tree and the panes around it.
    wxWindow* below = &m_tree.Window();
    while (below->GetParent() != &m_frame)
        below = below->GetParent();
    m_bar->MoveBeforeInTabOrder(below);
    modUtilities::SetFormFont(*m_bar);
    m_bar->onText = [this] { OnText(); };
    m_bar->onNext = [this] { Next(); };
    m_bar->onPrevious = [this] { Previous(); };
    m_bar->onMatchesOnly = [this] { ToggleFilter(); };
    m_bar->onClose = [this] { End(); };
    wxSizer* sizer = m_frame.GetSizer();
    const wxSizerItem* place = sizer->GetItem(below);
    for (std::size_t i = 0; i < sizer->GetItemCount(); ++i)
        if (sizer->GetItem(i) == place) {
            sizer->Insert(i, m_bar, wxSizerFlags().Expand());
            break;
        }
}

void FormFinder::UseToolBar(FormToolBar& bar) {
    m_toolBar = &bar;
    if (m_bar != nullptr) m_bar->UseBox(nullptr);
    wxSearchCtrl& box = *bar.txtFind;
    box.Enable(m_editor.IsOpen());
    box.Bind(wxEVT_TEXT, [this, &box](wxCommandEvent&) {
        box.ShowCancelButton(!box.IsEmpty());
        if (!m_editor.IsOpen()) return;
        ShowBar();
        OnText();
    });
    box.Bind(wxEVT_SEARCH_CANCEL, [&box](wxCommandEvent&) { box.Clear(); });
}

// Shows the bar, with the box that can be seen.
void FormFinder::ShowBar() {
    if (m_bar == nullptr) BuildBar();
    m_bar->UseBox(m_toolBar != nullptr && m_toolBar->ShowsFindBox() ? m_toolBar->txtFind : nullptr);
    if (m_bar->IsShown()) return;
    m_bar->ShowTexts();
    m_bar->Show();
    m_frame.Layout();
    StartHere();
    // The parts may have got other names meanwhile.
    m_search.ForgetNames();
}

// Takes the selected entry as the one from which the first match of a text is looked for.
void FormFinder::StartHere() {
    m_origin = m_tree.SelectedKey();
    m_start = m_tree.Context();
}

void FormFinder::Begin() {
    ShowBar();
    StartHere();
    m_bar->FocusText();
    ShowState();
    wxWakeUpIdle();
}

void FormFinder::End() {
    if (!IsShown()) return;
    const bool wasFiltering = m_isFiltering;
    m_isFiltering = m_goesToFirst = false;
    m_search.SetText("");
    m_kept.clear();
    m_bar->SetText("");
    m_bar->Hide();
    m_frame.Layout();
    if (wasFiltering) ApplyFilter();
    m_tree.View().RefreshMarks();
    m_tree.Window().SetFocus();
}

// The search finishes the texts at once. Names of parts, which need files, come in idle time.
void FormFinder::OnText() {
    m_search.SetText(m_bar->Text());
    if (m_search.IsActive()) m_search.FinishTexts();
    const wxWindowUpdateLocker locker(&m_tree.Window());
    // What was expanded for a shorter text closes again.
    if (m_isFiltering)
        ApplyFilter();
    else if (m_start)
        m_start->Restore();
    const MenuEntry* origin = m_editor.Find(m_origin);
    GoTo(m_search.NextFrom(origin));
    m_goesToFirst = m_search.IsActive() && m_search.Count() == 0;
    ShowState();
    m_tree.View().RefreshMarks();
    wxWakeUpIdle();
}

void FormFinder::OnIdle(wxIdleEvent& event) {
    event.Skip();
    if (!IsShown() || !m_editor.IsOpen() || m_tree.View().Edited() != nullptr) return;
    // Rows that are built again cannot be dropped.
    if (!m_tree.View().Dragged().empty()) return;
    const bool isMore = m_search.Step(Slice);
    if (isMore) event.RequestMore();
    if (m_goesToFirst && m_search.Count() > 0) {
        m_goesToFirst = false;
        if (m_isFiltering) ApplyFilter();
        GoTo(m_search.NextFrom(m_editor.Find(m_origin)));
    }
    if (m_shownVersion == m_search.Version() && isMore) return;
    // A filtered tree is built again only once, when all names are read.
    if (m_isFiltering && !isMore && m_shownByName != m_search.FoundByName()) ApplyFilter();
    if (m_shownVersion != m_search.Version()) m_tree.View().RefreshMarks();
    m_shownVersion = m_search.Version();
    ShowState();
}

// --- going to entries ---

const MenuEntry* FormFinder::Selected() const {
    return m_editor.Find(m_tree.SelectedKey());
}

void FormFinder::GoTo(const MenuEntry* entry) {
    if (entry == nullptr) return;
    const std::string id = entry->ID();
    if (MenuId::Parts(id).size() > DeepestShown) return wxBell();
    m_tree.SelectKey(id);
}

void FormFinder::Next() {
    if (!IsShown() || !m_search.IsActive()) return Begin();
    m_search.FinishTexts();
    if (m_search.Count() == 0) wxBell();
    GoTo(m_search.Next(Selected()));
    StartHere();
    ShowState();
}

void FormFinder::Previous() {
    if (!IsShown() || !m_search.IsActive()) return Begin();
    m_search.FinishTexts();
    if (m_search.Count() == 0) wxBell();
    GoTo(m_search.Previous(Selected()));
    StartHere();
    ShowState();
}

// Which one of the entries found is selected, and where it has the text if that is not to be seen.
std::string FormFinder::NumberText(const MenuEntry& selected, std::size_t number, std::size_t count) const {
    const auto found = m_search.FoundBesideCaption(selected);
    return found ? FormatResString(Message::FindBarField, number, count, found->field, found->text)
                 : FormatResString(Message::FindBarNumber, number, count);
}

void FormFinder::ShowState() {
    if (!IsShown()) return;
    m_bar->chkMatchesOnly->SetValue(m_isFiltering);
    if (!m_search.IsActive()) return m_bar->ShowFound("");
    const std::size_t count = m_search.Count();
    const MenuEntry* selected = Selected();
    const std::size_t number = selected != nullptr ? m_search.NumberOf(*selected) : 0;
    if (!m_search.IsDone())
        m_bar->ShowFound(FormatResString(Message::FindBarSearching, count));
    else if (count == 0)
        m_bar->ShowFound(LoadResString(Message::FindBarNothing));
    else if (number > 0)
        m_bar->ShowFound(NumberText(*selected, number, count));
    else
        m_bar->ShowFound(FormatResString(Message::FindBarCount, count));
}

bool FormFinder::OnCharHook(wxKeyEvent& event) {
    // A click into the box of the tool bar begins to find.
    if (m_toolBar != nullptr && !IsShown() && m_editor.IsOpen() &&
        m_toolBar->IsDescendant(wxWindow::FindFocus()))
        ShowBar();
    if (!IsShown() || m_tree.View().Edited() != nullptr) return false;
    if (m_bar->HasFocusInside()) return m_bar->OnCharHook(event);
    if (event.GetKeyCode() != WXK_ESCAPE || event.HasAnyModifiers()) return false;
    End();
    return true;
}

// --- the filter ---

void FormFinder::ToggleFilter() {
    const bool on = !m_isFiltering;
    if (!IsShown()) Begin();
    m_isFiltering = on;
    m_kept.clear();
    ApplyFilter();
    ShowState();
    if (m_search.IsActive())
        m_tree.Window().SetFocus();
    else if (on)
        m_bar->FocusText();
}

// For each child: whether it was found, leads to an entry found, or must stay shown.
std::vector<bool> FormFinder::ShownChildren(const MenuEntry& parent) {
    std::vector<bool> isShown = m_search.LeadsToMatch(parent);
    if (m_kept.empty()) return isShown;
    const std::string above = parent.ID() + ".";
    std::unordered_set<std::string> counters;
    for (const std::string& id : m_kept)
        if (id.starts_with(above))
            counters.emplace(id.substr(above.size(), id.find('.', above.size()) - above.size()));
    for (std::size_t i = 0; !counters.empty() && i < isShown.size(); ++i) {
        const MenuItem& child = parent.Children()->Item(static_cast<int>(i) + 1);
        if (counters.contains(MenuId::LastPart(child.Counter()))) isShown[i] = true;
    }
    return isShown;
}

void FormFinder::ApplyFilter() {
    const wxWindowUpdateLocker locker(&m_tree.Window());
    const bool on = m_isFiltering && m_search.IsActive();
    m_shownByName = m_search.FoundByName();
    const std::string selected = m_tree.SelectedKey();
    if (on && m_before == nullptr) m_before = m_tree.Context();
    if (!on && m_before == nullptr) return;
    if (on)
        m_tree.SetFilter([this](const MenuEntry& parent) { return ShownChildren(parent); });
    else
        m_tree.SetFilter({});
    m_tree.BuildTree();
    if (on)
        ExpandShown();
    else if (const auto before = std::move(m_before))
        before->Restore();
    if (m_tree.NodeOf(selected) != nullptr)
        m_tree.SelectKey(selected);
    else
        GoTo(m_search.NextFrom(m_editor.Find(selected)));
}

// Expands the entries of a filtered tree from above, as long as they are not too many.
void FormFinder::ExpandShown() {
    struct Place {
        TreeNode* node;
        std::size_t level;
    };
    platform::TreeView& view = m_tree.View();
    std::vector<Place> open{{view.Root(), 0}};
    std::size_t count = 0;
    while (!open.empty() && count < MostExpanded) {
        const Place at = open.back();
        open.pop_back();
        if (!at.node->MayHaveChildren() || at.level == MostLevels) continue;
        view.Expand(*at.node);
        count += at.node->ChildCount();
        for (std::size_t i = at.node->ChildCount(); i > 0; --i)
            open.push_back({&at.node->Child(i - 1), at.level + 1});
    }
}

// --- events of the editor ---

void FormFinder::OnMenuReplaced() {
    if (m_toolBar != nullptr) m_toolBar->txtFind->Enable(m_editor.IsOpen());
    m_isFiltering = m_goesToFirst = false;
    m_kept.clear();
    m_before.reset();
    m_start.reset();
    m_tree.SetFilter({});
    m_search.SetText("");
    if (!IsShown()) return;
    m_bar->SetText("");
    m_bar->Hide();
}

void FormFinder::OnMenuEvent(const MenuEvent& event) {
    if (!m_isFiltering) return;
    if (event.kind != MenuEvent::Kind::Added && event.kind != MenuEvent::Kind::Moved) return;
    if (!event.formerId.empty()) {
        // The ids of the entries below changed, too.
        std::vector<std::string> moved;
        const std::string below = event.formerId + ".";
        for (const std::string& id : m_kept)
            if (id.starts_with(below)) moved.push_back(id);
        for (const std::string& id : moved) {
            m_kept.erase(id);
            m_kept.insert(event.id + id.substr(event.formerId.size()));
        }
        m_kept.erase(event.formerId);
    }
    m_kept.insert(event.id);
}

void FormFinder::OnStateChanged() {
    if (!IsShown()) return;
    m_tree.Settle();
    // An entry may have come into a submenu that the filter hides.
    const auto isMissing = [this](const std::string& id) {
        return m_editor.Find(id) != nullptr && m_tree.NodeOf(id) == nullptr;
    };
    if (m_isFiltering && std::any_of(m_kept.begin(), m_kept.end(), isMissing)) ApplyFilter();
    m_tree.View().RefreshMarks();
    wxWakeUpIdle();
}

} // namespace nesk
