#include "WindowAudit.h"

#include "ReadingOrder.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QAccessible>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QProgressBar>
#include <QPushButton>
#include <QScreen>
#include <QTabBar>
#include <QTextEdit>

namespace
{

QString described(const QWidget *widget, const QString &fault)
{
    return QLatin1String(widget->metaObject()->className()) + QLatin1Char(' ') + widget->objectName() +
           QStringLiteral(": ") + fault;
}

QList<QWidget *> visibleChildren(const QWidget &window)
{
    QList<QWidget *> found;
    const auto children = window.findChildren<QWidget *>();
    for (QWidget *child : children) {
        if (child->isVisible() && child->window() == &window)
            found << child;
    }
    return found;
}

QString sizes(const QSize &wanted, const QSize &given)
{
    return QStringLiteral("needs %1 x %2, has %3 x %4")
        .arg(wanted.width())
        .arg(wanted.height())
        .arg(given.width())
        .arg(given.height());
}

bool isTooSmall(const QWidget *widget, QSize wanted)
{
    return widget->width() < wanted.width() || widget->height() < wanted.height();
}

QSize wantedSize(const QWidget *widget)
{
    if (const auto *label = qobject_cast<const QLabel *>(widget)) {
        if (label->text().isEmpty() || !label->wordWrap())
            return label->text().isEmpty() ? QSize() : label->sizeHint();
        return {0, label->heightForWidth(label->width())};
    }
    if (qobject_cast<const QPushButton *>(widget) != nullptr ||
        qobject_cast<const QCheckBox *>(widget) != nullptr ||
        qobject_cast<const QAbstractSpinBox *>(widget) != nullptr)
        return widget->minimumSizeHint().expandedTo(
            qobject_cast<const QAbstractButton *>(widget) != nullptr ? widget->sizeHint() : QSize());
    if (qobject_cast<const QComboBox *>(widget) != nullptr ||
        qobject_cast<const QGroupBox *>(widget) != nullptr)
        return widget->minimumSizeHint();
    return {};
}

void addTabFaults(const QTabBar *bar, QStringList &faults)
{
    for (int i = 0; i < bar->count(); ++i) {
        const int wanted = bar->fontMetrics().size(Qt::TextShowMnemonic, bar->tabText(i)).width();
        if (bar->tabRect(i).width() < wanted || bar->tabRect(i).right() > bar->width())
            faults << described(bar, bar->tabText(i));
    }
}

void addHeaderFaults(const QHeaderView *header, QStringList &faults)
{
    for (int i = 0; header->model() != nullptr && i < header->count(); ++i) {
        const QString text = header->model()->headerData(i, header->orientation()).toString();
        const int given = header->orientation() == Qt::Horizontal ? header->sectionSize(i) : header->width();
        if (header->fontMetrics().horizontalAdvance(text) > given)
            faults << described(header, text);
    }
}

QKeySequence mnemonicOf(const QWidget *widget)
{
    if (const auto *button = qobject_cast<const QAbstractButton *>(widget))
        return button->shortcut();
    if (const auto *label = qobject_cast<const QLabel *>(widget))
        return label->buddy() != nullptr ? QKeySequence::mnemonic(label->text()) : QKeySequence();
    if (const auto *box = qobject_cast<const QGroupBox *>(widget))
        return QKeySequence::mnemonic(box->title());
    return {};
}

/// What answers to a letter, and to which.
using Mnemonics = QList<QPair<QString, QKeySequence>>;

Mnemonics mnemonicsOf(const QList<QAction *> &actions)
{
    Mnemonics found;
    for (const QAction *action : actions)
        found << qMakePair(action->text(), QKeySequence::mnemonic(action->text()));
    return found;
}

Mnemonics mnemonicsOf(const QWidget &window)
{
    Mnemonics found;
    const auto widgets = visibleChildren(window);
    for (const QWidget *widget : widgets) {
        found << qMakePair(widget->objectName(), mnemonicOf(widget));
        if (const auto *bar = qobject_cast<const QTabBar *>(widget)) {
            for (int i = 0; i < bar->count(); ++i)
                found << qMakePair(bar->tabText(i), QKeySequence::mnemonic(bar->tabText(i)));
        }
        if (qobject_cast<const QMenuBar *>(widget) != nullptr)
            found << mnemonicsOf(widget->actions());
    }
    return found;
}

/// Letters that two of them answer to, and letters that not every keyboard has.
void addMnemonicFaults(const Mnemonics &mnemonics, QStringList &faults)
{
    QHash<QKeySequence, QString> owners;
    for (const auto &entry : mnemonics) {
        const QKeySequence &key = entry.second;
        if (key.isEmpty())
            continue;
        if ((key[0] & ~int(Qt::KeyboardModifierMask)) > 0x7f)
            faults << entry.first + QStringLiteral(": not on every keyboard");
        if (owners.contains(key))
            faults << entry.first + QStringLiteral(" and ") + owners.value(key) + QStringLiteral(": ") +
                          key.toString();
        owners.insert(key, entry.first);
    }
}

bool isInside(const QWidget *part, bool (*isWhole)(const QWidget *))
{
    const QWidget *parent = part->parentWidget();
    return parent != nullptr && (isWhole(parent) || isInside(parent, isWhole));
}

bool needsName(const QWidget *widget)
{
    if (isInside(widget, ReadingOrder::isWholeControl) || qobject_cast<const QTabBar *>(widget) != nullptr)
        return false;
    return widget->focusPolicy() != Qt::NoFocus || qobject_cast<const QProgressBar *>(widget) != nullptr ||
           qobject_cast<const QAbstractButton *>(widget) != nullptr || widget->inherits("QLCDNumber");
}

void addTexts(const QWidget *widget, QStringList &texts)
{
    const QString head = widget->objectName() + QLatin1Char('|');
    texts << head + widget->toolTip() << head + widget->accessibleName()
          << head + widget->accessibleDescription();
    if (const auto *label = qobject_cast<const QLabel *>(widget))
        texts << head + label->text();
    if (const auto *button = qobject_cast<const QAbstractButton *>(widget))
        texts << head + button->text();
    if (const auto *box = qobject_cast<const QGroupBox *>(widget))
        texts << head + box->title();
    if (const auto *edit = qobject_cast<const QTextEdit *>(widget))
        texts << head + edit->toPlainText();
    if (const auto *edit = qobject_cast<const QLineEdit *>(widget))
        texts << head + edit->placeholderText();
    const auto allActions = widget->actions();
    for (const QAction *action : allActions)
        texts << head + action->text();
    if (const auto *combo = qobject_cast<const QComboBox *>(widget)) {
        for (int i = 0; i < combo->count(); ++i)
            texts << head + combo->itemText(i);
    }
    if (const auto *bar = qobject_cast<const QTabBar *>(widget)) {
        for (int i = 0; i < bar->count(); ++i)
            texts << head + bar->tabText(i);
    }
    const auto *header = qobject_cast<const QHeaderView *>(widget);
    for (int i = 0; header != nullptr && header->model() != nullptr && i < header->count(); ++i)
        texts << head + header->model()->headerData(i, header->orientation()).toString();
}

} // namespace

