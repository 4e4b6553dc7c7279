// The floor loop over a file, in blocks as a reader takes them.

#include "floor.h"

#include <cstdio>
#include <memory>

int main(int argc, char** argv)
{
    constexpr std::size_t blockSize = 65536;
    const std::unique_ptr<unsigned char[]> block(new unsigned char[blockSize]);
    std::FILE* file = argc == 2 ? std::fopen(argv[1], "rb") : nullptr;
    if (!file)
        return 1;
    std::setvbuf(file, nullptr, _IONBF, 0);
    FloorLoop loop;
    while (const std::size_t size = std::fread(block.get(), 1, blockSize, file))
        loop.feed(block.get(), size);
    std::fclose(file);
    std::printf("%zu tokens\n", loop.tokens());
    return 0;
}
