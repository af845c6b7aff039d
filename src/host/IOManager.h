#pragma once

#include <QMetaType>

class Requester;

// The format is argument FORMAT and its first value argument FIRST, `this` counting as the first argument.
#if defined(__GNUC__)
#define HOST_PRINTF_FORMAT(FORMAT, FIRST) __attribute__((format(printf, FORMAT, FIRST)))
#else
#define HOST_PRINTF_FORMAT(FORMAT, FIRST)
#endif

/// The host's command channel to the tracking controller.
///
/// Every operation with a result returns 0 on success and any other value on failure. The host formats: a
/// caller passes a printf format and its values (`int` for %d, `double` for %f, `const char *` for %s). All
/// texts are 8-bit and NUL-terminated. Buffers belong to the caller and must hold more than 200 characters.
/// All operations are synchronous and are called on the GUI thread.
///
/// Binary contract: the order of the virtual operations is fixed, reserved places included, and no destructor
/// takes a place among them.
class IOManager
{
public:
    virtual void reserved1() = 0;
    virtual void reserved2() = 0;
    virtual void reserved3() = 0;

    /// Sends a raw command; the controller's answer line goes into `answer`.
    virtual int sendCommand(char *answer, const char *format, ...) HOST_PRINTF_FORMAT(3, 4) = 0;

    virtual void reserved5() = 0;

    /// Reads a parameter as text into `value`.
    virtual int getParameter(char *value, const char *format, ...) HOST_PRINTF_FORMAT(3, 4) = 0;

    virtual int getParameterInt(int *value, const char *format, ...) HOST_PRINTF_FORMAT(3, 4) = 0;
    virtual int getParameterDouble(double *value, const char *format, ...) HOST_PRINTF_FORMAT(3, 4) = 0;
    virtual int getParameterBool(bool *value, const char *format, ...) HOST_PRINTF_FORMAT(3, 4) = 0;

    /// Reads `count` numbers into the array `values`.
    virtual int getParameterDoubles(double *values, int count, const char *format, ...)
        HOST_PRINTF_FORMAT(4, 5) = 0;

    virtual void reserved11() = 0;

    /// Writes a parameter; the format holds its name and its value or values.
    virtual int setParameter(const char *format, ...) HOST_PRINTF_FORMAT(2, 3) = 0;

    /// Subscribes the requester to the records of a kind.
    virtual void addRequester(const char *kind, Requester *requester) = 0;

    /// Ends the subscription of the requester to a kind.
    virtual void removeRequester(const char *kind, Requester *requester) = 0;

    virtual void reserved15() = 0;

    /// Ends every subscription of the requester.
    virtual void releaseRequester(Requester *requester) = 0;

    /// Shows or logs a finished message.
    virtual void reportError(const char *category, const char *backend, int level, const char *message) = 0;

protected:
    ~IOManager() = default;
};

Q_DECLARE_METATYPE(IOManager *)
