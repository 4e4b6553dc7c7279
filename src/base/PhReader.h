#pragma once

#include "base/PhLogger.h"

#include <memory>

namespace tavo {

class PhRoot;

/// Frame of a file reader: it knows the file's name and how to put out a message. What reading
/// means is its subclass's matter.
///
/// Messages go to the installed logger, or to the standard output if there is none. They change
/// nothing in the flow of a reading.
class PhReader
{
public:
    /// Keeps a copy of `path`, which may be null.
    explicit PhReader(const char* path);
    /// Leaves the logger alive.
    virtual ~PhReader();
    PhReader(const PhReader&) = delete;
    PhReader& operator=(const PhReader&) = delete;

    /// Puts out one message, printf-like and without a line end of its own. It is cut at 499 bytes.
    virtual void log(const char* format, ...) TAVO_PRINTF(2, 3);
    /// Hands a diagnostic to the logger, or, without one, puts it out through `log` as
    /// "Error (FILE:LINE): TEXT", with "Warning" or "Note" for the other severities.
    void report(const Diagnostic& diagnostic);
    /// Name of the format that the reader reads.
    virtual const char* formatName() const = 0;
    /// Reads the file into `root`. 0 for success, else a negative status.
    virtual int readFile(PhRoot* root) = 0;

    /// The path, or null. Valid until the next `setFileName`.
    const char* fileName() const { return fileName_.get(); }
    /// Keeps a copy of `path`; null takes the name away.
    void setFileName(const char* path);

    /// The installed sink, not owned; null after construction.
    PhLogger* logger() const { return logger_; }
    void setLogger(PhLogger* logger) { logger_ = logger; }

    /// Switches on a progress line for each block.
    bool verbose() const { return verbose_; }
    void setVerbose(bool verbose) { verbose_ = verbose; }

    /// Switches on the lines that show the defaults of conversion tables.
    bool debug() const { return debug_; }
    void setDebug(bool debug) { debug_ = debug; }

private:
    std::unique_ptr<char[]> fileName_;
    PhLogger* logger_ = nullptr;
    bool verbose_ = false;
    bool debug_ = false;
};

} // namespace tavo
