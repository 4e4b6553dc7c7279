/* Converts one description, as any host does it. */

#include <tavo/tavo.h>

#include <stdio.h>

int main(int argc, char** argv)
{
    if (argc != 3) {
        fprintf(stderr, "usage: %s INPUT.a2l OUTPUT\n", argv[0]);
        return 64;
    }
    tavoInitialize();
    const int32_t result = tavoConvert(argv[1], argv[2]);
    tavoDeinitialize();
    return -result; /* 0 to 3 */
}
