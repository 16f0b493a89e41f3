/* The plain C interface of the serial driver library, the only thing the program and the
 * library share. Integers are 32-bit, truth values 0/1, text single-byte. Text crosses with its
 * length, both ways, so that every byte value a controller can send, NUL included, arrives
 * unchanged: an argument is a pointer and a length; a result is returned as a pointer with its
 * length written through the last argument (also zero-ended, for convenience). Text results
 * belong to the caller, who gives them back with FreeText. A sink is written from the driver's
 * own threads; see KdxSink. */
#ifndef KORVAL_KDX_DRIVER_API_H
#define KORVAL_KDX_DRIVER_API_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

typedef struct KdxSink {
    void* context;
    /* Called on a driver thread with text that is not zero-ended; must not block for long. */
    void (*write)(void* context, const char* text, int32_t length);
    int32_t append; /* 1: the text is added to the sink's text; 0: it replaces it */
} KdxSink;

/* Every operation once: return type, name, parameters. The 56 operations of the driver come
 * first, in their declared order; the three after them are this build's own additions. */
#define KDX_DRIVER_OPERATIONS(X)                                                                   \
    X(void, SetTempBufferCallback, (const KdxSink* sink))                                          \
    X(void, SetBufferCallback, (const KdxSink* sink))                                              \
    X(void, SetTerminalCallback, (const KdxSink* sink))                                            \
    X(void, SetReportCallback, (const KdxSink* sink))                                              \
    X(int32_t, OpenListenThread, (void))                                                           \
    X(int32_t, CloseListenThread, (void))                                                          \
    X(int32_t, OpenPollingThread, (void))                                                          \
    X(int32_t, ClosePollingThread, (void))                                                         \
    X(int32_t, ShowForm, (void))                                                                   \
    X(int32_t, HideForm, (void))                                                                   \
    X(int32_t, WindowHandle, (void))                                                               \
    X(int32_t, IsFormOpen, (void))                                                                 \
    X(int32_t, MoveForm, (int32_t x, int32_t y))                                                   \
    X(int32_t, OpenPort, (int32_t port, int32_t baud))                                             \
    X(int32_t, IsPortOpen, (void))                                                                 \
    X(int32_t, ClosePort, (void))                                                                  \
    X(int32_t, SendToPort, (const char* buffer, int32_t length))                                   \
    X(char*, ReadFromPort, (int32_t * length))                                                     \
    X(char*, ReadAndThenClearFromPort, (int32_t * length))                                         \
    X(int32_t, CountCharsAtPort, (void))                                                           \
    X(int32_t, SearchForChars, (const char* buffer, int32_t length))                               \
    X(int32_t, CleanTerminal, (void))                                                              \
    X(int32_t, ClearTerminal, (void))                                                              \
    X(char*, GetTerminal, (int32_t * length))                                                      \
    X(int32_t, ClearPort, (void))                                                                  \
    X(int32_t, RemoveFromPort, (const char* buffer, int32_t length))                               \
    X(char*, VerifyControlStatus, (int32_t * length))                                              \
    X(char*, StateCheck, (const char* buffer, int32_t length, int32_t* resultLength))              \
    X(int32_t, FunctionEscapeTrue, (void))                                                         \
    X(int32_t, FunctionEscapeFalse, (void))                                                        \
    X(int32_t, AreAllFunctionsEnabled, (void))                                                     \
    X(int32_t, Online, (void))                                                                     \
    X(int32_t, Offline, (void))                                                                    \
    X(int32_t, KillKdxProgram, (void))                                                             \
    X(int32_t, StopKdxProgram, (void))                                                             \
    X(char*, GetMotorPosition, (int32_t motor, int32_t * length))                                  \
    X(int32_t, WaitForChar, (const char* buffer, int32_t length, int64_t limit))                   \
    X(int32_t, RunProgram, (void))                                                                 \
    X(int32_t, RunProgramAndWaitForFinish, (int64_t limit))                                        \
    X(int32_t, DetectControl, (int32_t highestPort, const KdxSink* progress))                      \
    X(int32_t, GetCurrentPort, (void))                                                             \
    X(int32_t, GetCurrentBaud, (void))                                                             \
    X(int32_t, GetScanAbortStatus, (void))                                                         \
    X(int32_t, SetScanAbortStatus, (int32_t flag))                                                 \
    X(int32_t, GetMotor, (int32_t motor))                                                          \
    X(int32_t, SetMotor, (int32_t motor, int32_t setting))                                         \
    X(int32_t, GetLimit, (int32_t motor))                                                          \
    X(int32_t, SetLimit, (int32_t motor, int32_t setting))                                         \
    X(char*, GetCurrentProgramMemory, (int32_t * length))                                          \
    X(char*, GetCurrentProgramNumber, (int32_t * length))                                          \
    X(int32_t, SetCurrentProgramNumber, (int32_t number))                                          \
    X(char*, GetCurrentProgramListing, (int32_t number, int32_t * length))                         \
    X(int32_t, PossibleNumOfMotors, (void))                                                        \
    X(int32_t, ActualNumOfMotors, (void))                                                          \
    X(void, JogNegative, (int32_t motor, int32_t speed, const KdxSink* target))                    \
    X(void, JogPositive, (int32_t motor, int32_t speed, const KdxSink* target))                    \
    X(void, FreeText, (char* text))                                                                \
    X(int32_t, OpenPortByName, (const char* device, int32_t baud))                                 \
    X(void, SetTrafficCallback, (const KdxSink* sink))                                             \
    X(char*, GetPortProblem, (int32_t * length))

/* The report sink's text when the open port's device goes away (an adapter pulled out, a far
 * end that hung up): written at every such loss, after the status report, so that the program
 * can open the port again when the device returns. */
#define KDX_REPORT_PORT_LOST "PORTLOST"

/* Time limits of WaitForChar and RunProgramAndWaitForFinish: seconds in fixed point with four
 * implied decimals (10000 is one second); 0 means no limit. */

#if defined(KDX_DRIVER_BUILD)
#define KDX_EXPORT __attribute__((visibility("default")))
#else
#define KDX_EXPORT
#endif
#define KDX_DECLARE_OPERATION(ret, name, params) KDX_EXPORT ret name params;
KDX_DRIVER_OPERATIONS(KDX_DECLARE_OPERATION)
#undef KDX_DECLARE_OPERATION

#ifdef __cplusplus
}
#endif

#endif
