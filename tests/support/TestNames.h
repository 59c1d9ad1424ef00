// Names for tests that are made from data.
#pragma once
#include <string>

namespace clb {

/// Makes a text usable as the name of a test case: replaces all but letters and digits by "_".
inline std::string TestName(std::string text)
{
    const std::string allowed = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789";
    for (char& c : text)
        if (allowed.find(c) == std::string::npos)
            c = '_';
    return text;
}

}  // namespace clb
