#include "Traveller.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QDoubleSpinBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QTabWidget>
#include <QTableWidget>
#include <QtTest>

namespace
{

constexpr int fineTab = 1;
constexpr int mostLooks = 500;

/// A click as the windowing system delivers it.
void clickOn(QWidget *widget, const QPoint &place)
{
    QWidget *window = widget->window();
    QTest::mouseClick(window->windowHandle(), Qt::LeftButton, Qt::NoModifier, widget->mapTo(window, place));
}

} // namespace

Traveller::Traveller(ModuleHost &host)
    : m_host(host)
{
}

QWidget *Traveller::topWindow()
{
    return QApplication::activeModalWidget();
}

void Traveller::open(const std::function<void()> &inside)
{
    meet("RoomAdjustmentDlg2g", inside);
    m_stage = QStringLiteral("opening");
    if (QAction *action = m_host.action())
        action->trigger();
}

void Traveller::meet(const char *className, const std::function<void()> &inside)
{
    m_guide.plan(className, [this, inside](QWidget *window) {
        const QPointer<QWidget> guarded(window);
        inside();
        if (!guarded.isNull())
            leave(guarded);
    });
}

/// By the window's own button, else by the close button of its frame.
void Traveller::leave(QWidget *window)
{
    for (const char *name : {"btn_cancel", "w_closeButton", "pushButton_exit"}) {
        if (window->isVisible() && topWindow() == window && find<QWidget>(name) != nullptr)
            click(name);
    }
    if (window->isVisible())
        window->close();
}

bool Traveller::isReady(const QWidget *widget, const char *name)
{
    const bool isReady = widget != nullptr && widget->isVisible() && widget->isEnabled();
    if (!isReady)
        m_omitted << QString::fromLatin1(name);
    else
        m_stage = QString::fromLatin1(name);
    return isReady;
}

bool Traveller::click(const char *name)
{
    auto *widget = find<QWidget>(name);
    if (!isReady(widget, name))
        return false;
    clickOn(widget, widget->rect().center());
    return true;
}

bool Traveller::type(const char *name, const QString &text)
{
    auto *widget = find<QWidget>(name);
    if (!isReady(widget, name))
        return false;
    clickOn(widget, QPoint(widget->height() / 2, widget->height() / 2));
    QTest::keyClick(widget, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(widget, text);
    QTest::keyClick(widget, Qt::Key_Tab);
    return true;
}

bool Traveller::pick(const char *name, int index)
{
    auto *box = find<QComboBox>(name);
    if (!isReady(box, name))
        return false;
    box->setFocus();
    QTest::keyClick(box, Qt::Key_Home);
    for (int i = 0; i < index; ++i)
        QTest::keyClick(box, Qt::Key_Down);
    return box->currentIndex() == index;
}

bool Traveller::press(int key, int modifiers)
{
    QWidget *window = topWindow();
    if (window == nullptr)
        return false;
    m_stage = QKeySequence(key | modifiers).toString(QKeySequence::PortableText);
    QTest::keyClick(window, static_cast<Qt::Key>(key), Qt::KeyboardModifiers(modifiers));
    return true;
}

void Traveller::goToFine()
{
    auto *tabs = find<QTabWidget>("tabWidget");
    if (tabs != nullptr && tabs->currentIndex() != fineTab)
        press(Qt::Key_F5);
}

bool Traveller::typeCell(const char *table, int row, int column, const QString &text)
{
    auto *widget = find<QTableWidget>(table);
    if (!isReady(widget, table))
        return false;
    widget->setCurrentCell(row, column);
    QTest::keyClick(widget, Qt::Key_F2);
    auto *editor = widget->viewport()->findChild<QWidget *>(QStringLiteral("qt_editing_lineedit"));
    if (editor == nullptr)
        editor = QApplication::focusWidget();
    if (editor == nullptr)
        return false;
    QTest::keyClick(editor, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(editor, text);
    QTest::keyClick(editor, Qt::Key_Return);
    return true;
}

void Traveller::chooseFile(const QString &name)
{
    m_guide.plan("QFileDialog", [name](QWidget *window) {
        auto *dialog = static_cast<QFileDialog *>(window);
        auto *edit = dialog->findChild<QLineEdit *>(QStringLiteral("fileNameEdit"));
        if (edit == nullptr) {
            dialog->reject();
            return;
        }
        edit->setText(name);
        QTest::keyClick(edit, Qt::Key_Return);
    });
}

void Traveller::followCalibration()
{
    m_guide.plan("CalibrationProgressDlg", [this](QWidget *window) {
        m_stage = QStringLiteral("calibrating");
        const QPointer<QWidget> progress(window);
        for (int i = 0; i < mostLooks && !progress.isNull() && progress->isVisible(); ++i) {
            QMetaObject::invokeMethod(progress, "update_cal_status");
            if (!progress.isNull())
                QMetaObject::invokeMethod(progress, "update_cam_status");
            QCoreApplication::processEvents();
        }
        if (!progress.isNull() && progress->isVisible())
            click("pb_cancel");
    });
}

void Traveller::measure(int point)
{
    m_host.control(QStringLiteral("sim tool 1 touch %1").arg(point));
    m_host.link.advance(0.1);
    if (topWindow() != nullptr)
        QMetaObject::invokeMethod(topWindow(), "showTrackingStatus");
    click("w_measureButton");
    m_host.link.advance(1.2);
}

double Traveller::value(const char *spinBox) const
{
    const auto *box = find<QDoubleSpinBox>(spinBox);
    return box == nullptr ? qQNaN() : box->value();
}

bool Traveller::isEnabled(const char *name) const
{
    const auto *widget = find<QWidget>(name);
    return widget != nullptr && widget->isEnabled();
}

int Traveller::rows(const char *table) const
{
    const auto *widget = find<QTableWidget>(table);
    return widget == nullptr ? -1 : widget->rowCount();
}
