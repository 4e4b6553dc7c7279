/*
 * Loads the library, converts and unloads it a thousand times: nothing may pile up.
 *
 * usage: reload LIBRARY DESCRIPTION OUTPUT
 */

#include <dlfcn.h>
#include <fcntl.h>
#include <stdint.h>
#include <stdio.h>
#include <string.h>
#include <unistd.h>

typedef int32_t (*Start)(void);
typedef int32_t (*Convert)(const char*, const char*);

/* dlsym gives a data pointer, which ISO C doesn't let become a function. */
static void find(void* library, const char* name, void* function)
{
    void* symbol = dlsym(library, name);
    memcpy(function, &symbol, sizeof symbol);
}

static long residentPages(void)
{
    long pages = -1;
    FILE* file = fopen("/proc/self/statm", "r");
    if (file) {
        if (fscanf(file, "%*d %ld", &pages) != 1)
            pages = -1;
        fclose(file);
    }
    return pages;
}

static int isLoaded(const char* path)
{
    void* library = dlopen(path, RTLD_NOW | RTLD_NOLOAD);
    if (library)
        dlclose(library);
    return library != NULL;
}

int main(int argc, char** argv)
{
    enum
    {
        rounds = 1000,
        warmUp = 20,
        allowedPages = 256
    };
    long before = 0;
    long after = 0;
    int round = 0;

    if (argc != 4)
        return 64;
    for (round = 0; round < rounds; ++round) {
        Start initialize = NULL;
        Convert convert = NULL;
        void* library = dlopen(argv[1], RTLD_NOW | RTLD_LOCAL);
        if (!library) {
            fprintf(stderr, "%s\n", dlerror());
            return 1;
        }
        find(library, "tavoInitialize", &initialize);
        find(library, "tavoConvert", &convert);
        initialize();
        if (convert(argv[2], argv[3]) != 0) {
            fprintf(stderr, "round %d: not converted\n", round);
            return 1;
        }
        dlclose(library);
        if (round == warmUp)
            before = residentPages();
    }
    after = residentPages();
    if (isLoaded(argv[1])) {
        fprintf(stderr, "the library is still there\n");
        return 1;
    }
    if (after > before + allowedPages) {
        fprintf(stderr, "%ld pages became %ld\n", before, after);
        return 1;
    }
    return 0;
}
