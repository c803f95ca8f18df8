#ifndef CSPDEBUG_H
#define CSPDEBUG_H

/**
 * \file
 * The three calls of the television's debug-log library. Ours writes to standard
 * output; on the television its own library stands in the same place.
 *
 * A log line is written in two steps, so that the arguments of a line that is
 * switched off cost nothing:
 *
 *     uint32_t record[3] = {0x5F0FA0, 0, 0};
 *     if (cspDebugCheckLevelGetFrameAndChunk(record))
 *         cspDebugOutput0("[%s] %s:%d:%s(): called\n", ...);
 */

#ifdef __cplusplus
extern "C" {
#endif

/**
 * Tells whether a line is to be written.
 *
 * record: three 32-bit words, lent for the call; the low 16 bits of the first are
 *         the line's level, the other two are not looked at here.
 * Returns nonzero when the level is at or below the threshold: 4000, or the decimal
 * number in the environment variable CSP_DEBUG_LEVEL, read at the first call. A value
 * that is no number is reported once on standard error, and 4000 holds.
 */
int cspDebugCheckLevelGetFrameAndChunk(void* record);

/**
 * Formats as printf does and writes the result, whatever its length, to standard
 * output with one write, so that a line is whole in a pipe and is not lost when the
 * process dies. A null string prints as "(null)". Errors of the output are ignored.
 */
void cspDebugOutput0(const char* format, ...) __attribute__((format(printf, 1, 2)));

/**
 * Returns the part of path behind its last slash: a pointer into path itself, valid
 * as long as path is; null for null.
 */
const char* blog_base_name(const char* path);

#ifdef __cplusplus
}
#endif

#endif
