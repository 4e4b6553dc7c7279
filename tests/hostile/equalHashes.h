#pragma once

#include <string>

/// One of 2^`bits` different names of one length, to all of which the hash of the common C++
/// standard libraries (Murmur2, 64 bits) gives one value: two blocks of eight bytes change its
/// state by the highest bit, and the second takes the change back.
inline std::string equalHashName(unsigned number, unsigned bits)
{
    std::string name;
    for (unsigned i = 0; i < bits; ++i)
        name += (number >> i & 1U) != 0 ? "pjyU[t\xC4\xE4"
                                          "a[y9\xC4"
                                          "a4\xD6"
                                        : "pj6o\xF6Yls"
                                          "a[6S_G\xDC"
                                          "d";
    return name;
}
