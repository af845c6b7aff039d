#include "NumberBox.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QTimer>
#include <QToolTip>

namespace
{

constexpr QChar point = QLatin1Char('.');
constexpr QChar comma = QLatin1Char(',');

bool hasSeveralPoints(const QString &text)
{
    return text.count(point) + text.count(comma) > 1;
}

QString withPoint(QString text)
{
    return text.replace(comma, point);
}

bool isTypingKey(const QKeyEvent &event)
{
    const QString text = event.text();
    const bool isText = !text.isEmpty() && text.at(0).isPrint() && !event.matches(QKeySequence::Paste);
    return isText || event.key() == Qt::Key_Backspace || event.key() == Qt::Key_Delete;
}

} // namespace

NumberBox::NumberBox(QWidget *parent)
    : QDoubleSpinBox(parent)
{
    setLocale(QLocale::c());
    lineEdit()->installEventFilter(this);
    connect(lineEdit(), &QLineEdit::inputRejected, this, &NumberBox::tellWhatFits);
    connect(lineEdit(), &QLineEdit::textChanged, this, &NumberBox::noteText);
    connect(this, &NumberBox::editingFinished, this, [this] { m_editedText.reset(); });
}

QValidator::State NumberBox::validate(QString &input, int &position) const
{
    if (hasSeveralPoints(input))
        return m_isTyping ? QValidator::Acceptable : QValidator::Invalid;
    input.replace(comma, point);
    return QDoubleSpinBox::validate(input, position);
}

double NumberBox::valueFromText(const QString &text) const
{
    return hasSeveralPoints(text) ? m_valueBeforeTyping : QDoubleSpinBox::valueFromText(withPoint(text));
}

/// Qt puts the value back where this leaves a text that does not fit.
void NumberBox::fixup(QString &input) const
{
    if (hasSeveralPoints(input))
        tellWhatFits();
    else
        QDoubleSpinBox::fixup(input);
}

/// Later, since a tip would not outlive the change of focus that may be on.
void NumberBox::tellWhatFits() const
{
    QTimer::singleShot(0, this, &NumberBox::showWhatFits);
}

void NumberBox::showWhatFits() const
{
    const QString sentence = tr("Only one number from %1 to %2 fits here, with at most %3 decimals after one "
                                "point or one comma. The value is still %4.");
    QToolTip::showText(mapToGlobal(rect().bottomLeft()),
                       sentence.arg(textFromValue(minimum()), textFromValue(maximum()),
                                    QString::number(decimals()), textFromValue(value())));
}

/// Hears of what a hand does alone: Qt is silent where it shows a value.
void NumberBox::noteText(const QString &text)
{
    m_editedText = text;
    if (hasSeveralPoints(text))
        tellWhatFits();
}

void NumberBox::noteTyping(const QEvent *event)
{
    switch (event->type()) {
    case QEvent::KeyPress:
        m_isTyping = isTypingKey(*static_cast<const QKeyEvent *>(event));
        break;
    case QEvent::InputMethod:
        m_isTyping = true;
        break;
    case QEvent::MouseButtonPress:
    case QEvent::ContextMenu:
    case QEvent::Drop:
    case QEvent::FocusOut:
        m_isTyping = false;
        break;
    default:
        return;
    }
    if (m_isTyping && m_editedText != lineEdit()->text())
        m_valueBeforeTyping = value();
}

bool NumberBox::event(QEvent *event)
{
    noteTyping(event);
    return QDoubleSpinBox::event(event);
}

/// The line edit takes the mouse, and keys where somebody hands them to it directly.
bool NumberBox::eventFilter(QObject *watched, QEvent *event)
{
    if (watched != lineEdit())
        return QDoubleSpinBox::eventFilter(watched, event);
    noteTyping(event);
    const auto type = event->type();
    const bool isOfTheClick =
        m_isFirstClick &&
        (type == QEvent::MouseButtonPress || type == QEvent::MouseMove || type == QEvent::MouseButtonRelease);
    if (type == QEvent::MouseButtonRelease)
        m_isFirstClick = false;
    return isOfTheClick || QDoubleSpinBox::eventFilter(watched, event);
}

void NumberBox::focusInEvent(QFocusEvent *event)
{
    QDoubleSpinBox::focusInEvent(event);
    m_isFirstClick = event->reason() == Qt::MouseFocusReason;
    if (m_isFirstClick)
        selectAll();
}

/// The line edit keeps presses on the number to itself, so this one is on an arrow.
void NumberBox::mousePressEvent(QMouseEvent *event)
{
    m_isFirstClick = false;
    QDoubleSpinBox::mousePressEvent(event);
}
