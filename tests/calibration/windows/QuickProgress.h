#pragma once

#include "CalibrationBench.h"
#include "CalibrationProgressDlg.h"

class QPushButton;

/// The kind of calibration that the tests run.
extern const QString room;
extern const QString progressTitle;
/// The first call of every poll.
extern const QString poll;

/// A progress dialog in shortened time: polls come every millisecond, warnings after thirty.
class QuickProgress : public CalibrationProgressDlg
{
public:
    explicit QuickProgress(CalibrationBench *bench, bool pauses = false, QWidget *parent = nullptr);

    QString text(const char *label) const;
    bool shows(const char *name) const;
    bool hides(const char *name) const;
    int overall() const;
    QPushButton *cancel() const;
};

/// Sets "cal" when the calibration starts, and another answer after some polls.
void endAfter(CalibrationBench *bench, int polls, const QByteArray &answer);
