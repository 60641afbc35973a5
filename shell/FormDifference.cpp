#include "shell/FormDifference.h"

#include "base/UnsavedMessages.h"
#include "menu/MenuEntry.h"
#include "platform/UiTreeView.h"
#include "shell/FieldMessage.h"
#include "shell/modStringRes.h"
#include "shell/modUtilities.h"
#include "versions/DifferenceText.h"
#include "versions/EntryFields.h"
#include "versions/MenuDiff.h"
#include "widgets/UiIcons.h"
#include "widgets/UiUtilities.h"

#include <algorithm>
#include <cstdint>
#include <memory>
#include <string>

#include <wx/button.h>
#include <wx/sizer.h>
#include <wx/stattext.h>

namespace nesk {

using modUtilities::ResText;
using modUtilities::ToWx;
using platform::TreeNode;
using platform::TreeView;

namespace {

constexpr std::int32_t HelpTopic = 33014;

// Indexes of the pictures.
enum Image { FolderImage, PartImage };

// A larger difference would take a moment to be shown, and nobody could survey it.
constexpr std::size_t MostExpanded = 2000;

// The key of a row that shows a field begins with this; that of an entry is the index of its node.
constexpr char FieldMark = 'f';

TreeView& MakeView(wxWindow* parent) {
    platform::TreeStyle style;
    style.multiple = true;
    style.size = parent->FromDIP(wxSize(620, 380));
    return *TreeView::Create(parent, "tvDifference", style);
}

bool IsField(const TreeNode& node) {
    return !node.Key().empty() && node.Key().front() == FieldMark;
}

} // namespace

FormDifference::FormDifference(wxWindow* parent, const MenuDiff& difference, const std::string& heading)
    : FormDialog(parent, "FormDifference", Message::DifferenceTitle, HelpTopic), m_difference(difference) {
    const auto newLine = [this](const char* name, const std::string& text) {
        auto* label =
            new wxStaticText(this, wxID_ANY, "", wxDefaultPosition, wxDefaultSize, wxST_ELLIPSIZE_END, name);
        label->SetLabelText(ToWx(text));
        return label;
    };
    lblHeading = newLine("lblHeading", heading);
    lblSummary = newLine("lblSummary", DifferenceText::Summary(difference));
    lblTree = NewLabel(this, "lblTree", Message::DifferenceTree);
    tvDifference = &MakeView(this);
    const wxSize size = tvDifference->ImageSize();
    // In the order of Image.
    tvDifference->SetImages({IconBundle("folder", size), IconBundle("part", size)});
    tvDifference->SetAccessibleName(
        FieldMessage::PlainLabel(modStringRes::LoadResString(Message::DifferenceTree)));
    auto* content = new wxBoxSizer(wxVERTICAL);
    content->Add(lblHeading, wxSizerFlags().Expand());
    content->Add(lblSummary, wxSizerFlags().Expand().Border(wxTOP, Gap() / 2));
    content->Add(lblTree, wxSizerFlags().Border(wxTOP, Gap()));
    content->Add(&tvDifference->Window(), wxSizerFlags(1).Expand().Border(wxTOP, Gap() / 2));
    Finish(content);
    cmdCancel->SetLabel(ResText(Message::DifferenceClose));
    tvDifference->on.fill = [this](TreeNode& node) { Fill(node); };
    tvDifference->on.selectionChanged = [this] {
        // The topmost entry would bring back everything.
        const std::vector<std::size_t> selected = Selected();
        if (m_choosesNodes) cmdOK->Enable(!selected.empty() && selected.front() != 0);
    };
}

FormDifference::~FormDifference() {
    tvDifference->on = {};
}

// The fields of an entry come first, then the nodes below it.
void FormDifference::Fill(TreeNode& node) {
    const std::vector<MenuDiff::Node>& nodes = m_difference.Nodes();
    const auto index = static_cast<std::size_t>(std::stoul(node.Key()));
    const MenuDiff::Node& shown = nodes[index];
    const int image = EntryFields::IsPart(shown.Shown()) ? PartImage : FolderImage;
    for (std::size_t i = 0; i < shown.fields.size(); ++i)
        tvDifference->Append(node, std::make_unique<TreeNode>(DifferenceText::Of(shown.fields[i]), image,
                                                              FieldMark + std::to_string(i)));
    for (auto below = index + 1; below < static_cast<std::size_t>(shown.end);
         below = static_cast<std::size_t>(nodes[below].end)) {
        const MenuDiff::Node& child = nodes[below];
        const bool hasMore = !child.fields.empty() || static_cast<std::size_t>(child.end) > below + 1;
        tvDifference->Append(
            node, std::make_unique<TreeNode>(DifferenceText::Of(child),
                                             EntryFields::IsPart(child.Shown()) ? PartImage : FolderImage,
                                             std::to_string(below), hasMore));
    }
}

void FormDifference::ShowTree() {
    if (m_difference.IsEmpty()) return;
    TreeNode& root = tvDifference->SetRoot(
        std::make_unique<TreeNode>(DifferenceText::Of(m_difference.Nodes().front()), FolderImage, "0", true));
    if (m_difference.Nodes().size() <= MostExpanded)
        tvDifference->ExpandBelow(root);
    else
        tvDifference->Expand(root);
    tvDifference->Select(root.ChildCount() == 0 ? &root : &root.Child(0));
    tvDifference->Window().SetFocus();
}

void FormDifference::Invoke() {
    cmdOK->Hide();
    cmdCancel->SetDefault();
    Layout();
    ShowTree();
    if (m_difference.IsEmpty()) cmdCancel->SetFocus();
    ShowModal();
}

std::vector<std::size_t> FormDifference::ChooseNodes() {
    m_choosesNodes = true;
    cmdOK->SetLabel(ResText(Message::DifferenceRestoreSelected));
    cmdOK->Enable(false);
    FitToContent();
    ShowTree();
    if (m_difference.IsEmpty()) cmdCancel->SetFocus();
    return ShowModal() == wxID_OK ? Selected() : std::vector<std::size_t>();
}

// A selected field stands for its entry.
std::vector<std::size_t> FormDifference::Selected() const {
    std::vector<std::size_t> nodes;
    for (const TreeNode* node : tvDifference->Selection()) {
        const TreeNode* entry = IsField(*node) ? node->Parent() : node;
        nodes.push_back(std::stoul(entry->Key()));
    }
    std::sort(nodes.begin(), nodes.end());
    nodes.erase(std::unique(nodes.begin(), nodes.end()), nodes.end());
    return nodes;
}

void FormDifference::OnOK() {
    if (m_choosesNodes) Accept();
}

} // namespace nesk
