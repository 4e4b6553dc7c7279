#pragma once

#include "daq/ConfigurationStream.h"
#include "daq/sections.h"

#include <cstdio>
#include <cstdlib>
#include <string>

/// What `write` puts into the stream that it gets, of a process that has written nothing yet.
template <class Write> std::string written(Write write)
{
    char* bytes = nullptr;
    std::size_t size = 0;
    std::FILE* const file = open_memstream(&bytes, &size);
    {
        tavo::ConfigurationStream stream;
        stream.use(file);
        tavo::daqSourceIndex = 0;
        write(stream);
        stream.close();
    }
    std::fclose(file);
    std::string result(bytes, size);
    std::free(bytes);
    return result;
}
