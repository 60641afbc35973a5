#pragma once

#include <string>

namespace nesk::testing {

/// Registers the stand-ins for the part-information editor, which are next to the tests, under names of the
/// tests' own while it lives.
class ComRegistration {
public:
    ComRegistration() = default;
    ~ComRegistration();
    ComRegistration(const ComRegistration&) = delete;
    ComRegistration& operator=(const ComRegistration&) = delete;

    /// Registers both objects and replaces an earlier registration.
    /// @param file  name of a module next to the tests
    void Add(const std::wstring& file);

    /// Removes the classes; their program ids stay registered.
    void RemoveClasses();

    /// Program id of the editor.
    const wchar_t* ProgramId() const { return L"NeskTest.EditPIF"; }

    /// Program id of an object that does not have the editor's method.
    const wchar_t* OtherProgramId() const { return L"NeskTest.Other"; }
};

} // namespace nesk::testing
