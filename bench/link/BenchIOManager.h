#pragma once

#include "CallLog.h"
#include "FaultPlan.h"
#include "IOManager.h"
#include "RecordFaults.h"

#include <QObject>
#include <QString>

#include <string>
#include <utility>
#include <vector>

class ControllerLink;
class Requester;
struct FaultedAnswer;

/// The host's command channel on top of a controller link, with a log of every call and with faults on
/// request.
///
/// Buffers are filled with at most 199 characters and a NUL. After a failed operation an output number is
/// left as it was, and a text buffer holds the error line. sendCommand gives 0 for "velmar2 ok" and for
/// "velmar2 get ...", 1 for an error answer, 2 for no answer. Formats are filled in with a decimal point
/// whatever the locale. Records reach the subscribers when the link hands them out, never from inside a call,
/// unless a delay with running events was asked for.
class BenchIOManager : public QObject, public IOManager
{
    Q_OBJECT

public:
    /// The link must outlive the channel.
    explicit BenchIOManager(ControllerLink &link, QObject *parent = nullptr);
    ~BenchIOManager() override;

    /// Runs a control line: faults and "sim record blank-kind on/off" here, "sim object save FILE" by asking
    /// the controller for the points, all others in the controller. The answer begins with "sim ".
    std::string control(const std::string &line);

    CallLog &log() { return m_log; }
    const CallLog &log() const { return m_log; }
    FaultPlan &faults() { return m_faults; }
    ControllerLink &link() { return m_link; }

    /// The number of subscriptions, for checks of their balance.
    std::size_t subscriptionCount() const { return m_subscriptions.size(); }

    /// Whether a call is being answered at this moment.
    bool isBusy() const { return m_depth > 0; }

    void reserved1() override {}
    void reserved2() override {}
    void reserved3() override {}
    int sendCommand(char *answer, const char *format, ...) override HOST_PRINTF_FORMAT(3, 4);
    void reserved5() override {}
    int getParameter(char *value, const char *format, ...) override HOST_PRINTF_FORMAT(3, 4);
    int getParameterInt(int *value, const char *format, ...) override HOST_PRINTF_FORMAT(3, 4);
    int getParameterDouble(double *value, const char *format, ...) override HOST_PRINTF_FORMAT(3, 4);
    int getParameterBool(bool *value, const char *format, ...) override HOST_PRINTF_FORMAT(3, 4);
    int getParameterDoubles(double *values, int count, const char *format, ...) override
        HOST_PRINTF_FORMAT(4, 5);
    void reserved11() override {}
    int setParameter(const char *format, ...) override HOST_PRINTF_FORMAT(2, 3);
    void addRequester(const char *kind, Requester *requester) override;
    void removeRequester(const char *kind, Requester *requester) override;
    void reserved15() override {}
    void releaseRequester(Requester *requester) override;
    void reportError(const char *category, const char *backend, int level, const char *message) override;

signals:
    /// After each call, and after each event that the log holds.
    void called(const CallRecord &record);

    void errorReported(const QString &category, const QString &backend, int level, const QString &message);

private:
    struct Outcome {
        int result = 0;
        std::string text;      ///< the value or the answer line; after a failure the error line
        bool isForced = false; ///< whether a fault decided the result
    };

    using Subscription = std::pair<std::string, Requester *>;

    Outcome exchange(const std::string &line, const std::string &logged);
    Outcome read(const std::string &name);
    static int resultOf(const FaultedAnswer &answer);
    int finish(const char *operation, const std::string &text, const Outcome &outcome);
    void write(const char *operation, const std::string &text, int result, const std::string &answer);
    void updateSubscription();
    bool isSubscribed(const Subscription &subscription) const;
    void deliver(const std::vector<SimRecord> &records);
    void deliver(const SimRecord &record);

    ControllerLink &m_link;
    CallLog m_log;
    FaultPlan m_faults;
    std::vector<Subscription> m_subscriptions;
    bool m_blankKind = false;
    int m_depth = 0;
};
