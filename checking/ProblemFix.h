#pragma once

#include "checking/Finding.h"
#include "editing/EntryIds.h"

#include <string>
#include <vector>

namespace nesk {

class MenuEditor;

/// What is done about problems. Each function that changes the menu makes one step.
namespace ProblemFix {

/// The fixes that are possible for one or more of some problems. A problem alone can be renamed and edited;
/// several get one file only when they are about the same field.
FixSet FixesFor(const std::vector<Finding>& findings);

/// The problems for which a fix is possible.
std::vector<Finding> Fitting(const std::vector<Finding>& findings, Fix fix);

/// Ids of the entries of problems, each once, in their order.
EntryIds EntriesOf(const std::vector<Finding>& findings);

/// Empties the fields of the problems; of a help topic without a file, the topic. Returns false when nothing
/// changes.
bool Clear(MenuEditor& editor, const std::vector<Finding>& findings);

/// Gives the field of the problems another path.
/// @param path  for a part program, that of its partinfo.ini
bool SetPath(MenuEditor& editor, const std::vector<Finding>& findings, const std::string& path);

/// The folder of the path of a problem, without a trailing "\", to be given another place; "" for none. Of a
/// history directory, which is a folder itself, that folder.
std::string FolderOf(const Finding& finding);

/// Makes the missing history directories of the problems. Raises the run-time error of the first one that
/// cannot be made.
void MakeFolders(const std::vector<Finding>& findings);

} // namespace ProblemFix

} // namespace nesk
