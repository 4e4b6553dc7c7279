#pragma once

#include <memory>

namespace tavo {

/// One conversion of the library, in the steps in which it reports what it does. Each of the two
/// libraries has a class of its own for it.
class Conversion
{
public:
    virtual ~Conversion() = default;
    Conversion(const Conversion&) = delete;
    Conversion& operator=(const Conversion&) = delete;

    /// Reads the description. 0, or a negative status.
    virtual int read() = 0;
    /// Writes the configuration of what was read. False if the file can't be opened.
    virtual bool write(const char* outputPath) = 0;

protected:
    Conversion() = default;
};

/// The conversion of the library that is linked. The path isn't null.
std::unique_ptr<Conversion> makeConversion(const char* inputPath);

} // namespace tavo
