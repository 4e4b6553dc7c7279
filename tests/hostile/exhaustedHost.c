/*
 * A host in C that loads the library when it runs, and converts while memory is exhausted from the
 * first allocation on, from the second one, and so on. Each conversion runs in a thread of its own:
 * the first exception of a thread needs memory of the C library.
 *
 * usage: exhaustedHost LIBRARY DESCRIPTION OUTPUT       with failingMalloc preloaded
 */

#define _GNU_SOURCE
#include <dlfcn.h>
#include <fcntl.h>
#include <limits.h>
#include <pthread.h>
#include <stdint.h>
#include <stdio.h>
#include <string.h>
#include <unistd.h>

enum
{
    written = 0,
    notOpened = -2,
    notRead = -3
};

typedef int32_t Convert(const char*, const char*);

static Convert* convert;
static int32_t (*initialize)(void);
static void (*failAfter)(long);
static long (*blocksInUse)(void);
static const char* description;
static const char* output;

static void* convertWith(void* count)
{
    intptr_t result = 0;
    initialize();
    failAfter(*(const long*)count);
    result = convert(description, output);
    failAfter(LONG_MAX);
    return (void*)result;
}

static int32_t convertInThread(long count)
{
    pthread_t thread;
    void* result = NULL;
    if (pthread_create(&thread, NULL, convertWith, &count) != 0)
        return 1;
    pthread_join(thread, &result);
    return (int32_t)(intptr_t)result;
}

/* A function of a library. POSIX has them fit into a pointer to data, C has not. */
static void find(void* library, const char* name, void* function)
{
    void* found = dlsym(library, name);
    if (!found) {
        fprintf(stderr, "%s\n", dlerror());
        _exit(64);
    }
    memcpy(function, &found, sizeof found);
}

static void writeOld(void)
{
    const int file = open(output, O_WRONLY | O_CREAT | O_TRUNC, 0600);
    if (write(file, "old", 3) != 3)
        perror(output);
    close(file);
}

static int isOld(void)
{
    char text[4] = "";
    const int file = open(output, O_RDONLY);
    const int is = read(file, text, 4) == 3 && memcmp(text, "old", 3) == 0;
    close(file);
    return is;
}

int main(int argc, char** argv)
{
    long before = 0;
    long count = 0;
    int32_t result = notRead;
    int32_t last = notRead;
    int counts[4] = {0};
    void* library = argc == 4 ? dlopen(argv[1], RTLD_NOW | RTLD_LOCAL) : NULL;
    if (!library) {
        fprintf(stderr, "%s\n", argc == 4 ? dlerror() : "three arguments");
        return 64;
    }
    find(RTLD_DEFAULT, "failAfter", &failAfter);
    find(RTLD_DEFAULT, "blocksInUse", &blocksInUse);
    find(library, "tavoConvert", &convert);
    find(library, "tavoInitialize", &initialize);
    description = argv[2];
    output = argv[3];
    writeOld();
    /* The thread that has loaded the library needs no call before it. */
    failAfter(0);
    result = convert(description, output);
    failAfter(LONG_MAX);
    if (result != notRead)
        return 1;
    /* What a first thread and a first conversion leave belongs to the C library and the runtime. */
    if (convertInThread(LONG_MAX) != written)
        return 6;
    for (before = blocksInUse(); last != written; ++count, last = result) {
        writeOld();
        result = convertInThread(count);
        /* Of reading, of the output's buffer, and of the output's stream, in this order. */
        if (result > written || result < notRead || result < last || result == -1) {
            fprintf(stderr, "%ld allocations: result %d after %d\n", count, result, last);
            return 2;
        }
        if (result != written && !isOld()) {
            fprintf(stderr, "%ld allocations: the output has changed\n", count);
            return 3;
        }
        if (blocksInUse() != before) {
            fprintf(stderr, "%ld allocations: %ld blocks are lost\n", count,
                    blocksInUse() - before);
            return 4;
        }
        ++counts[-result];
    }
    fprintf(stderr, "not read %d times, not opened %d times\n", counts[-notRead],
            counts[-notOpened]);
    return counts[-notRead] > 3 && counts[-notOpened] > 0 ? 0 : 5;
}
