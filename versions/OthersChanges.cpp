#include "versions/OthersChanges.h"

#include "base/UnsavedMessages.h"
#include "versions/DifferenceText.h"
#include "versions/FindVersion.h"
#include "versions/MenuDiff.h"
#include "versions/MenuUpdate.h"

namespace nesk {

std::string OthersChanges::Load(MenuEditor& editor, const QuietMenu& theirs) {
    std::string summary = DifferenceText::Summary(MenuDiff(*editor.OpenMenu(), *theirs.menu));
    UpdateOpenMenu(editor, *theirs.menu, {Message::OtherLoadUndo, {}});
    editor.Adopt(theirs.hash, true);
    return summary;
}

std::unique_ptr<Menu> OthersChanges::Base(const MenuEditor& editor, const std::string& copy,
                                          platform::FileSystem& files) {
    const std::string& root = editor.OpenMenu()->RootDirectory();
    if (editor.HashOnDisk().Exists())
        return FindVersion(editor.Place(), editor.HashOnDisk().Text(), root, {copy}, files);
    auto empty = std::make_unique<Menu>();
    empty->Initialize(root);
    return empty;
}

void OthersChanges::TakeMerged(MenuEditor& editor, const QuietMenu& theirs, const MenuMerge& merge) {
    const std::unique_ptr<Menu> merged = merge.Result();
    const bool isTheirs = MenuDiff(*merged, *theirs.menu).IsEmpty();
    UpdateOpenMenu(editor, *merged, {Message::MergeUndo, {}});
    editor.Adopt(theirs.hash, isTheirs);
}

} // namespace nesk
