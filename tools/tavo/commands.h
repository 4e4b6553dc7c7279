#pragma once

#include "Description.h"
#include "Diagnostics.h"
#include "Failure.h"

#include <new>
#include <string>
#include <vector>

/// The commands of the program. Each one returns its exit code, and throws a `Failure` for what
/// ends it as a whole.
namespace tavo {

/// What is made of a description.
enum class Product
{
    Configuration,
    StrictDescription ///< For hosts of the strict library.
};

struct ConvertOptions
{
    std::string input;
    /// Further descriptions if there is an `outputFolder`, else the output or nothing.
    std::vector<std::string> others;
    std::string outputFolder; ///< "" if there is none.
    Product product = Product::Configuration;
    Dialect dialect = Dialect::Wide; ///< A strict description is made of a wide one only.
    bool force = false;              ///< Replaces existing files.
    bool warningsAreErrors = false;  ///< Writes nothing if there is a warning.
    unsigned jobs = 1;
};

enum class ListFormat
{
    Table,
    Csv,
    Json,
};

struct CheckOptions
{
    std::vector<std::string> files;
    Dialect dialect = Dialect::Wide;
    bool warningsAreErrors = false;
};

struct ListOptions
{
    std::string file;
    Dialect dialect = Dialect::Wide;
    ListFormat format = ListFormat::Table;
    std::string pattern = "*";
};

ExitCode convert(const ConvertOptions& options, Diagnostics& diagnostics);
ExitCode check(const CheckOptions& options, Diagnostics& diagnostics);
ExitCode list(const ListOptions& options, Diagnostics& diagnostics);
ExitCode printTokens(const std::string& file, Console& console, Volume volume);

/// Does the work on one of several files. A `Failure` is reported and becomes an exit code, so that
/// the next file has its turn.
template <class Work> ExitCode attempt(Diagnostics& diagnostics, Work work)
{
    try {
        return work();
    } catch (const Failure& failure) {
        diagnostics.failProgram(failure.what());
        return failure.exitCode();
    } catch (const std::bad_alloc&) {
        diagnostics.failProgram("Out of memory");
        return ExitCode::Trouble;
    }
}

} // namespace tavo
