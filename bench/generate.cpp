// Writes a generated description to the standard output or, for a conversion to have a file, to a
// path.

#include "generator.h"

#include <cstdlib>
#include <cstring>

int main(int argc, char** argv)
{
    if (argc < 3) {
        std::fprintf(
            stderr,
            "usage: %s PATH MEGABYTES [before|after]          methods before or after their use\n"
            "       %s PATH MEASUREMENTS METHODS [before|after]\n"
            "       %s PATH MEASUREMENTS bare\n"
            "       %s PATH MEASUREMENTS METHODS CHARACTERISTICS\n",
            argv[0], argv[0], argv[0], argv[0]);
        return 64;
    }
    DescriptionPlan plan;
    const bool after = std::strcmp(argv[argc - 1], "after") == 0;
    if (argc > 3 && std::strcmp(argv[3], "bare") == 0) {
        plan.measurements = std::atol(argv[2]);
        plan.measurementsOnly = true;
    } else if (argc > 3 && std::atol(argv[3]) > 0) {
        plan.measurements = std::atol(argv[2]);
        plan.methods = std::atol(argv[3]);
        plan.characteristics = plan.measurements;
        if (argc > 4 && std::atol(argv[4]) > 0)
            plan.characteristics = std::atol(argv[4]);
        plan.methodsFirst = !after;
    } else {
        plan = planOfSize(static_cast<long>(std::atof(argv[2]) * 1e6), !after);
    }
    std::FILE* file = std::fopen(argv[1], "wb");
    if (!file) {
        std::perror(argv[1]);
        return 1;
    }
    writeDescription(file, plan);
    return std::fclose(file) == 0 ? 0 : 1;
}
