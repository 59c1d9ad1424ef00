#pragma once
#include <string>

namespace clb {

/// A text as the name of a test case: letters and digits as they stand, "_" for all others.
inline std::string TestName(std::string text)
{
    const std::string allowed = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789";
    for (char& c : text)
        if (allowed.find(c) == std::string::npos)
            c = '_';
    return text;
}

}  // namespace clb
