#include "ModalAnswer.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QEvent>
#include <QMessageBox>
#include <QTimer>
#include <QtTest>

namespace
{

constexpr int lookMilliseconds = 2;
constexpr int staleTickLimit = 15000;

} // namespace

ModalAnswer::ModalAnswer(QObject *parent)
    : QObject(parent)
{
    lookAgain();
}

ModalAnswer::~ModalAnswer() = default;

ModalAnswer &ModalAnswer::then(std::function<void(QWidget *)> action)
{
    m_steps.push_back(std::move(action));
    return *this;
}

ModalAnswer &ModalAnswer::thenPress(int standardButton)
{
    return then([this, standardButton](QWidget *window) {
        auto *box = qobject_cast<QMessageBox *>(window);
        if (box == nullptr) {
            noteUnexpected(QStringLiteral("no message box: ") + window->windowTitle());
            window->close();
            return;
        }
        m_boxes.append(box->windowTitle() + QLatin1Char('|') + box->text());
        QAbstractButton *button = box->button(QMessageBox::StandardButton(standardButton));
        if (button == nullptr) {
            noteUnexpected(QStringLiteral("no such button: ") + box->text());
            box->close();
            return;
        }
        QTest::mouseClick(button, Qt::LeftButton);
    });
}

ModalAnswer &ModalAnswer::leaveAlone(const QString &title)
{
    m_leftAlone.append(title);
    return *this;
}

// A timer does not fire again while its slot runs, and a step may open the next modal window: each look has a
// timer of its own.
void ModalAnswer::lookAgain()
{
    QTimer::singleShot(lookMilliseconds, this, &ModalAnswer::look);
}

void ModalAnswer::look()
{
    lookAgain();
    QWidget *window = QApplication::activeModalWidget();
    if (window == nullptr || !window->isVisible()) {
        m_staleTicks = 0;
        return;
    }
    if (m_handled.contains(window) || m_leftAlone.contains(window->windowTitle())) {
        if (++m_staleTicks > staleTickLimit)
            closeStale(window);
        return;
    }
    m_handled.append(window);
    window->installEventFilter(this);
    m_staleTicks = 0;
    if (m_next < m_steps.size()) {
        const std::size_t step = m_next++;
        const auto action = m_steps[step]; // a step may add further ones
        action(window);
        return;
    }
    closeStale(window);
}

// A window that was closed may come back, and then wants its next step.
bool ModalAnswer::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Hide) {
        m_handled.removeAll(static_cast<QWidget *>(watched));
        watched->removeEventFilter(this);
    }
    return false;
}

void ModalAnswer::closeStale(QWidget *window)
{
    const auto *box = qobject_cast<QMessageBox *>(window);
    if (m_staleTicks > staleTickLimit)
        qWarning("A window stays open after its step.");
    noteUnexpected(window->windowTitle() + QLatin1Char('|') + (box != nullptr ? box->text() : QString()));
    if (auto *dialog = qobject_cast<QDialog *>(window))
        dialog->done(QDialog::Rejected);
    else
        window->close();
}

void ModalAnswer::noteUnexpected(const QString &window)
{
    qWarning("Unexpected window: %s", qPrintable(window));
    m_unexpected.append(window);
}
