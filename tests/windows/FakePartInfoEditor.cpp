// The part-information editor's stand-in as an in-process COM server: a module that the program loads.
#include "windows/FakeEditor.h"

STDAPI DllGetClassObject(REFCLSID classId, REFIID id, void** object) {
    static fakes::Factory editors(true);
    static fakes::Factory others(false);
    return (classId == fakes::OtherClass ? others : editors).QueryInterface(id, object);
}

STDAPI DllCanUnloadNow() {
    return S_FALSE;
}
