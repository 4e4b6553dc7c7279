#pragma once

#include "asap2/SourceFile.h"

#include <string>
#include <string_view>

namespace tavo {

class Inventory;
class Notices;
class PhLogger;
struct Diagnostic;
struct Place;

/// Reads a description of any edition of the standard, from 1.2 to 1.7.1, into an inventory.
///
/// What it doesn't know is passed over with a warning, and what can't be right is left out. Only a
/// description that is broken as a whole ends the reading. Its warnings are summed up: one for each
/// kind of thing, at the end of the reading. A reader serves one description.
class PhAsap2
{
public:
    /// `path` is the description's; null for one in memory without a name.
    explicit PhAsap2(const char* path) : path_(path ? path : "") {}
    PhAsap2(const PhAsap2&) = delete;
    PhAsap2& operator=(const PhAsap2&) = delete;

    /// Reads the file. 0 for success; -1 if the reading ended at an error, with what was read so
    /// far left in `inventory`; -2, with `errno`, if the file can't be opened.
    int readFile(Inventory& inventory);
    /// The same with a description in memory, where the path is only a name, and next to which
    /// included files are. Never -2.
    int read(std::string_view description, Inventory& inventory);

    /// The sink of warnings and errors, not owned. Null, as at first, is the standard output.
    void setLogger(PhLogger* logger) { logger_ = logger; }
    /// Each warning by itself, when it comes.
    void setVerbose(bool verbose) { verbose_ = verbose; }
    /// Goes on after an error with the next block of the module, as far as there is one, and
    /// notes what it has passed over. The result is -1 all the same.
    void setGoesOn(bool goesOn) { goesOn_ = goesOn; }
    void setWatch(SourceFile::Watch watch) { watch_ = std::move(watch); }

    /// The system's number of the error at which the file could be read no further, or 0. The
    /// reading has gone on as at the end of the file.
    int readError() const { return readError_; }

private:
    template <class Open> int readWith(Open open, Inventory& inventory);

    std::string path_;
    SourceFile::Watch watch_;
    PhLogger* logger_ = nullptr;
    bool verbose_ = false;
    bool goesOn_ = false;
    int readError_ = 0;
};

} // namespace tavo
