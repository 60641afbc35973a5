// Stands in for the operator interface's part-information editor: a COM object with the method "EditPIF",
// which writes its three arguments into the file that NESK_TEST_EDITPIF_LOG names and gives the part the name
// "Renamed". While NESK_TEST_EDITPIF_FAIL is set the method fails.
#include <array>
#include <string>
#include <windows.h>

#include <oleauto.h>

// COM's interfaces have no virtual destructor; objects delete themselves.
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

namespace {

std::wstring Environment(const wchar_t* name) {
    std::array<wchar_t, MAX_PATH> value{};
    GetEnvironmentVariableW(name, value.data(), static_cast<DWORD>(value.size()));
    return value.data();
}

void WriteWhole(const std::wstring& path, const std::wstring& text) {
    std::array<char, 4096> bytes{};
    const int count = WideCharToMultiByte(CP_UTF8, 0, text.data(), static_cast<int>(text.size()),
                                          bytes.data(), static_cast<int>(bytes.size()), nullptr, nullptr);
    const HANDLE file = CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
    DWORD written = 0;
    WriteFile(file, bytes.data(), static_cast<DWORD>(count), &written, nullptr);
    CloseHandle(file);
}

constexpr DISPID EditPif = 7;

class Editor final : public IDispatch {
public:
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
        // Names match without regard to case, as late binding asks for.
        if (count != 1 || lstrcmpiW(names[0], L"EDITPIF") != 0) return DISP_E_UNKNOWNNAME;
        return *ids = EditPif, S_OK;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* parameters, VARIANT*,
                                     EXCEPINFO*, UINT*) override {
        if (id != EditPif) return DISP_E_MEMBERNOTFOUND;
        if ((flags & DISPATCH_METHOD) == 0 || parameters->cArgs != 3) return DISP_E_BADPARAMCOUNT;
        // The last argument stands first.
        const VARIANT& folder = parameters->rgvarg[2];
        const VARIANT& path = parameters->rgvarg[1];
        const VARIANT& language = parameters->rgvarg[0];
        if (folder.vt != (VT_BSTR | VT_BYREF) || path.vt != (VT_BSTR | VT_BYREF) ||
            language.vt != (VT_I4 | VT_BYREF))
            return DISP_E_TYPEMISMATCH;
        ++m_calls;
        if (!Environment(L"NESK_TEST_EDITPIF_FAIL").empty()) return E_FAIL;
        WriteWhole(Environment(L"NESK_TEST_EDITPIF_LOG"), std::wstring(*folder.pbstrVal) + L"|" +
                                                              *path.pbstrVal + L"|" +
                                                              std::to_wstring(*language.plVal) + L"|");
        WriteWhole(Environment(L"NESK_TEST_EDITPIF_CALLS"), std::to_wstring(m_calls));
        WriteWhole(*path.pbstrVal, L"[Part]\r\nName=Renamed\r\n");
        return S_OK;
    }

private:
    ~Editor() = default;

    ULONG m_references = 0;
    int m_calls = 0;
};

class Factory final : public IClassFactory {
public:
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
        if (id != IID_IUnknown && id != IID_IClassFactory) return *object = nullptr, E_NOINTERFACE;
        *object = this;
        return S_OK;
    }
    // There is one factory, which lives as long as the module.
    ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }
    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown*, REFIID id, void** object) override {
        auto* editor = new Editor;
        return editor->QueryInterface(id, object);
    }
    HRESULT STDMETHODCALLTYPE LockServer(BOOL) override { return S_OK; }
};

} // namespace

STDAPI DllGetClassObject(REFCLSID, REFIID id, void** object) {
    static Factory factory;
    return factory.QueryInterface(id, object);
}

STDAPI DllCanUnloadNow() {
    return S_FALSE;
}
