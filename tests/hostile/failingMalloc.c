/*
 * Preloaded into a host: the C library's allocations, of which all fail from a moment on that the
 * host chooses. The loader, the C library and every library that the host loads allocate here.
 */

#define _GNU_SOURCE
#include <errno.h>
#include <limits.h>
#include <malloc.h>
#include <stddef.h>
#include <string.h>

extern void* __libc_malloc(size_t size);
extern void* __libc_calloc(size_t count, size_t size);
extern void* __libc_realloc(void* block, size_t size);
extern void* __libc_memalign(size_t alignment, size_t size);
extern void __libc_free(void* block);

static long remaining = LONG_MAX;
static long inUse = 0;

/* From now on `count` more allocations succeed, and no other. */
void failAfter(long count) { remaining = count; }

/* Blocks that were allocated and not freed yet. */
long blocksInUse(void) { return inUse; }

static int mayAllocate(void)
{
    if (remaining == 0) {
        errno = ENOMEM;
        return 0;
    }
    if (remaining != LONG_MAX)
        --remaining;
    return 1;
}

static void* counted(void* block)
{
    inUse += block != NULL;
    return block;
}

void* malloc(size_t size) { return mayAllocate() ? counted(__libc_malloc(size)) : NULL; }

void* calloc(size_t count, size_t size)
{
    return mayAllocate() ? counted(__libc_calloc(count, size)) : NULL;
}

void* realloc(void* block, size_t size)
{
    if (!block)
        return malloc(size);
    return mayAllocate() ? __libc_realloc(block, size) : NULL;
}

void* memalign(size_t alignment, size_t size)
{
    return mayAllocate() ? counted(__libc_memalign(alignment, size)) : NULL;
}

void* aligned_alloc(size_t alignment, size_t size) { return memalign(alignment, size); }

int posix_memalign(void** block, size_t alignment, size_t size)
{
    void* aligned = memalign(alignment, size);
    if (!aligned)
        return ENOMEM;
    *block = aligned;
    return 0;
}

void free(void* block)
{
    inUse -= block != NULL;
    __libc_free(block);
}
