#include "shell/AboutText.h"

#include "base/Messages.h"
#include "shell/modStringRes.h"

#include <vector>

namespace nesk {

using modStringRes::FormatResString;
using modStringRes::LoadResString;

std::string ProgramVersion() {
    return NESK_VERSION;
}

std::string AboutText(const platform::Library& toolkit) {
    std::string text = FormatResString(Message::AboutProgram, ProgramVersion()) + "\n\n" +
                       LoadResString(Message::AboutLicence) + "\n\n" + LoadResString(Message::AboutLibraries);
    std::vector<platform::Library> libraries = platform::LinkedLibraries();
    libraries.insert(libraries.begin(), toolkit);
    for (const platform::Library& library : libraries)
        text += "\n" + FormatResString(Message::AboutLibrary, library.name, library.version, library.licence);
    return text;
}

} // namespace nesk
