#pragma once

#include <string>
#include <windows.h>

#include <oleauto.h>

// COM interfaces have no virtual destructor, because objects delete themselves.
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

/// A stand-in for the operator interface's part-information editor: a COM object with the method "EditPIF".
/// The method writes its three arguments into the file that NESK_TEST_EDITPIF_LOG names and the number of its
/// calls into the file that NESK_TEST_EDITPIF_CALLS names, and renames the part to "Renamed". It accepts its
/// arguments by reference only.
///
/// The method fails while NESK_TEST_EDITPIF_FAIL is set. NESK_TEST_EDITPIF_GONE makes the object respond once
/// as if its process had ended: "find" when it is asked for its method, "call" when the method is called.
namespace fakes {

/// Class id of the editor, and class id of an object without the method.
constexpr CLSID EditorClass = {0x6f0c6f7e, 0x9b52, 0x4c2c, {0x8f, 0x14, 0x3d, 0x6a, 0x35, 0xe0, 0xc5, 0xb1}};
constexpr CLSID OtherClass = {0x6f0c6f7e, 0x9b52, 0x4c2c, {0x8f, 0x14, 0x3d, 0x6a, 0x35, 0xe0, 0xc5, 0xb2}};

inline std::wstring Environment(const wchar_t* name) {
    std::wstring value(MAX_PATH, L'\0');
    value.resize(GetEnvironmentVariableW(name, value.data(), MAX_PATH));
    return value;
}

inline void WriteWhole(const std::wstring& path, const std::wstring& text) {
    std::string bytes(4096, '\0');
    const int count = WideCharToMultiByte(CP_UTF8, 0, text.data(), static_cast<int>(text.size()),
                                          bytes.data(), static_cast<int>(bytes.size()), nullptr, nullptr);
    const HANDLE file = CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
    DWORD written = 0;
    WriteFile(file, bytes.data(), static_cast<DWORD>(count), &written, nullptr);
    CloseHandle(file);
}

/// In COM a null string is an empty string.
inline std::wstring TextOf(BSTR text) {
    return std::wstring(text != nullptr ? text : L"", SysStringLen(text));
}

class Editor final : public IDispatch {
public:
    /// @param hasMethod  false for an object of another kind
    explicit Editor(bool hasMethod) : m_hasMethod(hasMethod) {}

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
        if (id != IID_IUnknown && id != IID_IDispatch) return *object = nullptr, E_NOINTERFACE;
        AddRef();
        *object = this;
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++m_references; }
    ULONG STDMETHODCALLTYPE Release() override {
        const ULONG left = --m_references;
        if (left == 0) delete this;
        return left;
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override { return *count = 0, S_OK; }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) override {
        if (IsGone(L"find")) return RPC_E_DISCONNECTED;
        // Names match without regard to case, as late binding requires.
        if (!m_hasMethod || count != 1 || lstrcmpiW(names[0], L"EDITPIF") != 0) return DISP_E_UNKNOWNNAME;
        return *ids = EditPif, S_OK;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* parameters, VARIANT*,
                                     EXCEPINFO*, UINT*) override {
        if (id != EditPif) return DISP_E_MEMBERNOTFOUND;
        if ((flags & DISPATCH_METHOD) == 0 || parameters->cArgs != 3) return DISP_E_BADPARAMCOUNT;
        // Arguments are stored in reverse order: the last one comes first.
        const VARIANT& folder = parameters->rgvarg[2];
        const VARIANT& path = parameters->rgvarg[1];
        const VARIANT& language = parameters->rgvarg[0];
        if (folder.vt != (VT_BSTR | VT_BYREF) || path.vt != (VT_BSTR | VT_BYREF) ||
            language.vt != (VT_I4 | VT_BYREF))
            return DISP_E_TYPEMISMATCH;
        if (IsGone(L"call")) return RPC_E_DISCONNECTED;
        ++m_calls;
        if (!Environment(L"NESK_TEST_EDITPIF_FAIL").empty()) return E_FAIL;
        WriteWhole(Environment(L"NESK_TEST_EDITPIF_LOG"), TextOf(*folder.pbstrVal) + L"|" +
                                                              TextOf(*path.pbstrVal) + L"|" +
                                                              std::to_wstring(*language.plVal) + L"|");
        WriteWhole(Environment(L"NESK_TEST_EDITPIF_CALLS"), std::to_wstring(m_calls));
        WriteWhole(TextOf(*path.pbstrVal), L"[Part]\r\nName=Renamed\r\n");
        return S_OK;
    }

private:
    static constexpr DISPID EditPif = 7;

    ~Editor() = default;

    static bool IsGone(const wchar_t* when) {
        if (Environment(L"NESK_TEST_EDITPIF_GONE") != when) return false;
        SetEnvironmentVariableW(L"NESK_TEST_EDITPIF_GONE", nullptr);
        return true;
    }

    bool m_hasMethod;
    ULONG m_references = 0;
    int m_calls = 0;
};

class Factory final : public IClassFactory {
public:
    explicit Factory(bool hasMethod) : m_hasMethod(hasMethod) {}

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
        if (id != IID_IUnknown && id != IID_IClassFactory) return *object = nullptr, E_NOINTERFACE;
        *object = this;
        return S_OK;
    }
    // A factory lives as long as its module.
    ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }
    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown*, REFIID id, void** object) override {
        auto* editor = new Editor(m_hasMethod);
        editor->AddRef();
        const HRESULT result = editor->QueryInterface(id, object);
        editor->Release();
        return result;
    }
    HRESULT STDMETHODCALLTYPE LockServer(BOOL) override { return S_OK; }

private:
    bool m_hasMethod;
};

} // namespace fakes
