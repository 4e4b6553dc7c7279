/*
 * The library from plain C, through the public header and the shared library alone: every result
 * code, from the paths that a host passes.
 *
 * usage: boundary DESCRIPTION FOLDER
 */

#include <tavo/tavo.h>

#include <stdio.h>

static int failures = 0;

static void expect(const char* what, int32_t result, int32_t expected)
{
    if (result != expected) {
        fprintf(stderr, "%s: %d instead of %d\n", what, (int)result, (int)expected);
        ++failures;
    }
}

static int32_t exists(const char* path)
{
    FILE* file = fopen(path, "rb");
    if (file)
        fclose(file);
    return file != NULL;
}

int main(int argc, char** argv)
{
    char good[1000];
    char bad[1000];
    char unreachable[1000];

    if (argc != 3)
        return 64;
    snprintf(good, sizeof good, "%s/boundary.ini", argv[2]);
    snprintf(bad, sizeof bad, "%s/missing.a2l", argv[2]);
    snprintf(unreachable, sizeof unreachable, "%s/missing/boundary.ini", argv[2]);
    remove(good);

    expect("initialize", tavoInitialize(), 0);
    expect("no extension", tavoConvert("description.txt", good), TAVO_UNKNOWN_EXTENSION);
    expect("null description", tavoConvert(NULL, good), TAVO_UNKNOWN_EXTENSION);
    expect("missing description", tavoConvert(bad, good), TAVO_NOT_READ);
    expect("nothing written so far", exists(good), 0);
    expect("no output folder", tavoConvert(argv[1], unreachable), TAVO_OUTPUT_NOT_OPENED);
    expect("null output", tavoConvert(argv[1], NULL), TAVO_OUTPUT_NOT_OPENED);
    expect("conversion", tavoConvert(argv[1], good), TAVO_OK);
    expect("deinitialize", tavoDeinitialize(), 0);
    expect("configuration", exists(good), 1);
    return failures;
}
