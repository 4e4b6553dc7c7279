// The floor loop over a file.

#include "floor.h"

#include <cstdio>

int main(int argc, char** argv)
{
    if (argc != 2) {
        std::fprintf(stderr, "usage: %s PATH\n", argv[0]);
        return 64;
    }
    std::printf("%zu tokens\n", FloorLoop::tokensOf(argv[1]));
    return 0;
}
