#include "shell/FormMoveTo.h"

#include "base/Messages.h"
#include "editing/MenuEditor.h"
#include "menu/MenuId.h"
#include "menu/MenuItem.h"
#include "menu/MenuItemCollection.h"
#include "platform/UiTreeView.h"
#include "shell/FieldMessage.h"
#include "shell/FormMenuTree.h"
#include "shell/modHelp.h"
#include "shell/modStringRes.h"
#include "shell/modUtilities.h"
#include "widgets/UiIcons.h"
#include "widgets/UiUtilities.h"

#include <algorithm>
#include <memory>

#include <wx/button.h>
#include <wx/sizer.h>
#include <wx/stattext.h>

namespace nesk {

using modUtilities::ResText;
using platform::TreeNode;
using platform::TreeView;

namespace {

// A larger menu would take a moment to be shown, and nobody could survey it.
constexpr std::int64_t MostExpanded = 5000;

bool HasSubmenu(const MenuEntry& entry) {
    for (int i = 1; i <= entry.ChildCount(); ++i)
        if (!entry.Children()->Item(i).IsPart()) return true;
    return false;
}

TreeView& MakeView(wxWindow* parent) {
    platform::TreeStyle style;
    style.size = parent->FromDIP(wxSize(360, 320));
    return *TreeView::Create(parent, "tvSubmenus", style);
}

} // namespace

FormMoveTo::FormMoveTo(wxWindow* parent, const MenuEditor& editor)
    : FormDialog(parent, "FormMoveTo", Message::MoveToTitle, modHelp::Topic::MainWindow), m_editor(editor) {
    lblSubmenu = NewLabel(this, "lblSubmenu", Message::MoveToTree);
    tvSubmenus = &MakeView(this);
    tvSubmenus->SetImages({IconBundle("folder", tvSubmenus->ImageSize())});
    tvSubmenus->SetAccessibleName(FieldMessage::PlainLabel(modStringRes::LoadResString(Message::MoveToTree)));
    auto* content = new wxBoxSizer(wxVERTICAL);
    content->Add(lblSubmenu);
    content->Add(&tvSubmenus->Window(), wxSizerFlags(1).Expand().Border(wxTOP, Gap() / 2));
    Finish(content);
    cmdOK->SetLabel(ResText(Message::MoveToConfirm));
    tvSubmenus->on.fill = [this](TreeNode& node) { Fill(node); };
    tvSubmenus->on.selectionChanged = [this] { cmdOK->Enable(tvSubmenus->Selected() != nullptr); };
    tvSubmenus->on.activated = [this](TreeNode&) {
        OnOK();
        return true;
    };
}

FormMoveTo::~FormMoveTo() {
    tvSubmenus->on = {};
}

void FormMoveTo::Fill(TreeNode& node) {
    const MenuEntry* entry = m_editor.Find(FormMenuTree::KeyOf(&node));
    for (int i = 1; entry != nullptr && i <= entry->ChildCount(); ++i) {
        const MenuItem& item = entry->Children()->Item(i);
        if (!item.IsPart())
            tvSubmenus->Append(node, std::make_unique<TreeNode>(std::string(item.Caption()), 0,
                                                                MenuId::LastPart(item.Counter()),
                                                                HasSubmenu(item)));
    }
}

std::string FormMoveTo::Choose(const EntryIds& ids) {
    const Menu* menu = m_editor.OpenMenu();
    if (menu == nullptr || ids.empty()) return "";
    m_ids = ids;
    m_target.clear();
    TreeNode& root = tvSubmenus->SetRoot(std::make_unique<TreeNode>(
        std::string(menu->Caption()), 0, std::string(MenuId::Root), HasSubmenu(*menu)));
    // Typing finds only what is expanded.
    if (menu->CountBelow() <= MostExpanded)
        tvSubmenus->ExpandBelow(root);
    else
        tvSubmenus->Expand(root);
    TreeNode* const present =
        tvSubmenus->NodeAt(MenuId::Parts(MenuId::OfParent(ids.front())), TreeView::Missing::Create);
    TreeNode& start = present != nullptr ? *present : root;
    tvSubmenus->Select(&start);
    tvSubmenus->EnsureVisible(start);
    tvSubmenus->Window().SetFocus();
    return ShowModal() == wxID_OK ? m_target : "";
}

void FormMoveTo::OnOK() {
    const std::string target = FormMenuTree::KeyOf(tvSubmenus->Selected());
    if (target.empty()) return;
    if (const auto refusal = m_editor.WhyNotMoveTo(m_ids, target))
        return ShowReason(modUtilities::MessageText(*refusal));
    m_target = target;
    Accept();
}

} // namespace nesk
