#pragma once

#include <QCoreApplication>
#include <QString>

class CalibrationRun;
class QLabel;

/// The sentences of the calibration progress that come and go: what is being done, and the warning that
/// nothing moves. While one is shown the other is hidden; neither moves anything else.
class ProgressSentences
{
    Q_DECLARE_TR_FUNCTIONS(CalibrationProgressDlg)

public:
    /// The labels must outlive this.
    ProgressSentences(QLabel *info, QLabel *warning);

    void clearInfo();
    [[nodiscard]] bool hasInfo() const;

    /// The controller has all measurements.
    void showCalculating();
    void showWarning();
    void clearWarning();
    void hideWarning();

    /// Whether each says something: to be asked before a form takes back its own texts.
    struct Shown {
        bool calculating = false;
        bool warning = false;
    };
    [[nodiscard]] Shown shown() const;
    /// Says the same again in the present language.
    void renew(const Shown &shown);

    /// What is told of a calibration that is about to begin: the controller's description, how many steps it
    /// has, and whether it can be interrupted.
    [[nodiscard]] static QString information(const CalibrationRun &run, const QString &kind);

private:
    static QString calculating();
    static QString warning();

    QLabel *m_info;
    QLabel *m_warning;
};
