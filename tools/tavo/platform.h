#pragma once

#include <cstddef>
#include <cstdio>
#include <functional>
#include <vector>

/// All that differs from one operating system to the next.
namespace tavo {

bool isTerminal(std::FILE* file);

/// A number that no other running process has.
unsigned long processNumber();

/// Creates a file for writing text. Null, with `errno`, if that fails: EEXIST if there is such a
/// file.
std::FILE* createNewFile(const char* path);

/// Brings what was written to the disk. 0, or the system's error number.
int syncToDisk(std::FILE* file);

/// Makes a signal that ends the program (INT, TERM, HUP) remove this file first; null ends that.
/// The text stays the caller's.
void removeOnSignal(const char* path);

/// Runs `task` for the numbers below `count`, each in a process of its own, which begins as a copy
/// of this one. `width` of them, at most 256, run at a time. Gives what each task returned, a
/// number from 0 to 127, or, of a process that a signal ended, the negative number of the signal.
/// The task throws nothing.
///
/// Where processes can't be copied, the tasks run here, one after the other.
std::vector<int> runSideBySide(std::size_t count, std::size_t width,
                               const std::function<int(std::size_t)>& task);

} // namespace tavo
