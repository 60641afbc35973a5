#include "editing/SamePlace.h"

#include "platform/FileIdentity.h"
#include "platform/TextEncoding.h"

namespace nesk {

namespace {

// The path in upper case, with repeated separators reduced to one. Two separators at the beginning are kept,
// because they begin the name of a network share.
std::string Plain(const std::string& path) {
    std::string plain;
    for (const char c : platform::ToUpper(path))
        if (c != '\\' || plain.size() < 2 || plain.back() != '\\') plain += c;
    return plain;
}

} // namespace

bool IsSamePlace(const std::string& one, const std::string& other) {
    if (Plain(one) == Plain(other)) return true;
    if (one.empty() || other.empty()) return false;
    const std::string identity = platform::FileIdentity(one);
    return !identity.empty() && identity == platform::FileIdentity(other);
}

} // namespace nesk
