#pragma once

#include <QString>

#include <string>

class BenchIOManager;

/// Runs the lines of a bench script, one by one.
///
///     # a remark, also an empty line
///     sim ...                          a control line or a fault; fails when it is refused
///     velmar2 ...                      a request, past the faults and the log of calls
///     expect LINE                      fails unless LINE is the answer to the last request or question
///     expect-near tool N X Y Z TOL     fails unless the mean of the next 60 reported tips is that near (mm)
///     wait SECONDS                     lets the time pass, on whatever clock the controller runs
///     frames COUNT                     the same in frames of 1/60 s
///     log save FILE                    writes the call log
///
/// While time passes on the real clock the event loop runs.
class ScriptRunner
{
public:
    /// The channel must outlive the runner.
    explicit ScriptRunner(BenchIOManager &channel);

    /// False when the line fails; error() says why.
    bool run(const QString &line);

    /// Runs the lines of a file up to the first that fails; its number is part of the error.
    bool runFile(const QString &file);

    QString error() const { return m_error; }

private:
    bool request(const QString &line);
    bool control(const QString &line);
    bool expect(const QString &answer);
    bool expectNear(const QString &line);
    bool pass(double seconds);
    bool saveLog(const QString &file);
    bool fail(const QString &error);

    BenchIOManager &m_channel;
    std::string m_lastAnswer;
    QString m_error;
};
