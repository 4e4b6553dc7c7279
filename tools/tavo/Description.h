#pragma once

#include "Failure.h"

#include <functional>
#include <memory>
#include <string>

namespace tavo {

class ConfigurationStream;
class Diagnostics;
class Inventory;
class PhA2l;

/// Which descriptions are read.
enum class Dialect
{
    Wide,  ///< Those of all editions of the standard.
    Strict ///< Those that the strict library reads, and as it reads them.
};

/// A description file and what it holds.
class Description
{
public:
    /// One that wasn't read yet.
    static std::unique_ptr<Description> make(const std::string& file, Dialect dialect);
    virtual ~Description() = default;
    Description(const Description&) = delete;
    Description& operator=(const Description&) = delete;

    /// Reads the file. `AllWell` or `DescriptionFailed`, and what was wrong has gone to
    /// `diagnostics`. Throws a `Failure` for a file that can't be opened or read.
    virtual ExitCode read(Diagnostics& diagnostics) = 0;
    /// What was read.
    virtual const Inventory& inventory() = 0;
    /// Writes the configuration. What was converted before has no effect on it.
    virtual void write(ConfigurationStream& stream) = 0;

    /// Reports what the configuration can't say of the description.
    void reportLosses(Diagnostics& diagnostics);
    const std::string& file() const { return file_; }

protected:
    explicit Description(const std::string& file) : file_(file) {}

    /// Throws a `Failure` for a folder, which can be opened but not read.
    void checkFile() const;

private:
    std::string file_;
};

/// Runs an operation of the strict reader on the file, with the diagnostics as its logger, and
/// returns the status of the operation. Throws a `Failure` for a file that can't be opened or not
/// be read to its end.
int runReader(const std::string& file, Diagnostics& diagnostics,
              const std::function<int(PhA2l&)>& operation);

/// The factories of the two dialects.
std::unique_ptr<Description> makeStrictDescription(const std::string& file);
std::unique_ptr<Description> makeWideDescription(const std::string& file);

} // namespace tavo
