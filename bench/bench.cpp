// Whole conversions against two floors over the same bytes, each in a process of its own.
//
// usage: tavo-bench FOLDER-OF-PROGRAMS HOST

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <string>
#include <vector>

namespace {

struct Usage
{
    double seconds = 0.0;   ///< User and system time.
    double megabytes = 0.0; ///< Peak resident size.
};

Usage run(const std::vector<std::string>& command)
{
    std::vector<char*> arguments;
    for (const std::string& word : command)
        arguments.push_back(const_cast<char*>(word.c_str()));
    arguments.push_back(nullptr);
    const pid_t child = fork();
    if (child == 0) {
        const int null = open("/dev/null", O_WRONLY);
        dup2(null, 1);
        execv(arguments[0], arguments.data());
        _exit(127);
    }
    int status = 0;
    rusage usage = {};
    if (child < 0 || wait4(child, &status, 0, &usage) < 0 || status != 0) {
        std::fprintf(stderr, "%s failed\n", command.front().c_str());
        std::exit(1);
    }
    const auto seconds = [](const timeval& time) {
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
    };
    return {seconds(usage.ru_utime) + seconds(usage.ru_stime),
            static_cast<double>(usage.ru_maxrss) * 1024 / 1e6};
}

/// The best of several runs of each program, in turn: what disturbs one disturbs the others as
/// well.
std::vector<Usage> compare(const std::vector<std::vector<std::string>>& commands, int runs)
{
    std::vector<Usage> best(commands.size(), Usage{1e9, 0.0});
    for (int i = 0; i < runs; ++i)
        for (std::size_t j = 0; j < commands.size(); ++j) {
            const Usage usage = run(commands[j]);
            if (usage.seconds < best[j].seconds)
                best[j] = usage;
        }
    return best;
}

/// The arguments of the generator.
struct Plan
{
    std::vector<std::string> words;
    bool comparedWithTheOneBefore = false;
};

// A plan that comes after a tenth of itself is compared with that.
const Plan plans[] = {
    {{"1"}},
    {{"10"}, true},
    {{"100"}, true},
    {{"1", "after"}},
    {{"10", "after"}, true},
    {{"100", "after"}, true},
    {{"20"}},
    {{"200"}, true},
    {{"30000", "5000"}},
    {{"300000", "5000"}, true},
    {{"30000", "5000", "after"}},
    {{"300000", "5000", "after"}, true},
    {{"10000", "10000"}},
    {{"100000", "100000"}, true},
    {{"10000", "10000", "after"}},
    {{"100000", "100000", "after"}, true},
    {{"200000", "bare"}},
    {{"90000", "5000", "210000"}}, // seven of ten are characteristics
};

/// The programs and files of one run of the bench.
struct Place
{
    std::string programs; ///< The folder of the bench's own programs.
    std::string host;     ///< Of the strict library.
    std::string wideHost; ///< Of the wide one.
    std::string input;
    std::string output;
};

void largeConversions(const Place& place)
{
    run({place.programs + "/tavo-generate", place.input, "0.001"});
    const double empty = run({place.host, place.input, place.output}).megabytes;

    std::printf("%-22s %6s %8s %8s | %8s %6s %6s %5s %6s | %8s %6s %6s %5s\n", "description", "MB",
                "lines s", "floor s", "strict s", "ratio", "MB/s", "peak", "growth", "wide s",
                "ratio", "strict", "peak");
    double sizeBefore = 0.0;
    double secondsBefore = 0.0;
    for (const Plan& plan : plans) {
        std::vector<std::string> generate = {place.programs + "/tavo-generate", place.input};
        std::string name;
        for (const std::string& word : plan.words) {
            generate.push_back(word);
            name += word + " ";
        }
        run(generate);
        const double size = static_cast<double>(std::filesystem::file_size(place.input)) / 1e6;
        const int runs = size < 30 ? 25 : 7;
        const std::vector<Usage> usages =
            compare({{place.programs + "/tavo-floor", "tokens", place.input},
                     {place.programs + "/tavo-floor", "lines", place.input},
                     {place.host, place.input, place.output},
                     {place.wideHost, place.input, place.output}},
                    runs);
        const Usage& floor = usages[0];
        const Usage& lines = usages[1];
        const Usage& strict = usages[2];
        const Usage& wide = usages[3];
        std::printf("%-22s %6.1f %8.4f %8.4f | %8.4f %6.2f %6.0f %5.2f ", name.c_str(), size,
                    lines.seconds, floor.seconds, strict.seconds, strict.seconds / floor.seconds,
                    size / strict.seconds, (strict.megabytes - empty) / size);
        if (plan.comparedWithTheOneBefore)
            std::printf("%6.2f", strict.seconds / secondsBefore / (size / sizeBefore));
        else
            std::printf("%6s", "");
        std::printf(" | %8.4f %6.2f %6.2f %5.2f\n", wide.seconds, wide.seconds / floor.seconds,
                    wide.seconds / strict.seconds, (wide.megabytes - empty) / size);
        std::fflush(stdout);
        sizeBefore = size;
        secondsBefore = strict.seconds;
    }
    std::printf(
        "\nlines: counts line feeds; floor: splits into tokens; ratio: of the time to the floor's; "
        "peak: memory,\ndivided by the size; growth: of the time, divided by that of the size, "
        "against the row above; strict: of\nthe time to strict reading's\n");
}

void smallConversions(const Place& place, const std::string& output)
{
    run({place.programs + "/tavo-generate", place.input, "0.01"});
    double seconds = 1e9;
    for (int i = 0; i < 9; ++i)
        seconds = std::min(
            seconds, run({place.programs + "/tavo-bench-small", place.input, output}).seconds);
    std::filesystem::remove(output);
    std::printf("1000 conversions of %ju bytes in one process, output in %s: %.3f s\n",
                static_cast<std::uintmax_t>(std::filesystem::file_size(place.input)),
                std::filesystem::path(output).parent_path().c_str(), seconds);
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 3) {
        std::fprintf(stderr, "usage: %s FOLDER-OF-PROGRAMS HOST\n", argv[0]);
        return 64;
    }
    namespace fs = std::filesystem;
    const fs::path folder = fs::temp_directory_path() / ("tavo-bench-" + std::to_string(getpid()));
    fs::create_directory(folder);
    const Place place = {.programs = argv[1],
                         .host = argv[2],
                         .wideHost = std::string(argv[2]) + "-wide",
                         .input = (folder / "bench.a2l").string(),
                         .output = (folder / "bench.ini").string()};
    largeConversions(place);
    smallConversions(place, place.output);
    // Some file systems write a file that was emptied to the disk as soon as it is closed, and that
    // takes longer than the conversion.
    if (fs::is_directory("/dev/shm"))
        smallConversions(place, "/dev/shm/tavo-bench-" + std::to_string(getpid()));
    fs::remove_all(folder);
    return 0;
}
