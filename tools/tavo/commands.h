#pragma once

#include "Failure.h"
#include "options.h"

#include <new>

/// The commands of the program. Each one returns its exit code, and throws a `Failure` for what
/// ends it as a whole.
namespace tavo {

ExitCode convert(const Options& options, Diagnostics& diagnostics);
ExitCode normalize(const Options& options, Diagnostics& diagnostics);
ExitCode check(const Options& options, Diagnostics& diagnostics);
ExitCode list(const Options& options, Diagnostics& diagnostics);
ExitCode diff(const Options& options, Diagnostics& diagnostics);
ExitCode page(const Options& options, Diagnostics& diagnostics);
ExitCode printTokens(const Options& options, Diagnostics& diagnostics);

/// Does the work on one of several files. A `Failure` is reported and becomes an exit code, so that
/// the next file has its turn.
template <class Work> ExitCode attempt(Diagnostics& diagnostics, Work work)
{
    try {
        return work();
    } catch (const Failure& failure) {
        diagnostics.failProgram(failure.what(), failure.hint());
        return failure.exitCode();
    } catch (const std::bad_alloc&) {
        diagnostics.failProgram("Out of memory");
        return ExitCode::Trouble;
    }
}

} // namespace tavo
