#include "StandardOutput.h"

#include "Failure.h"

#include <cstdio>

namespace tavo {

StandardOutput::StandardOutput() { stream_.use(stdout); }

void StandardOutput::print(std::string_view text)
{
    StandardOutput output;
    output.stream().put(text);
    output.finish();
}

void StandardOutput::finish()
{
    if (const int error = stream_.close())
        throw systemFailure("standard output", error);
}

} // namespace tavo
