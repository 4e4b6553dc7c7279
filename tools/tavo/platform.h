#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <functional>
#include <string>
#include <vector>

/// All that differs from one operating system to the next.
namespace tavo {

bool isTerminal(std::FILE* file);

/// Lets the bytes of the file arrive as they are.
void makeBinary(std::FILE* file);

/// Goes to a byte of the file, which may be beyond 2 GiB. 0 for success.
int seekTo(std::FILE* file, std::uint64_t offset);

/// A number that no other running process has.
unsigned long processNumber();

/// Creates a file for writing text, one at a time. A signal or an event of the console that ends
/// the program removes it, up to `releaseTemporaryFile`; the path must stay valid as long. Null,
/// with `errno`, if that fails: EEXIST if there is such a file.
std::FILE* createTemporaryFile(const char* path);
void releaseTemporaryFile();

/// Opens what exists, for writing text; the opening of a pipe waits for its reader. Null, with
/// `errno`, if that fails: EEXIST for a regular file unless it `mayEmpty` one.
std::FILE* openInPlace(const char* path, bool mayEmpty);

/// Brings what was written to the disk. 0, or the system's error number.
int syncToDisk(std::FILE* file);
/// The same for the names of the files in a folder, where the system can do it.
int syncFolder(const char* path);

/// Renames a file within its folder. 0, or the system's error number.
int moveOver(const char* from, const char* to);
/// The same with EEXIST if anything has the new name, even if it has got it this very moment.
int moveToFreeName(const char* from, const char* to);

/// A file for writing and reading, for the program alone, that is gone once it is closed. Null,
/// with `errno`, if that fails.
std::FILE* createScratchFile();

/// What the program needs of its process from the start: a write beyond the limit for the size of a
/// file fails with EFBIG instead of ending the program, and a console takes UTF-8.
void prepareProcess();

/// The files that arguments name. Where shells don't expand wildcards, a name with `*` or `?` in
/// its last part stands for the files that it matches, in the order of their names, or for itself
/// if there are none.
std::vector<std::string> filesOf(std::vector<std::string> words);

/// True for a name that the system takes for the device that drops what is written, in any folder.
bool isNullDevice(const std::string& path);

/// The arguments with which this program does the task of a number, and nothing else.
using CommandOf = std::function<std::vector<std::string>(std::size_t number)>;

/// Runs `task` for the numbers below `count`, each in a process of its own, which begins as a copy
/// of this one, or, where processes can't be copied, is this program with the arguments of
/// `commandOf`. `width` of them, at most 256 (64 on Windows), run at a time. Returns what each task
/// returned, a number from 0 to 127, or, of a process that a signal ended, the negative number of
/// the signal. The task throws nothing.
std::vector<int> runSideBySide(std::size_t count, std::size_t width,
                               const std::function<int(std::size_t)>& task,
                               const CommandOf& commandOf);

} // namespace tavo
