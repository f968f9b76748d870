/* Preloaded into a program, lets it write KUVEL_DISK_BYTES bytes into files; then the disk is full. */
#define _GNU_SOURCE
#include <dlfcn.h>
#include <errno.h>
#include <stdlib.h>
#include <sys/stat.h>
#include <sys/types.h>
#include <unistd.h>

static long long s_left = -1;

static int Fits(int file, size_t count) {
    struct stat status;
    if (fstat(file, &status) != 0 || !S_ISREG(status.st_mode))
        return 1;
    if (s_left < 0) {
        const char* bytes = getenv("KUVEL_DISK_BYTES");
        s_left = bytes != NULL ? atoll(bytes) : 0;
    }
    if ((long long)count > s_left) {
        errno = ENOSPC;
        return 0;
    }
    s_left -= (long long)count;
    return 1;
}

ssize_t write(int file, const void* bytes, size_t count) {
    static ssize_t (*next)(int, const void*, size_t);
    if (next == NULL)
        next = (ssize_t(*)(int, const void*, size_t))dlsym(RTLD_NEXT, "write");
    return Fits(file, count) ? next(file, bytes, count) : -1;
}

ssize_t pwrite64(int file, const void* bytes, size_t count, off64_t offset) {
    static ssize_t (*next)(int, const void*, size_t, off64_t);
    if (next == NULL)
        next = (ssize_t(*)(int, const void*, size_t, off64_t))dlsym(RTLD_NEXT, "pwrite64");
    return Fits(file, count) ? next(file, bytes, count, offset) : -1;
}

ssize_t pwrite(int file, const void* bytes, size_t count, off_t offset) {
    return pwrite64(file, bytes, count, offset);
}
