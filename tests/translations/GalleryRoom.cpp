#include "GalleryRoom.h"

#include "AbcMatchingDialog.h"
#include "AdjustToToolDlg.h"
#include "CalibrationProgressDlg.h"
#include "InterfaceVersion.h"
#include "ModalAnswer.h"
#include "Requester.h"
#include "RoomAdjustmentDlg2g.h"

#include <QPushButton>
#include <QTabWidget>
#include <QTableWidget>
#include <QtTest>

namespace
{

constexpr double measuringSeconds = 1.2;

/// Hands the records to the matching dialog, as the main dialog does.
class RecordsForMatching : public Requester
{
public:
    RecordsForMatching(BenchIOManager &channel, AbcMatchingDialog &dialog)
        : m_channel(channel)
        , m_dialog(dialog)
    {
        for (const char *kind : {"ts", "6dmt2"})
            m_channel.addRequester(kind, this);
    }
    ~RecordsForMatching()
    {
        for (const char *kind : {"ts", "6dmt2"})
            m_channel.removeRequester(kind, this);
    }
    Q_DISABLE_COPY(RecordsForMatching)

    int dataReceived(const char *kind, const char *record) override
    {
        return m_dialog.dataReceived(kind, record);
    }
    void requesterNotice() override {}

private:
    BenchIOManager &m_channel;
    AbcMatchingDialog &m_dialog;
};

void click(QWidget &window, const char *button)
{
    window.findChild<QPushButton *>(QLatin1String(button))->click();
}

} // namespace

void settle()
{
    QCoreApplication::sendPostedEvents();
    QTest::qWait(20);
}

GalleryRoom::GalleryRoom()
{
    setVersion(1, 24);
    tell({"sim clock stepped"});
    QCursor::setPos(0, 0); // what lies under the pointer is drawn in another shade
    m_window.show();
}

void GalleryRoom::tell(const QStringList &lines)
{
    for (const QString &line : lines) {
        const std::string text = line.toStdString();
        const std::string answer =
            line.startsWith(QLatin1String("sim ")) ? m_channel.control(text) : m_link.ask(text).text;
        QVERIFY2(answer == "sim ok" || answer == "velmar2 ok",
                 qPrintable(line + ": " + QString::fromStdString(answer)));
    }
}

void GalleryRoom::setVersion(int major, int minor)
{
    m_versions = interfaceVersion(major, minor);
}

bool GalleryRoom::run(const std::function<void()> &open, const Look &look, const QList<Look> &then)
{
    bool seen = false;
    ModalAnswer answer;
    answer.then([&seen, &look](QWidget *window) {
        settle();
        look(*window);
        seen = true;
        static_cast<QDialog *>(window)->done(QDialog::Rejected);
    });
    for (const Look &next : then)
        answer.then([next](QWidget *window) { next(*window); });
    open();
    return seen && answer.isDone() && answer.unexpected().isEmpty();
}

bool GalleryRoom::openMain(int tab, const Look &look, const QList<Look> &then)
{
    RoomAdjustmentDlg2g dialog(&m_channel, &m_window, &m_versions, QStringLiteral("v2.0.14"));
    const auto lookAtTab = [tab, &look](QWidget &window) {
        window.findChild<QTabWidget *>(QStringLiteral("tabWidget"))->setCurrentIndex(tab);
        settle();
        look(window);
    };
    return run([&dialog] { dialog.update_and_exec(); }, lookAtTab, then);
}

bool GalleryRoom::openMatching(const Look &look, const QList<Look> &then)
{
    AbcMatchingDialog dialog(&m_channel, &m_versions, &m_window);
    const RecordsForMatching records(m_channel, dialog);
    tell({"velmar2 tracking start"});
    return run([&dialog] { dialog.update_and_exec(); }, look, then);
}

bool GalleryRoom::openAngleTool(const Look &look, const QList<Look> &then)
{
    AdjustToToolDlg dialog(&m_channel, &m_versions, &m_window);
    return run([&dialog] { dialog.openAndExec(); }, look, then);
}

bool GalleryRoom::openProgress(const Look &look)
{
    CalibrationProgressDlg dialog(&m_channel, &m_window, &m_versions, false);
    const auto lookAtProgress = [&dialog, &look](QWidget &window) {
        dialog.update_cal_status();
        settle();
        look(window);
        dialog.reject();
    };
    return run([&dialog] { dialog.start(QStringLiteral("room")); }, lookAtProgress, {});
}

void GalleryRoom::startMeasuring(QWidget &matching, int point)
{
    tell({QStringLiteral("sim tool 1 touch %1").arg(point)});
    advance(0.1);
    QMetaObject::invokeMethod(&matching, "showTrackingStatus");
    click(matching, "w_measureButton");
}

void GalleryRoom::measure(QWidget &matching, const QStringList &points)
{
    auto *table = matching.findChild<QTableWidget *>(QStringLiteral("tableWidget_referencePoints"));
    for (int i = 0; i < points.size(); ++i) {
        tell({QStringLiteral("sim object point %1 %2").arg(i + 1).arg(points.at(i))});
        click(matching, "pushButton_addRefPoint");
        for (int column = 0; column < 3; ++column)
            table->item(i, column)->setText(points.at(i).section(QLatin1Char(' '), column, column));
    }
    for (int i = 0; i < points.size(); ++i) {
        startMeasuring(matching, i + 1);
        advance(measuringSeconds);
    }
    QMetaObject::invokeMethod(&matching, "showTrackingStatus"); // otherwise soon by itself
}
