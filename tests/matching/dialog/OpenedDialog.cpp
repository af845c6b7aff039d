#include "OpenedDialog.h"
#include "InterfaceVersion.h"
#include "MatchingReport.h"

#include <QApplication>
#include <QLabel>
#include <QPushButton>
#include <QTableWidget>
#include <QTextEdit>
#include <QTimer>
#include <QtTest>

OpenedDialog::OpenedDialog()
{
    m_versions = interfaceVersion(1, 23);
    m_dialog = std::make_unique<AbcMatchingDialog>(&m_host, &m_versions);
}

void OpenedDialog::run(const std::function<void()> &script)
{
    const auto play = [this, &script] {
        QApplication::setActiveWindow(m_dialog.get()); // without waiting for the X server to say so
        script();
        if (m_dialog)
            m_dialog->close();
    };
    m_answers = std::make_unique<ModalAnswer>();
    // Not inside the step itself: its timer would not go on in the event loop of a further window.
    m_answers->then([play](QWidget *window) { QTimer::singleShot(0, window, play); });
    m_dialog->update_and_exec();
    QVERIFY(m_answers->isDone());
    QCOMPARE(m_answers->unexpected(), QStringList());
}

void OpenedDialog::press(QWidget *widget, Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    QApplication::setActiveWindow(m_dialog.get());
    QTest::keyClick(widget, key, modifiers);
}

void OpenedDialog::click(const char *button)
{
    QTest::mouseClick(find<QAbstractButton>(button), Qt::LeftButton);
}

bool OpenedDialog::isEnabled(const char *name)
{
    return find<QWidget>(name)->isEnabled();
}

QString OpenedDialog::report()
{
    return find<QTextEdit>("w_trafoText")->toPlainText();
}

QString OpenedDialog::notice()
{
    QStringList lines = find<QLabel>("label_notice")->text().split(QLatin1Char('\n'));
    lines.removeAll(MatchingReport::noData());
    return lines.join(QLatin1Char('\n'));
}

QString OpenedDialog::cell(const char *table, int row, int column)
{
    return find<QTableWidget>(table)->item(row, column)->text();
}

int OpenedDialog::rows(const char *table)
{
    return find<QTableWidget>(table)->rowCount();
}

QByteArray OpenedDialog::toolRecord(const MatchingPoint &tip, double quality, const QByteArray &flags)
{
    QByteArray position;
    for (const double value : tip)
        position += QByteArray::number(value, 'f', 6) + ' ';
    return "6dmt2 1 [0 " + QByteArray::number(quality, 'f', 3) + " 4 2.500][" + position +
           "][1 0 0 0 1 0 0 0 1][" + flags + "][0 0 0 0 0 0]";
}

void OpenedDialog::frame(double time, bool measuring, const MatchingPoint &tip, double quality)
{
    const QByteArray stamp = "ts " + QByteArray::number(time, 'f', 6);
    m_dialog->dataReceived("ts", stamp.constData());
    m_dialog->dataReceived("6dmt2", toolRecord(tip, quality, measuring ? "1 0 0 0" : "0 0 0 0").constData());
}

void OpenedDialog::measure(const MatchingPoint &tip)
{
    for (const double time : {0.0, 0.5, 1.0})
        frame(m_time + time, true, tip);
    frame(m_time + 1.1, false, tip);
    m_time += 10.0;
}

void OpenedDialog::addReference(const MatchingPoint &point)
{
    click("pushButton_addRefPoint");
    auto *table = find<QTableWidget>("tableWidget_referencePoints");
    for (int column = 0; column < 3; ++column)
        table->item(table->rowCount() - 1, column)
            ->setText(QString::number(point[static_cast<std::size_t>(column)], 'f', 2));
}
