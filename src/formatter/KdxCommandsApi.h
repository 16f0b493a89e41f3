/* The plain C interface of the commands library: FormatCommands, and FreeText to give its text
 * results back. Text is single-byte and crosses with its length both ways (the result is also
 * zero-ended, for convenience). */
#ifndef KORVAL_KDX_COMMANDS_API_H
#define KORVAL_KDX_COMMANDS_API_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

#if defined(KDX_COMMANDS_BUILD)
#define KDX_COMMANDS_EXPORT __attribute__((visibility("default")))
#else
#define KDX_COMMANDS_EXPORT
#endif

/* One command to a line, lines ended by CR, the input's comments dropped; with flag 1 a comment
 * after each command behind a ";". */
KDX_COMMANDS_EXPORT char* FormatCommands(const char* buffer, int32_t length, int32_t flag,
                                         int32_t* resultLength);
KDX_COMMANDS_EXPORT void FreeText(char* text);

#ifdef __cplusplus
}
#endif

#endif
