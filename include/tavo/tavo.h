/*
 * tavo: turns an ECU description (ASAM MCD-2 MC, `.a2l`) into a data-acquisition configuration.
 *
 * Conventions, for all three functions:
 *
 * 1. Paths are zero-terminated and reach the C library's `fopen` as they are: bytes in the file
 *    system's encoding on POSIX systems, in the active code page on Windows.
 * 2. The caller owns every pointer that it passes. The library keeps none of them.
 * 3. A result of 0 is success; failures are negative, see `tavoConvert`. No exception leaves the
 *    library. If memory runs out, the result is TAVO_NOT_READ, or TAVO_OUTPUT_NOT_OPENED if
 *    only the output's stream gets none, with everything released.
 * 4. The report and the diagnostics of a conversion go through the C library's `stdout` to the
 *    standard output of the process. The library never flushes it.
 * 5. Conversions in one process run one after the other, on whatever thread: the library starts no
 *    thread and takes no lock. Three counters outlive a call, of which one shows: the number of
 *    the next source, see `tavoInitialize`.
 * 6. A null `inputPath` counts as a path without the extension (TAVO_UNKNOWN_EXTENSION), a null
 *    `outputPath` as one that can't be opened (TAVO_OUTPUT_NOT_OPENED).
 * 7. Nothing of the process is changed: no locale, no signal handler, no current folder. Numbers
 *    are read and printed with a decimal point whatever locale the host has set, and computed in
 *    the default floating-point environment whatever the host's is.
 */
#ifndef TAVO_TAVO_H
#define TAVO_TAVO_H

#include <stdint.h>

#if defined(TAVO_STATIC)
#define TAVO_API
#elif defined(_WIN32)
#if defined(TAVO_BUILD)
#define TAVO_API __declspec(dllexport)
#else
#define TAVO_API __declspec(dllimport)
#endif
#elif defined(__GNUC__)
#define TAVO_API __attribute__((visibility("default")))
#else
#define TAVO_API
#endif

#if defined(__cplusplus)
extern "C" {
#endif

/** Results of `tavoConvert`. */
enum TavoResult
{
    /** The description was read and the configuration is written. */
    TAVO_OK = 0,
    /** `inputPath` holds neither ".a2l" nor ".A2L". Nothing was read or created. */
    TAVO_UNKNOWN_EXTENSION = -1,
    /** The description was read, but the output file couldn't be opened for writing. It is as it
     *  was before. */
    TAVO_OUTPUT_NOT_OPENED = -2,
    /** The description couldn't be opened, its reading ended at an error, or memory ran out. The
     *  output file is as it was before. */
    TAVO_NOT_READ = -3
};

/**
 * Starts the numbering of sources afresh. Prints "tavoInitialize ()" and returns 0.
 *
 * Optional: a conversion needs no call before it. The number matters only for a description
 * without any raster or event, whose one source else goes on from the conversion before.
 */
TAVO_API int32_t tavoInitialize(void);

/**
 * Reads the description `inputPath` and writes the configuration of its first MODULE to
 * `outputPath`.
 *
 * The path of the description must hold ".a2l" or ".A2L" somewhere. An existing output file is
 * replaced, but only once the description was read without an error. Its writing isn't watched: a
 * full disk gives a short file.
 *
 * The reading ends with the input, and nothing interrupts it: a pipe that sends blanks for ever is
 * read for ever.
 *
 * Returns a `TavoResult`. What was wrong with a description stands on the standard output, each
 * message in the form "-: Error (FILE:LINE): TEXT" or "-: Warning (FILE:LINE): TEXT".
 */
TAVO_API int32_t tavoConvert(const char* inputPath, const char* outputPath);

/** Starts the numbering of sources afresh. Prints "tavoDeinitialize ()" and returns 0. */
TAVO_API int32_t tavoDeinitialize(void);

#if defined(__cplusplus)
}
#endif

#endif
