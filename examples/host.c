/*
 * A host in C: converts a description and says what came of it.
 *
 *     cc host.c $(pkg-config --cflags --libs tavo) -o host
 *     ./host engine.a2l engine.ini
 */

#include <tavo/tavo.h>

#include <stdio.h>

static const char* meaning(int32_t result)
{
    switch (result) {
    case TAVO_OK:
        return "the configuration is written";
    case TAVO_UNKNOWN_EXTENSION:
        return "the input is no .a2l file";
    case TAVO_OUTPUT_NOT_OPENED:
        return "the output can't be opened";
    default:
        return "the description can't be read";
    }
}

int main(int argc, char** argv)
{
    int32_t result;

    if (argc != 3) {
        fprintf(stderr, "usage: %s INPUT.a2l OUTPUT\n", argv[0]);
        return 64;
    }
    tavoInitialize();
    result = tavoConvert(argv[1], argv[2]);
    tavoDeinitialize();

    fflush(stdout); /* the library's report, before what follows */
    fprintf(stderr, "%s: %s\n", argv[1], meaning(result));
    return result == TAVO_OK ? 0 : 1;
}
