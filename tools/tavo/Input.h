#pragma once

#include "Bytes.h"
#include "FileKind.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace tavo {

class Diagnostics;

/// A description as the readers get it: a plain file, which they open themselves, or bytes in
/// memory: what comes from a pipe or from the standard input, which is "-" on the command line, and
/// what was unpacked.
class Input
{
public:
    /// Looks at the file, and brings to memory what has to be there, while the progress is shown.
    /// Throws a `Failure` for what can't be opened, read or unpacked.
    static std::shared_ptr<const Input> open(const std::string& file, Diagnostics& diagnostics);

    /// How messages call it, and next to which included files are: the path, or "<stdin>".
    const std::string& name() const { return name_; }
    /// Nothing if it is a plain file.
    const std::optional<std::string_view>& memory() const { return memory_; }
    /// What it holds, once it is unpacked.
    const Recognition& recognition() const { return recognition_; }

private:
    explicit Input(const std::string& file);

    void load(std::FILE* file, Diagnostics& diagnostics);

    std::string name_;
    Bytes bytes_;
    std::optional<std::string_view> memory_;
    Recognition recognition_;
};

/// How messages call a file of the command line: its path, or "<stdin>".
std::string displayName(const std::string& file);

/// True for a path that names no place where a file next to it makes sense: the standard input,
/// a device, or what the system shows of a process.
bool isNameless(const std::string& file);

} // namespace tavo
