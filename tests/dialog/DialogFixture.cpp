#include "DialogFixture.h"

#include <QApplication>
#include <QDoubleSpinBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QtTest>

const char *const identityRotation =
    "1.00000000 0.00000000 0.00000000 0.00000000 1.00000000 0.00000000 0.00000000 0.00000000 1.00000000";

DialogFixture::DialogFixture(int major, int minor, int patch)
    : versions{0, 0, 0, major, minor, patch, QString()}
    , dialog(&host, &window, &versions, QStringLiteral("v2.0.14"))
{
    window.show();
}

int DialogFixture::open(const std::function<void()> &inside)
{
    bool isThrough = false;
    answer.then([this, inside, &isThrough](QWidget *opened) {
        if (opened == &dialog) {
            inside();
            isThrough = true;
        }
        if (dialog.isVisible())
            dialog.done(QDialog::Rejected);
    });
    const int result = dialog.update_and_exec();
    if (!isThrough)
        QTest::qFail("The dialog did not open.", __FILE__, __LINE__);
    return result;
}

void DialogFixture::click(const char *button)
{
    auto *found = child<QPushButton>(button);
    QVERIFY2(found != nullptr, button);
    QTest::mouseClick(found, Qt::LeftButton);
}

void DialogFixture::type(const char *spinBox, const QString &text)
{
    auto *box = child<QDoubleSpinBox>(spinBox);
    QVERIFY2(box != nullptr, spinBox);
    box->setFocus();
    box->selectAll();
    QTest::keyClicks(box, text);
    QTest::keyClick(box, Qt::Key_Return);
}

void DialogFixture::selectTab(int index)
{
    child<QTabWidget>("tabWidget")->setCurrentIndex(index);
}

QStringList tableCalls()
{
    return {"read camera number_of_cameras", "read tracking room c01", "read tracking room c02",
            "read tracking room c03", "read tracking room c04"};
}

QStringList subscribeCalls()
{
    return {"subscribe ts", "subscribe 6dmt2", "subscribe 6dmt", "subscribe 6df2", "subscribe 6df"};
}

QStringList unsubscribeCalls()
{
    return {"unsubscribe ts", "unsubscribe 6dmt2", "unsubscribe 6dmt", "unsubscribe 6df2", "unsubscribe 6df"};
}

QStringList writeCalls(const QString &rotation, const QString &translation, const QString &scaling)
{
    return {"write tracking extra_rotation " + rotation, "write tracking extra_translation " + translation,
            "write tracking extra_scaling " + scaling};
}

QStringList openingCalls(int major, int minor)
{
    const int version = 100 * major + minor;
    QStringList calls;
    if (version >= 17)
        calls << "read tracking available";
    calls << "read camera number_of_cameras";
    if (version >= 118)
        calls << "read tracking has_room c01"
              << "read tracking has_room c02";
    else
        calls << "read tracking room c01"
              << "read tracking room c02"
              << "read tracking room c03"
              << "read tracking room c04";
    if (version >= 9)
        calls << tableCalls() << "read config is_changeable";
    if (version >= 16) {
        calls << "read tracking extra_rotation"
              << "read tracking extra_translation"
              << "read tracking extra_scaling"
              << "read measurementtool available"
              << "read tracking extra_scaling";
        if (version >= 109)
            calls << "read roomcal last_coordinate_type";
        calls << "read roomcal coordinate_type";
    }
    calls << "command velmar2 tracking start";
    return calls;
}
