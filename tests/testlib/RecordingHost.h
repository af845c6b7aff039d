#pragma once

#include "IOManager.h"

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QPair>
#include <QString>
#include <QStringList>

#include <functional>
#include <optional>
#include <string>

/// A host whose answers are scripted and that writes down every call.
///
/// It begins as the controller of a room with four cameras, at rest, with a neutral extra transformation. A
/// write replaces the answer of the parameter that it names (its first two words), and the tracking commands
/// change "status active", so that what was written can be read back. Each call is noted as one line:
///
///     read TEXT        a parameter read, whatever its type
///     command TEXT     a raw command
///     write TEXT       a parameter write
///     subscribe KIND, unsubscribe KIND, release
///     report TEXT      an error report or note
///
/// The calls that have a result (read, command, write) are counted from 1 for failCall() and failFrom().
class RecordingHost final : public IOManager
{
public:
    RecordingHost();
    virtual ~RecordingHost() = default;

    /// The answer of a parameter, or of a raw command when `text` is the whole command.
    void setAnswer(const QString &text, const QByteArray &answer);
    QByteArray answer(const QString &text) const;
    /// Every call whose text begins so fails.
    void failText(const QString &beginning);
    void succeedText(const QString &beginning);
    /// The k-th call fails, once; 0 for none.
    void failCall(int k);
    /// Every call from the k-th on fails; 0 for none.
    void failFrom(int k);
    /// What a failed call returns, 1 at first.
    void setFailureCode(int code) { m_failureCode = code; }
    /// Runs inside each call that has a result, before it is answered, with the call's line.
    void onCall(std::function<void(const QString &)> hook) { m_hook = std::move(hook); }

    /// Runs inside each call that a requester comes, goes or is released with, before that is done, with the
    /// call's line.
    void onSubscription(std::function<void(const QString &)> hook) { m_subscriptionHook = std::move(hook); }

    const QStringList &calls() const { return m_calls; }
    /// The lines that begin with one of these words.
    QStringList callsOf(const QStringList &operations) const;
    QStringList reports() const;
    /// The unformatted texts of the calls that have a result, in order.
    const QStringList &formats() const { return m_formats; }
    /// How many calls with a result were made.
    int count() const { return m_count; }
    /// Forgets the noted calls and begins to count anew; the scripted answers and failures stay.
    void clear();

    /// The current subscriptions, in order.
    const QList<QPair<QByteArray, Requester *>> &subscriptions() const { return m_subscriptions; }
    /// Hands a record to every subscriber of its kind and returns the last result (0 without subscriber).
    int deliver(const QByteArray &kind, const QByteArray &record);

    void reserved1() override;
    void reserved2() override;
    void reserved3() override;
    int sendCommand(char *answer, const char *format, ...) override HOST_PRINTF_FORMAT(3, 4);
    void reserved5() override;
    int getParameter(char *value, const char *format, ...) override HOST_PRINTF_FORMAT(3, 4);
    int getParameterInt(int *value, const char *format, ...) override HOST_PRINTF_FORMAT(3, 4);
    int getParameterDouble(double *value, const char *format, ...) override HOST_PRINTF_FORMAT(3, 4);
    int getParameterBool(bool *value, const char *format, ...) override HOST_PRINTF_FORMAT(3, 4);
    int getParameterDoubles(double *values, int count, const char *format, ...) override
        HOST_PRINTF_FORMAT(4, 5);
    void reserved11() override;
    int setParameter(const char *format, ...) override HOST_PRINTF_FORMAT(2, 3);
    void addRequester(const char *kind, Requester *requester) override;
    void removeRequester(const char *kind, Requester *requester) override;
    void reserved15() override;
    void releaseRequester(Requester *requester) override;
    void reportError(const char *category, const char *backend, int level, const char *message) override;

private:
    int begin(const QString &operation, const char *format, const QString &text);
    void beginSubscription(const QString &line);
    /// The answer of a read; nothing when it fails.
    std::optional<QByteArray> read(const char *format, const std::string &formatted, int *result);
    bool mustFail(const QString &text) const;

    QHash<QString, QByteArray> m_answers;
    QStringList m_failing;
    QStringList m_calls;
    QStringList m_formats;
    QList<QPair<QByteArray, Requester *>> m_subscriptions;
    std::function<void(const QString &)> m_hook;
    std::function<void(const QString &)> m_subscriptionHook;
    int m_count = 0;
    int m_failCall = 0;
    int m_failFrom = 0;
    int m_failureCode = 1;
};