namespace WindowAudit
{

QStringList clippedTexts(const QWidget &window)
{
    QStringList faults;
    const auto widgets = visibleChildren(window);
    for (const QWidget *widget : widgets) {
        const QSize wanted = wantedSize(widget);
        if (wanted.isValid() && isTooSmall(widget, wanted))
            faults << described(widget, sizes(wanted, widget->size()));
        if (const auto *bar = qobject_cast<const QTabBar *>(widget))
            addTabFaults(bar, faults);
        if (const auto *header = qobject_cast<const QHeaderView *>(widget))
            addHeaderFaults(header, faults);
    }
    const QSize screen = window.screen()->availableSize();
    if (window.width() > screen.width() || window.height() > screen.height())
        faults << described(&window, sizes(window.size(), screen));
    return faults;
}

QStringList mnemonicFaults(const QWidget &window)
{
    QStringList faults;
    addMnemonicFaults(mnemonicsOf(window), faults);
    const auto menus = window.findChildren<QMenu *>();
    for (const QMenu *menu : menus)
        addMnemonicFaults(mnemonicsOf(menu->actions()), faults);
    return faults;
}

QStringList namelessControls(QWidget &window)
{
    QStringList faults;
    const auto widgets = visibleChildren(window);
    for (QWidget *widget : widgets) {
        QAccessibleInterface *control = QAccessible::queryAccessibleInterface(widget);
        if (needsName(widget) && (control == nullptr || control->text(QAccessible::Name).isEmpty()))
            faults << described(widget, QStringLiteral("no name"));
    }
    return faults;
}

QStringList texts(QWidget &window)
{
    QStringList found{window.windowTitle(), window.whatsThis()};
    const auto widgets = window.findChildren<QWidget *>();
    for (const QWidget *widget : widgets) {
        if (qobject_cast<const QTabBar *>(widget->parentWidget()) ==
            nullptr) // Qt's own, which stay as they are
            addTexts(widget, found);
    }
    return found;
}

QString onlyIn(const QStringList &one, const QStringList &other)
{
    QStringList lines;
    for (const QString &text : one) {
        if (!other.contains(text))
            lines << text;
    }
    return lines.join(QLatin1Char('\n'));
}

} // namespace WindowAudit
