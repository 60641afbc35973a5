#pragma once

#include "platform/PartInfoEditor.h"

#include <cstdint>
#include <string>
#include <windows.h>

#include <oaidl.h>

namespace nesk::platform::windows {

/// The operator interface's part-information editor, a COM object that is known only by its registered name.
/// It is created on the first call and kept. COM must have been initialised on the calling thread.
class PartInfoObject {
public:
    /// @param programId  name under which the object is registered
    explicit PartInfoObject(std::wstring programId);
    ~PartInfoObject() { Release(); }
    PartInfoObject(const PartInfoObject&) = delete;
    PartInfoObject& operator=(const PartInfoObject&) = delete;

    /// Calls the object's method and waits until it returns. The arguments are passed by reference.
    PartInfoResult Edit(const std::string& partFolder, const std::string& iniPath, std::int32_t languageId);

    /// Releases the object; the next call creates it again.
    void Release();

private:
    PartInfoResult Create();
    HRESULT FindMethod(DISPID& methodId);

    std::wstring m_programId;
    IDispatch* m_object = nullptr;
};

} // namespace nesk::platform::windows
