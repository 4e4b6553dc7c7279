#pragma once

#include "Failure.h"

#include <functional>
#include <memory>
#include <string>

namespace tavo {

class ConfigurationStream;
class Diagnostics;
class Input;
class Inventory;
class NameSet;
class PhA2l;
class PhAsap2;
class Selection;

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
    /// Lets `read` go on after an error, where the dialect can do that, to find others.
    void setGoesOn() { goesOn_ = true; }
    Description(const Description&) = delete;
    Description& operator=(const Description&) = delete;

    /// Reads the file. `AllWell` or `DescriptionFailed`, and what was wrong has gone to
    /// `diagnostics`. Throws a `Failure` for a file that can't be opened or read.
    ExitCode read(Diagnostics& diagnostics);
    /// What was read, and of that what was selected.
    const Inventory& inventory() { return changeableInventory(); }
    /// Writes the configuration. What was converted before has no effect on it.
    virtual void write(ConfigurationStream& stream) = 0;

    /// Takes away the quantities that aren't chosen, and enables those that are to be enabled.
    /// Warns of names that aren't there.
    void select(Selection& selection, NameSet& enabled, Diagnostics& diagnostics);
    /// Reports what the configuration can't say of the description.
    void reportLosses(Diagnostics& diagnostics);
    /// How messages call it.
    const std::string& file() const { return name_; }
    /// Where it was read from.
    const Input& input() const { return *input_; }

protected:
    Description(const std::string& file, Dialect dialect);

    /// What `read` does with an input that may be a description.
    virtual ExitCode readInput(Diagnostics& diagnostics) = 0;
    bool goesOn() const { return goesOn_; }

    virtual Inventory& changeableInventory() = 0;
    /// The inventory has less than what was read.
    bool isSelected() const { return isSelected_; }

private:
    std::string path_;
    std::string name_;
    Dialect dialect_;
    bool goesOn_ = false;
    std::shared_ptr<const Input> input_;
    bool isSelected_ = false;
};

/// False, with an error, if the input can't be a description of the dialect, which its first bytes
/// tell. Throws a `Failure` for what this build can't unpack.
bool isReadable(const Input& input, Dialect dialect, Diagnostics& diagnostics);

/// Runs an operation of the strict reader on the input, with the diagnostics as its logger, and
/// returns the status of the operation. Throws a `Failure` for a file that can't be opened or not
/// be read to its end.
int runStrictReader(const Input& input, Diagnostics& diagnostics,
                    const std::function<int(PhA2l&)>& operation);

/// Reads the input with the wide reader. The result is that of `PhAsap2::readFile`.
int readWide(PhAsap2& reader, const Input& input, Inventory& inventory);

/// The factories of the two dialects.
std::unique_ptr<Description> makeStrictDescription(const std::string& file);
std::unique_ptr<Description> makeWideDescription(const std::string& file);

} // namespace tavo
