/* A thousand conversions of one small description in one process. */

#include <tavo/tavo.h>

#include <stdio.h>

int main(int argc, char** argv)
{
    int i = 0;
    if (argc != 3)
        return 64;
    for (i = 0; i < 1000; ++i)
        if (tavoConvert(argv[1], argv[2]) != TAVO_OK)
            return 1;
    return 0;
}
