#include "QuickProgress.h"

#include <QLabel>
#include <QProgressBar>
#include <QPushButton>

using namespace std::chrono_literals;

const QString room = QStringLiteral("room");
const QString progressTitle = QStringLiteral("Calibration Progress");
const QString poll = QStringLiteral("read status active");

QuickProgress::QuickProgress(CalibrationBench *bench, bool pauses, QWidget *parent)
    : CalibrationProgressDlg(&bench->host, parent, &bench->versions, pauses)
{
    setPollInterval(1ms);
    setStallInterval(30ms);
    setCountdownTick(1ms);
}

QString QuickProgress::text(const char *label) const
{
    return findChild<QLabel *>(QLatin1String(label))->text();
}

bool QuickProgress::shows(const char *name) const
{
    return findChild<QWidget *>(QLatin1String(name))->isVisible();
}

bool QuickProgress::hides(const char *name) const
{
    return findChild<QWidget *>(QLatin1String(name))->isHidden();
}

int QuickProgress::overall() const
{
    return findChild<QProgressBar *>(QStringLiteral("progressBar_overall"))->value();
}

QPushButton *QuickProgress::cancel() const
{
    return findChild<QPushButton *>(QStringLiteral("pb_cancel"));
}

void endAfter(CalibrationBench *bench, int polls, const QByteArray &answer)
{
    auto count = std::make_shared<int>(0);
    auto started = std::make_shared<bool>(false);
    bench->host.onCall([=](const QString &line) {
        if (line.startsWith(QLatin1String("command velmar2 cal ")) &&
            line.endsWith(QLatin1String(" start"))) {
            bench->set("status active", "cal");
            *started = true;
        } else if (*started && line == poll && ++*count > polls) {
            bench->set("status active", answer);
        }
    });
}
