#pragma once

#include "Failure.h"
#include "topology/PhRoot.h"

#include <functional>
#include <string>

namespace tavo {

class Diagnostics;
class PhA2l;
class PhGroup;

/// A description file and the model that it gives.
class Description
{
public:
    explicit Description(const std::string& file) : file_(file) {}

    /// Reads the file and resolves its names. `AllWell` or `DescriptionFailed`, and what was wrong
    /// has gone to `diagnostics`. Throws a `Failure` for a file that can't be opened or read.
    ExitCode read(Diagnostics& diagnostics);

    PhRoot& root() { return root_; }
    /// The group that a configuration shows: the first MODULE of the first PROJECT. Null if there
    /// is none at all.
    const PhGroup* writtenModule() const;

private:
    void resolve(Diagnostics& diagnostics);

    std::string file_;
    PhRoot root_;
};

/// Runs an operation of a reader on the file, with the diagnostics as its logger, and gives the
/// status of the operation. Throws a `Failure` for a file that can't be opened or not be read to
/// its end.
int runReader(const std::string& file, Diagnostics& diagnostics,
              const std::function<int(PhA2l&)>& operation);

} // namespace tavo
