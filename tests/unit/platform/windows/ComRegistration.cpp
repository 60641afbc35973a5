#include "unit/platform/windows/ComRegistration.h"

#include "platform/FileSystem.h"
#include "platform/windows/WideText.h"
#include "windows/FakeEditor.h"

#include <array>
#include <stdexcept>

namespace nesk::testing {

namespace {

const std::wstring Classes = L"SOFTWARE\\Classes\\";

std::wstring ClassKey(const CLSID& classId) {
    std::array<wchar_t, 40> text{};
    ::StringFromGUID2(classId, text.data(), static_cast<int>(text.size()));
    return Classes + L"CLSID\\" + text.data();
}

void SetKey(const std::wstring& key, const wchar_t* name, const std::wstring& value) {
    const auto size = static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t));
    if (::RegSetKeyValueW(HKEY_LOCAL_MACHINE, key.c_str(), name, REG_SZ, value.c_str(), size) !=
        ERROR_SUCCESS)
        throw std::runtime_error("the test's COM object cannot be registered");
}

void RemoveKey(const std::wstring& key) {
    ::RegDeleteTreeW(HKEY_LOCAL_MACHINE, key.c_str());
}

} // namespace

ComRegistration::~ComRegistration() {
    RemoveClasses();
    RemoveKey(Classes + ProgramId());
    RemoveKey(Classes + OtherProgramId());
}

void ComRegistration::Add(const std::wstring& file) {
    RemoveClasses();
    const std::wstring path = platform::windows::ToWide(platform::ProgramFolder()) + L"\\" + file;
    for (const auto& [name, classId] :
         {std::pair(ProgramId(), fakes::EditorClass), std::pair(OtherProgramId(), fakes::OtherClass)}) {
        const std::wstring key = ClassKey(classId);
        SetKey(Classes + name + L"\\CLSID", nullptr, key.substr(key.find(L'{')));
        SetKey(key + L"\\InprocServer32", nullptr, path);
        SetKey(key + L"\\InprocServer32", L"ThreadingModel", L"Apartment");
    }
}

void ComRegistration::RemoveClasses() {
    RemoveKey(ClassKey(fakes::EditorClass));
    RemoveKey(ClassKey(fakes::OtherClass));
}

} // namespace nesk::testing
