#include "shell/modStringRes.h"

#include "base/LanguageTable.h"
#include "platform/FileSystem.h"
#include "platform/ResourceLibrary.h"
#include "platform/TextEncoding.h"
#include "shell/modUtilities.h"

#include <cstdio>
#include <vector>

namespace nesk::modStringRes {

namespace {

// Maximum length of a text, including the terminating zero. Longer texts are truncated.
constexpr int BufferSize = 1024;

constexpr int DefaultLanguageID = 1033;

struct Library {
    platform::ModuleHandle module;
    std::string fileName;
};

struct Loader {
    bool enabled = false;
    int languageId = DefaultLanguageID;
    std::string languageCode;
    std::vector<Library> cache;
};

Loader& TheLoader() {
    static Loader loader;
    return loader;
}

int BlockBase(int id) {
    return id / 1000 * 1000;
}

std::string LibraryFileName(const std::string& languageCode, int id) {
    // Five digits, plus the sign of a negative number.
    const int width = id <= -1000 ? 6 : 5;
    std::array<char, 16> base{};
    std::snprintf(base.data(), base.size(), "%0*d", width, BlockBase(id));
    return "\\" + languageCode + base.data() + ".DLL";
}

// The module that contains string `id`; 0 when its library is in none of the folders. A failure is not
// cached, so that a library that appears later is found.
platform::ModuleHandle GetResourceLibrary(int id) {
    Loader& loader = TheLoader();
    if (!loader.enabled) return 0;
    const std::string fileName = LibraryFileName(loader.languageCode, id);
    for (const Library& library : loader.cache)
        if (library.fileName == fileName) return library.module;
    platform::ModuleHandle module = platform::LoadModule(platform::ProgramFolder() + fileName);
    if (module == 0) {
        const std::string folder = modUtilities::PathJoin(modUtilities::InstallDirectory(), "Bin");
        module = platform::LoadModule(modUtilities::PathJoin(folder, fileName));
    }
    if (module != 0) loader.cache.push_back({module, fileName});
    return module;
}

std::string ReplaceAll(const std::string& text, const std::string& placeholder, const std::string& value) {
    std::string result;
    std::size_t from = 0;
    for (std::size_t at = text.find(placeholder); at != std::string::npos;
         at = text.find(placeholder, from)) {
        result.append(text, from, at - from).append(value);
        from = at + placeholder.size();
    }
    return result.append(text, from);
}

} // namespace

void InitStringRes(int languageId) {
    FreeStringRes();
    Loader& loader = TheLoader();
    loader.languageId = languageId;
    loader.languageCode = LanguageCode(languageId);
    loader.enabled = true;
}

int LanguageID() {
    return TheLoader().languageId;
}

void FreeStringRes() {
    Loader& loader = TheLoader();
    if (!loader.enabled) return;
    for (const Library& library : loader.cache)
        platform::FreeModule(library.module);
    loader.cache.clear();
}

std::string LanguageCode(int languageId) {
    return nesk::LanguageCode(languageId);
}

std::string LoadResString(int id) {
    if (!TheLoader().enabled) return "";
    static const std::string notFound = "Error: Resource File Not Found";
    const platform::ModuleHandle module = GetResourceLibrary(id);
    if (module == 0) return notFound;
    std::array<char, BufferSize> buffer{};
    const int length =
        platform::ReadModuleString(module, static_cast<std::uint32_t>(id), buffer.data(), BufferSize);
    if (length != 0) {
        const std::string_view bytes(buffer.data(), static_cast<std::size_t>(length));
        return platform::FromAnsi(bytes.substr(0, bytes.find('\0')));
    }
    // Without this check, a library without its base text would cause endless recursion.
    if (id == BlockBase(id)) return notFound;
    return FormatResString(BlockBase(id), id);
}

std::string FormatResStringArray(int id, const Arguments& arguments) {
    if (!TheLoader().enabled) return "";
    std::string text = LoadResString(id);
    for (std::size_t i = 0; i < arguments.size(); ++i)
        if (arguments[i]) text = ReplaceAll(text, "%" + std::to_string(i) + "%", *arguments[i]);
    return text;
}

} // namespace nesk::modStringRes
