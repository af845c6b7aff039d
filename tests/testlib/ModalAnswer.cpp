#include "ModalAnswer.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QMessageBox>
#include <QtTest>

#include <algorithm>

namespace
{

constexpr int lookMilliseconds = 10;
constexpr int staleTickLimit = 3000;

} // namespace

ModalAnswer::ModalAnswer(QObject *parent)
    : QObject(parent)
{
    connect(&m_timer, &QTimer::timeout, this, &ModalAnswer::look);
    m_timer.start(lookMilliseconds);
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
            m_unexpected.append(QStringLiteral("no message box: ") + window->windowTitle());
            window->close();
            return;
        }
        m_boxes.append(box->windowTitle() + QLatin1Char('|') + box->text());
        QAbstractButton *button = box->button(QMessageBox::StandardButton(standardButton));
        if (button == nullptr) {
            m_unexpected.append(QStringLiteral("no such button: ") + box->text());
            box->close();
            return;
        }
        QTest::mouseClick(button, Qt::LeftButton);
    });
}

void ModalAnswer::look()
{
    m_handled.erase(std::remove_if(m_handled.begin(), m_handled.end(),
                                   [](const QPointer<QWidget> &w) { return w.isNull() || !w->isVisible(); }),
                    m_handled.end());
    QWidget *window = QApplication::activeModalWidget();
    if (window == nullptr || !window->isVisible()) {
        m_staleTicks = 0;
        return;
    }
    if (m_handled.contains(window)) {
        if (++m_staleTicks > staleTickLimit)
            closeStale(window);
        return;
    }
    m_handled.append(window);
    m_staleTicks = 0;
    if (m_next < m_steps.size()) {
        const std::size_t step = m_next++;
        m_steps[step](window);
        return;
    }
    closeStale(window);
}

void ModalAnswer::closeStale(QWidget *window)
{
    const auto *box = qobject_cast<QMessageBox *>(window);
    m_unexpected.append(window->windowTitle() + QLatin1Char('|') +
                        (box != nullptr ? box->text() : QString()));
    if (auto *dialog = qobject_cast<QDialog *>(window))
        dialog->done(QDialog::Rejected);
    else
        window->close();
}
