#include "platform/windows/PartInfoObject.h"

#include "platform/windows/WideText.h"

#include <array>
#include <oleauto.h>
#include <utility>

namespace nesk::platform::windows {

namespace {

// A string for a COM call.
class ComText {
public:
    explicit ComText(const std::string& text) {
        const std::wstring wide = ToWide(text);
        m_text = ::SysAllocStringLen(wide.data(), static_cast<UINT>(wide.size()));
    }
    ~ComText() { ::SysFreeString(m_text); }
    ComText(const ComText&) = delete;
    ComText& operator=(const ComText&) = delete;

    VARIANT Reference() {
        VARIANT argument{};
        argument.vt = VT_BSTR | VT_BYREF;
        argument.pbstrVal = &m_text;
        return argument;
    }

private:
    BSTR m_text;
};

// True when an object's process has ended.
bool IsGone(HRESULT result) {
    return result == RPC_E_DISCONNECTED || result == RPC_E_SERVER_DIED || result == RPC_E_SERVER_DIED_DNE ||
           result == CO_E_OBJNOTCONNECTED || result == HRESULT_FROM_WIN32(RPC_S_SERVER_UNAVAILABLE) ||
           result == HRESULT_FROM_WIN32(RPC_S_CALL_FAILED);
}

} // namespace

PartInfoObject::PartInfoObject(std::wstring programId) : m_programId(std::move(programId)) {}

void PartInfoObject::Release() {
    if (IDispatch* object = std::exchange(m_object, nullptr)) object->Release();
}

PartInfoResult PartInfoObject::Create() {
    CLSID classId{};
    if (FAILED(::CLSIDFromProgID(m_programId.c_str(), &classId))) return PartInfoResult::Missing;
    void* object = nullptr;
    const HRESULT result = ::CoCreateInstance(classId, nullptr, CLSCTX_SERVER, IID_IDispatch, &object);
    // A class that is not registered, or not registered for this kind of program, counts as missing.
    if (result == REGDB_E_CLASSNOTREG) return PartInfoResult::Missing;
    if (FAILED(result)) return PartInfoResult::Failed;
    m_object = static_cast<IDispatch*>(object);
    return PartInfoResult::Done;
}

HRESULT PartInfoObject::FindMethod(DISPID& methodId) {
    std::wstring method = L"EditPIF";
    LPOLESTR name = method.data();
    return m_object->GetIDsOfNames(IID_NULL, &name, 1, LOCALE_USER_DEFAULT, &methodId);
}

PartInfoResult PartInfoObject::Edit(const std::string& partFolder, const std::string& iniPath,
                                    std::int32_t languageId) {
    DISPID methodId = 0;
    HRESULT result = m_object != nullptr ? FindMethod(methodId) : RPC_E_DISCONNECTED;
    // The object was not created yet, or its process has ended. No edit has been requested so far, so
    // creating a new object is safe.
    if (IsGone(result)) {
        Release();
        if (const PartInfoResult created = Create(); created != PartInfoResult::Done) return created;
        result = FindMethod(methodId);
    }
    if (FAILED(result)) return PartInfoResult::Failed;

    ComText folder(partFolder);
    ComText path(iniPath);
    LONG language = languageId;
    VARIANT languageArgument{};
    languageArgument.vt = VT_I4 | VT_BYREF;
    languageArgument.plVal = &language;
    // COM expects the arguments in reverse order.
    std::array<VARIANT, 3> arguments{languageArgument, path.Reference(), folder.Reference()};
    DISPPARAMS parameters{};
    parameters.rgvarg = arguments.data();
    parameters.cArgs = static_cast<UINT>(arguments.size());
    result = m_object->Invoke(methodId, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &parameters, nullptr,
                              nullptr, nullptr);
    return SUCCEEDED(result) ? PartInfoResult::Done : PartInfoResult::Failed;
}

} // namespace nesk::platform::windows
