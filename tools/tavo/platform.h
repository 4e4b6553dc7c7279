#pragma once

#include <cstddef>
#include <cstdio>
#include <functional>
#include <vector>

/// All that differs from one operating system to the next.
namespace tavo {

bool isTerminal(std::FILE* file);

/// Lets the bytes of the file arrive as they are.
void makeBinary(std::FILE* file);

/// A number that no other running process has.
unsigned long processNumber();

/// Creates a file for writing text, one at a time. A signal that ends the program removes it, up to
/// `releaseTemporaryFile`; the path must stay valid as long. Null, with `errno`, if that fails:
/// EEXIST if there is such a file.
std::FILE* createTemporaryFile(const char* path);
void releaseTemporaryFile();

/// Opens what exists, for writing text; the opening of a pipe waits for its reader. Null, with
/// `errno`, if that fails: EEXIST for a regular file unless it `mayEmpty` one.
std::FILE* openInPlace(const char* path, bool mayEmpty);

/// Brings what was written to the disk. 0, or the system's error number.
int syncToDisk(std::FILE* file);
/// The same for the names of the files in a folder, where the system can do it.
int syncFolder(const char* path);

/// Renames a file within its folder. 0, or the system's error number: EEXIST if anything has the
/// new name, even if it has got it this very moment.
int moveToFreeName(const char* from, const char* to);

/// A file for writing and reading, for the program alone, that is gone once it is closed. Null,
/// with `errno`, if that fails.
std::FILE* createScratchFile();

/// Lets a write beyond the limit for the size of a file fail with EFBIG, where it would end the
/// program.
void failBeyondSizeLimit();

/// Runs `task` for the numbers below `count`, each in a process of its own, which begins as a copy
/// of this one. `width` of them, at most 256, run at a time. Gives what each task returned, a
/// number from 0 to 127, or, of a process that a signal ended, the negative number of the signal.
/// The task throws nothing.
///
/// Where processes can't be copied, the tasks run here, one after the other.
std::vector<int> runSideBySide(std::size_t count, std::size_t width,
                               const std::function<int(std::size_t)>& task);

} // namespace tavo
