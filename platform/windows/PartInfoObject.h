#pragma once

#include "platform/PartInfoEditor.h"

#include <cstdint>
#include <string>
#include <windows.h>

#include <oaidl.h>

namespace nesk::platform::windows {

/// The operator interface's part-information editor as an object that is known by its name alone. It is made
/// when it is first called, and kept. COM must have been initialised on the calling thread.
class PartInfoObject {
public:
    /// @param programId  name that the object is registered under
    explicit PartInfoObject(std::wstring programId);
    ~PartInfoObject() { Release(); }
    PartInfoObject(const PartInfoObject&) = delete;
    PartInfoObject& operator=(const PartInfoObject&) = delete;

    /// Calls the object's method and waits until it is done. The arguments are handed over by reference.
    PartInfoResult Edit(const std::string& partFolder, const std::string& iniPath, std::int32_t languageId);

    /// Lets go of the object; the next call makes it anew.
    void Release();

private:
    PartInfoResult Create();
    HRESULT FindMethod(DISPID& methodId);

    std::wstring m_programId;
    IDispatch* m_object = nullptr;
};

} // namespace nesk::platform::windows
