#include "DialogFixture.h"

#include "TestRegistry.h"

#include <QDoubleSpinBox>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QTabWidget>
#include <QtTest>

namespace
{

/// A dialog whose host destroys its own window, and the dialog with it, inside a call.
struct Doomed {
    RecordingHost host;
    BackendVersions versions{0, 0, 0, 1, 24, -1, QString()};
    QPointer<QWidget> window = new QWidget;
    QPointer<RoomAdjustmentDlg2g> dialog =
        new RoomAdjustmentDlg2g(&host, window, &versions, QStringLiteral("v2.0.14"));
    ModalAnswer answer;
    int callsLeft = 0; ///< until the end; 0 while it is not wanted

    Doomed()
    {
        window->show();
        host.setAnswer("tracking extra_rotation", "0 1 0 -1 0 0 0 0 1");
        host.setAnswer("tracking extra_translation", "10 20 30");
        host.setAnswer("tracking reference", "body b01");
        host.setAnswer("roomcal number_of_available_coordinate_types", "2");
        host.setAnswer("roomcal available_coordinate_type t01", "normal");
        host.setAnswer("roomcal available_coordinate_type t02", "powerwall");
        host.onCall([this](const QString &) { count(); });
        host.onSubscription([this](const QString &) { count(); });
    }
    ~Doomed() { delete window; }

    void count()
    {
        if (callsLeft > 0 && --callsLeft == 0) {
            delete window;
            host.clear();
        }
    }

    void click(const char *button) const
    {
        auto *found = dialog->findChild<QPushButton *>(QString::fromLatin1(button));
        QVERIFY2(found != nullptr, button);
        QTest::mouseClick(found, Qt::LeftButton);
    }

    void editAndClick(const char *button) const
    {
        dialog->findChild<QDoubleSpinBox *>("doubleSpinBox_x")->setValue(5.0);
        click(button);
    }

    void goToFine() const { dialog->findChild<QTabWidget *>("tabWidget")->setCurrentIndex(1); }

    /// Opens the dialog, and runs `inside` in it unless it has come to its end by then.
    void open(const std::function<void()> &inside)
    {
        answer.then([this, inside](QWidget *) {
            inside();
            if (dialog)
                dialog->done(QDialog::Rejected);
        });
        dialog->update_and_exec();
    }
};

using Way = void (*)(Doomed &doomed, int k);

void opening(Doomed &doomed, int k)
{
    doomed.callsLeft = k;
    doomed.open([&] { doomed.callsLeft = 0; });
}

/// Opens the dialog and counts the calls of what is done in it.
void inside(Doomed &doomed, int k, const std::function<void()> &act)
{
    doomed.open([&] {
        doomed.goToFine();
        doomed.callsLeft = k;
        act();
        doomed.callsLeft = 0;
    });
}

void applying(Doomed &doomed, int k)
{
    inside(doomed, k, [&] { doomed.editAndClick("btn_apply"); });
}

void accepting(Doomed &doomed, int k)
{
    inside(doomed, k, [&] { doomed.editAndClick("btn_ok"); });
}

void cancelling(Doomed &doomed, int k)
{
    inside(doomed, k, [&] {
        doomed.host.setAnswer("tracking extra_scaling", "1.5");
        doomed.answer.thenPress(QMessageBox::Yes);
        doomed.click("btn_cancel");
    });
}

void closing(Doomed &doomed, int k)
{
    inside(doomed, k, [&] { doomed.dialog->close(); });
}

void escaping(Doomed &doomed, int k)
{
    inside(doomed, k, [&] { QTest::keyClick(doomed.dialog.data(), Qt::Key_Escape); });
}

void hidingAndShowing(Doomed &doomed, int k)
{
    inside(doomed, k, [&] {
        doomed.dialog->hide();
        if (doomed.dialog)
            doomed.dialog->show();
    });
}

void readingAgain(Doomed &doomed, int k)
{
    inside(doomed, k, [&] { doomed.dialog->onUpdateRaDataAndControls(); });
}

/// Opens the window behind a button, and closes it.
void visiting(Doomed &doomed, int k, const char *button)
{
    inside(doomed, k, [&] {
        doomed.answer.then([](QWidget *window) { window->close(); });
        doomed.click(button);
    });
}

void matching(Doomed &doomed, int k)
{
    visiting(doomed, k, "w_bodyMatchingButton");
}

void usingTheAngleTool(Doomed &doomed, int k)
{
    visiting(doomed, k, "pushButton_att");
}

} // namespace

Q_DECLARE_METATYPE(Way)

/// A host may end everything in the middle of any call.
class DestructionTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldEndQuietlyInEveryCall_data()
    {
        QTest::addColumn<Way>("way");
        QTest::addColumn<int>("calls");
        const int subscriptions = subscribeCalls().size();
        QTest::newRow("opening") << Way(opening) << openingCalls(1, 24).size() + subscriptions;
        QTest::newRow("Apply") << Way(applying) << 11;
        QTest::newRow("OK") << Way(accepting) << 10 + subscriptions;
        QTest::newRow("Cancel") << Way(cancelling) << 8 + subscriptions;
        QTest::newRow("close button") << Way(closing) << 5 + subscriptions;
        QTest::newRow("Escape") << Way(escaping) << 5 + subscriptions;
        QTest::newRow("hiding and showing") << Way(hidingAndShowing) << 2 * subscriptions;
        QTest::newRow("reading again") << Way(readingAgain) << 7;
        QTest::newRow("reference points") << Way(matching) << 28;
        QTest::newRow("angle tool") << Way(usingTheAngleTool) << 15;
    }

    void shouldEndQuietlyInEveryCall()
    {
        QFETCH(Way, way);
        QFETCH(int, calls);
        for (int k = 1; k <= calls + 1; ++k) {
            // GIVEN
            Doomed doomed;
            // WHEN
            way(doomed, k);
            // THEN
            const QByteArray place = "call " + QByteArray::number(k);
            QVERIFY2(doomed.dialog.isNull() == (k <= calls), place.constData());
            QVERIFY2(doomed.answer.unexpected().isEmpty(), place.constData());
            QVERIFY2(doomed.host.subscriptions().isEmpty(), place.constData());
            // Nobody would be there to stop it.
            if (k <= calls)
                QVERIFY2(!doomed.host.calls().contains("command velmar2 tracking start"), place.constData());
        }
    }
};

ROOM_TEST_CLASS(DestructionTest)
#include "DestructionTest.moc"
