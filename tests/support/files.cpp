#include "support/files.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <random>

TemporaryFolder::TemporaryFolder()
{
    std::random_device random;
    do
        folder_ =
            std::filesystem::temp_directory_path() / ("tavo-test-" + std::to_string(random()));
    while (!std::filesystem::create_directory(folder_));
}

TemporaryFolder::~TemporaryFolder()
{
    std::error_code ignored;
    std::filesystem::remove_all(folder_, ignored);
}

std::string readFile(const std::filesystem::path& path)
{
    std::ifstream stream(path, std::ios::binary);
    EXPECT_TRUE(stream) << "can't open " << path;
    return {std::istreambuf_iterator<char>(stream), {}};
}

void writeFile(const std::filesystem::path& path, std::string_view bytes)
{
    std::ofstream stream(path, std::ios::binary);
    stream.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    ASSERT_TRUE(stream) << "can't write " << path;
}
