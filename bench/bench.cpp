// Whole conversions against the floor loop over the same bytes, each in a process of its own.
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

/// The best of several runs of two programs in turn: what disturbs one disturbs the other as well.
std::pair<Usage, Usage> compare(const std::vector<std::string>& first,
                                const std::vector<std::string>& second, int runs)
{
    std::vector<Usage> firsts;
    std::vector<Usage> seconds;
    for (int i = 0; i < runs; ++i) {
        firsts.push_back(run(first));
        seconds.push_back(run(second));
    }
    const auto best = [](const std::vector<Usage>& usages) {
        return *std::min_element(usages.begin(), usages.end(), [](const Usage& a, const Usage& b) {
            return a.seconds < b.seconds;
        });
    };
    return {best(firsts), best(seconds)};
}

/// What the generator is told to write.
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
};

/// The programs and files of one run of the bench.
struct Place
{
    std::string programs; ///< The folder of the bench's own programs.
    std::string host;
    std::string input;
    std::string output;
};

void largeConversions(const Place& place)
{
    run({place.programs + "/tavo-generate", place.input, "0.001"});
    const double empty = run({place.host, place.input, place.output}).megabytes;

    std::printf("%-22s %7s %9s %9s %7s %9s %9s %9s %9s\n", "description", "MB", "floor s", "tavo s",
                "ratio", "tavo MB/s", "peak MB", "peak/file", "growth");
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
        const auto [floor, tavo] = compare({place.programs + "/tavo-floor", place.input},
                                           {place.host, place.input, place.output}, runs);
        const double peak = tavo.megabytes - empty;
        std::printf("%-22s %7.1f %9.4f %9.4f %7.2f %9.0f %9.1f %9.2f", name.c_str(), size,
                    floor.seconds, tavo.seconds, tavo.seconds / floor.seconds, size / tavo.seconds,
                    peak, peak / size);
        if (plan.comparedWithTheOneBefore)
            std::printf(" %9.2f", tavo.seconds / secondsBefore / (size / sizeBefore));
        std::printf("\n");
        std::fflush(stdout);
        sizeBefore = size;
        secondsBefore = tavo.seconds;
    }
    std::printf("\nratio: to the floor; growth: of the time, divided by that of the size, against "
                "the row above\n");
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
