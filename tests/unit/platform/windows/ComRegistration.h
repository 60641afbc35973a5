#pragma once

#include <string>

namespace nesk::testing {

/// Registers the stand-ins for the part-information editor that lie beside the tests, under names of the
/// tests' own, for as long as it lives.
class ComRegistration {
public:
    ComRegistration() = default;
    ~ComRegistration();
    ComRegistration(const ComRegistration&) = delete;
    ComRegistration& operator=(const ComRegistration&) = delete;

    /// Registers both objects, in the place of what was registered before.
    /// @param file  name of a module beside the tests
    void Add(const std::wstring& file);

    /// Removes the classes; their names stay.
    void RemoveClasses();

    /// Name of the editor.
    const wchar_t* ProgramId() const { return L"NeskTest.EditPIF"; }

    /// Name of an object that does not have the editor's method.
    const wchar_t* OtherProgramId() const { return L"NeskTest.Other"; }
};

} // namespace nesk::testing
