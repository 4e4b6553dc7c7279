// A floor over a file.

#include "floor.h"

#include <cstdio>
#include <cstring>

int main(int argc, char** argv)
{
    if (argc == 3 && std::strcmp(argv[1], "tokens") == 0) {
        std::printf("%zu tokens\n", FloorLoop::tokensOf(argv[2]));
    } else if (argc == 3 && std::strcmp(argv[1], "lines") == 0) {
        std::printf("%zu lines\n", FloorLoop::linesOf(argv[2]));
    } else {
        std::fprintf(stderr, "usage: %s tokens|lines PATH\n", argv[0]);
        return 64;
    }
    return 0;
}
