// The part-information editor's stand-in as a module that is loaded into the program.
#include "windows/FakeEditor.h"

STDAPI DllGetClassObject(REFCLSID classId, REFIID id, void** object) {
    static fakes::Factory editors(true);
    static fakes::Factory others(false);
    return (classId == fakes::OtherClass ? others : editors).QueryInterface(id, object);
}

STDAPI DllCanUnloadNow() {
    return S_FALSE;
}
