#include "WindowGallery.h"

#include "AbcMatchingDialog.h"
#include "AdjustToToolDlg.h"
#include "CalibrationProgressDlg.h"
#include "CountdownDlg.h"
#include "HelpDialog.h"
#include "MatchingHelp.h"
#include "ModalAnswer.h"
#include "RoomAdjustmentDlg2g.h"

#include <QPushButton>
#include <QTabWidget>
#include <QtTest>

namespace
{

using Look = std::function<void(QWidget &)>;

/// Lets the layouts and the pending changes of language settle.
void settle()
{
    QCoreApplication::sendPostedEvents();
    QTest::qWait(20);
}

/// Looks at the window while it is modal, and closes it.
void lookAndClose(ModalAnswer &answer, bool &seen, const Look &look)
{
    answer.then([&seen, look](QWidget *window) {
        settle();
        look(*window);
        seen = true;
        static_cast<QDialog *>(window)->done(QDialog::Rejected);
    });
}

bool visitPlain(QDialog &dialog, const Look &look)
{
    dialog.show();
    if (!QTest::qWaitForWindowExposed(&dialog))
        return false;
    settle();
    look(dialog);
    return true;
}

} // namespace

QStringList WindowGallery::names()
{
    return {"coarse",     "fine",     "matching",  "matching-help",
            "angle-tool", "progress", "countdown", "view-help"};
}

WindowGallery::WindowGallery()
{
    m_versions.interfaceMajor = 1;
    m_versions.interfaceMinor = 24;
    m_versions.interfacePatch = -1;
    m_link.ask("sim clock stepped");
    m_window.show();
}

bool WindowGallery::visit(const QString &name, const Look &look)
{
    if (name == QLatin1String("coarse") || name == QLatin1String("fine"))
        return visitMain(name == QLatin1String("fine") ? 1 : 0, look);
    if (name == QLatin1String("matching"))
        return visitMatching(look);
    if (name == QLatin1String("angle-tool"))
        return visitAngleTool(look);
    if (name == QLatin1String("progress"))
        return visitProgress(look);
    if (name == QLatin1String("countdown")) {
        CountdownDlg dialog(&m_window);
        dialog.setCountdown(QString(), 5);
        return visitPlain(dialog, look);
    }
    if (name == QLatin1String("view-help")) {
        HelpDialog dialog(&m_window);
        return visitPlain(dialog, look);
    }
    MatchingHelp dialog(&m_window);
    return visitPlain(dialog, look);
}

bool WindowGallery::visitMain(int tab, const Look &look)
{
    RoomAdjustmentDlg2g dialog(&m_channel, &m_window, &m_versions, QStringLiteral("v2.0.14"));
    bool seen = false;
    ModalAnswer answer;
    lookAndClose(answer, seen, [tab, look](QWidget &window) {
        window.findChild<QTabWidget *>(QStringLiteral("tabWidget"))->setCurrentIndex(tab);
        settle();
        look(window);
    });
    dialog.update_and_exec();
    return seen;
}

bool WindowGallery::visitMatching(const Look &look)
{
    AbcMatchingDialog dialog(&m_channel, &m_versions, &m_window);
    bool seen = false;
    ModalAnswer answer;
    lookAndClose(answer, seen, [look](QWidget &window) {
        window.findChild<QPushButton *>(QStringLiteral("pushButton_addRefPoint"))->click();
        look(window);
    });
    dialog.update_and_exec();
    return seen;
}

bool WindowGallery::visitAngleTool(const Look &look)
{
    AdjustToToolDlg dialog(&m_channel, &m_versions, &m_window);
    bool seen = false;
    ModalAnswer answer;
    lookAndClose(answer, seen, look);
    dialog.openAndExec();
    return seen;
}

bool WindowGallery::visitProgress(const Look &look)
{
    CalibrationProgressDlg dialog(&m_channel, &m_window, &m_versions, false);
    bool seen = false;
    ModalAnswer answer;
    answer.then([&seen, look](QWidget *window) {
        auto *progress = static_cast<CalibrationProgressDlg *>(window);
        progress->update_cal_status();
        progress->show_warning();
        settle();
        look(*window);
        seen = true;
        progress->reject();
    });
    dialog.start(QStringLiteral("room"));
    return seen;
}
