/*
 * Stands in for the 32-bit readdir_r, with which DirectFB looks for its modules, in programs
 * run under qemu on a 64-bit machine. File systems such as ext4 hand out 64-bit positions
 * there, and the C library's own function gives up on the first one. A position cut to 32 bits
 * is good enough for a caller that reads from the first entry to the last.
 *
 * scripts/arm-sysroot builds it and names it in the sysroot's etc/ld.so.preload.
 */
#define _GNU_SOURCE
#include <dirent.h>
#include <errno.h>
#include <string.h>
#include <sys/types.h>

int readdir_r(DIR* folder, struct dirent* entry, struct dirent** result)
{
    const int before = errno;
    errno = 0;
    const struct dirent64* wide = readdir64(folder);
    const int error = errno;
    errno = before;

    *result = wide == NULL ? NULL : entry;
    if (wide == NULL)
        return error;

    entry->d_ino = (ino_t)wide->d_ino;
    entry->d_off = (off_t)wide->d_off;
    entry->d_reclen = sizeof *entry;
    entry->d_type = wide->d_type;
    memcpy(entry->d_name, wide->d_name, sizeof entry->d_name);
    return 0;
}
