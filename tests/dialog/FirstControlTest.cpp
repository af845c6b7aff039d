#include "FirstControl.h"

#include "TestRegistry.h"

#include <QLineEdit>
#include <QtTest>

namespace
{

/// Two pages of a window, one behind the other in the order of the Tab key.
struct Pages {
    QWidget window;
    QWidget *page = new QWidget(&window);
    QLineEdit *first = new QLineEdit(page);
    QLineEdit *second = new QLineEdit(page);
    QWidget *other = new QWidget(&window);
    QLineEdit *elsewhere = new QLineEdit(other);
};

} // namespace

class FirstControlTest : public QObject
{
    Q_OBJECT
private slots:
    void shouldFollowTheOrderOfTheTabKey()
    {
        Pages pages;
        QCOMPARE(firstControlOf(pages.page), static_cast<QWidget *>(pages.first));
        QWidget::setTabOrder(pages.second, pages.first);
        QCOMPARE(firstControlOf(pages.page), static_cast<QWidget *>(pages.second));
    }

    void shouldPassOverWhatTakesNoKeys()
    {
        Pages pages;
        pages.first->setEnabled(false);
        QCOMPARE(firstControlOf(pages.page), static_cast<QWidget *>(pages.second));
        pages.first->setEnabled(true);
        pages.first->hide();
        QCOMPARE(firstControlOf(pages.page), static_cast<QWidget *>(pages.second));
        pages.first->show();
        pages.first->setFocusPolicy(Qt::ClickFocus);
        QCOMPARE(firstControlOf(pages.page), static_cast<QWidget *>(pages.second));
    }

    void shouldStayInsideThePage()
    {
        Pages pages;
        pages.first->setEnabled(false);
        pages.second->setEnabled(false);
        QVERIFY(firstControlOf(pages.page) == nullptr);
        QCOMPARE(firstControlOf(pages.other), static_cast<QWidget *>(pages.elsewhere));
    }
};

ROOM_TEST_CLASS(FirstControlTest)
#include "FirstControlTest.moc"
