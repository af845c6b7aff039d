#include "WindowGuide.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QEvent>
#include <QMessageBox>
#include <QTimer>

namespace
{

constexpr int lookMilliseconds = 1;
constexpr int patienceMs = 20000;
const QString messageBox = QStringLiteral("QMessageBox");

QString textOf(const QMessageBox *box)
{
    return box->windowTitle() + QLatin1Char('|') + box->text();
}

QAbstractButton *agreeingButton(const QMessageBox *box)
{
    for (const auto standard : {QMessageBox::Yes, QMessageBox::Ok}) {
        if (QAbstractButton *button = box->button(standard))
            return button;
    }
    return nullptr;
}

} // namespace

WindowGuide::WindowGuide()
{
    lookAgain();
}

WindowGuide::~WindowGuide() = default;

QString WindowGuide::classOf(const QWidget *window)
{
    return window == nullptr ? QString() : QString::fromLatin1(window->metaObject()->className());
}

void WindowGuide::plan(const char *className, const Treatment &treatment)
{
    m_plans[QString::fromLatin1(className)].append(treatment);
}

void WindowGuide::planAnswer(int standardButton)
{
    plan("QMessageBox", [this, standardButton](QWidget *window) {
        const auto *box = static_cast<QMessageBox *>(window);
        QAbstractButton *button = box->button(static_cast<QMessageBox::StandardButton>(standardButton));
        if (button != nullptr)
            button->click();
        else
            dismiss(window);
    });
}

QStringList WindowGuide::missed() const
{
    QStringList names;
    for (auto it = m_plans.begin(); it != m_plans.end(); ++it) {
        if (!it.value().isEmpty())
            names << it.key();
    }
    return names;
}

// A timer does not fire again while its slot runs, and a treatment may open the next window: each look has a
// timer of its own.
void WindowGuide::lookAgain()
{
    QTimer::singleShot(lookMilliseconds, this, &WindowGuide::look);
}

void WindowGuide::look()
{
    lookAgain();
    QWidget *window = QApplication::activeModalWidget();
    if (window == nullptr || !window->isVisible())
        return;
    if (m_seen.contains(window)) {
        watch(window);
        return;
    }
    m_seen.append(window);
    window->installEventFilter(this);
    treat(window);
}

void WindowGuide::treat(QWidget *window)
{
    const QString name = classOf(window);
    const auto *box = qobject_cast<const QMessageBox *>(window);
    if (box != nullptr)
        m_boxes << textOf(box);
    QList<Treatment> &plans = m_plans[name];
    if (plans.isEmpty()) {
        m_strangers << (box != nullptr ? textOf(box) : name);
        dismiss(window);
        return;
    }
    const Treatment treatment = plans.takeFirst();
    treatment(window);
}

void WindowGuide::dismiss(QWidget *window)
{
    const auto *box = qobject_cast<const QMessageBox *>(window);
    QAbstractButton *button = box != nullptr ? agreeingButton(box) : nullptr;
    if (button != nullptr)
        button->click();
    else
        window->close();
}

void WindowGuide::watch(QWidget *window)
{
    if (m_top != window) {
        m_top = window;
        m_unchanged.start();
    }
    if (m_unchanged.elapsed() < patienceMs)
        return;
    m_unchanged.start();
    m_stuck << classOf(window);
    if (auto *dialog = qobject_cast<QDialog *>(window))
        dialog->done(QDialog::Rejected);
    else
        window->close();
}

// A window that was closed may come back, and then is a new one.
bool WindowGuide::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Hide) {
        m_seen.removeAll(static_cast<QWidget *>(watched));
        watched->removeEventFilter(this);
    }
    return false;
}
