#include "WindowAudit.h"

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
#include <QLayout>
#include <QProgressBar>
#include <QPushButton>
#include <QScreen>
#include <QTabBar>
#include <QTabWidget>
#include <QTextEdit>

#include <algorithm>
#include <cmath>

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
    for (QWidget *child : window.findChildren<QWidget *>()) {
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

QList<QPair<QString, QKeySequence>> mnemonicsOf(const QWidget &window)
{
    QList<QPair<QString, QKeySequence>> found;
    for (const QWidget *widget : visibleChildren(window)) {
        found << qMakePair(widget->objectName(), mnemonicOf(widget));
        if (const auto *bar = qobject_cast<const QTabBar *>(widget)) {
            for (int i = 0; i < bar->count(); ++i)
                found << qMakePair(bar->tabText(i), QKeySequence::mnemonic(bar->tabText(i)));
        }
    }
    return found;
}

bool isInside(const QWidget *part, bool (*isWhole)(const QWidget *))
{
    const QWidget *parent = part->parentWidget();
    return parent != nullptr && (isWhole(parent) || isInside(parent, isWhole));
}

bool isWholeControl(const QWidget *widget)
{
    return qobject_cast<const QAbstractSpinBox *>(widget) != nullptr ||
           qobject_cast<const QComboBox *>(widget) != nullptr ||
           qobject_cast<const QAbstractItemView *>(widget) != nullptr ||
           qobject_cast<const QTextEdit *>(widget) != nullptr;
}

bool needsName(const QWidget *widget)
{
    if (isInside(widget, isWholeControl) || qobject_cast<const QTabBar *>(widget) != nullptr)
        return false;
    return widget->focusPolicy() != Qt::NoFocus || qobject_cast<const QProgressBar *>(widget) != nullptr ||
           qobject_cast<const QAbstractButton *>(widget) != nullptr || widget->inherits("QLCDNumber");
}

void addInReadingOrder(QWidget *widget, QList<QWidget *> &order);

void addInReadingOrder(QLayout *layout, QList<QWidget *> &order)
{
    QList<QLayoutItem *> items;
    for (int i = 0; i < layout->count(); ++i)
        items << layout->itemAt(i);
    const auto *box = qobject_cast<const QBoxLayout *>(layout);
    const bool isRow = box != nullptr && (box->direction() == QBoxLayout::LeftToRight ||
                                          box->direction() == QBoxLayout::RightToLeft);
    std::stable_sort(items.begin(), items.end(), [isRow, box](QLayoutItem *a, QLayoutItem *b) {
        const QPoint first = a->geometry().topLeft();
        const QPoint second = b->geometry().topLeft();
        if (box != nullptr)
            return isRow ? first.x() < second.x() : first.y() < second.y();
        const int sameRow = 8;
        return std::abs(first.y() - second.y()) > sameRow ? first.y() < second.y() : first.x() < second.x();
    });
    for (QLayoutItem *item : items) {
        if (item->widget() != nullptr)
            addInReadingOrder(item->widget(), order);
        else if (item->layout() != nullptr)
            addInReadingOrder(item->layout(), order);
    }
}

void addInReadingOrder(QWidget *widget, QList<QWidget *> &order)
{
    if (!widget->isVisible())
        return;
    if (auto *tabs = qobject_cast<QTabWidget *>(widget)) {
        order << tabs->tabBar();
        addInReadingOrder(tabs->currentWidget(), order);
    } else if (widget->layout() != nullptr && !isWholeControl(widget)) {
        addInReadingOrder(widget->layout(), order);
    } else {
        order << widget;
    }
}

double luminance(const QColor &color)
{
    const auto linear = [](double c) {
        return c <= 0.03928 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

double contrast(const QColor &one, const QColor &other)
{
    const double a = luminance(one);
    const double b = luminance(other);
    return (std::max(a, b) + 0.05) / (std::min(a, b) + 0.05);
}

/// The strongest contrast of a pixel to the colour that most pixels have.
double contrastIn(const QImage &image, const QWidget *plainText)
{
    QHash<QRgb, int> counts;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            ++counts[image.pixel(x, y)];
    }
    QRgb ground = 0;
    for (auto it = counts.cbegin(); it != counts.cend(); ++it) {
        if (it.value() > counts.value(ground))
            ground = it.key();
    }
    // Thin strokes are blurred; where the text has one colour, that colour itself counts.
    double best = plainText == nullptr
                      ? 1.0
                      : contrast(plainText->palette().color(plainText->foregroundRole()), QColor(ground));
    for (auto it = counts.cbegin(); it != counts.cend(); ++it)
        best = std::max(best, contrast(QColor(it.key()), QColor(ground)));
    return best;
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
    for (const QWidget *widget : visibleChildren(window)) {
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
    QHash<QKeySequence, QString> owners;
    for (const auto &entry : mnemonicsOf(window)) {
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
    return faults;
}

QStringList namelessControls(QWidget &window)
{
    QStringList faults;
    for (QWidget *widget : visibleChildren(window)) {
        QAccessibleInterface *control = QAccessible::queryAccessibleInterface(widget);
        if (needsName(widget) && (control == nullptr || control->text(QAccessible::Name).isEmpty()))
            faults << described(widget, QStringLiteral("no name"));
    }
    return faults;
}

QStringList tabOrderFaults(QWidget &window)
{
    QList<QWidget *> order;
    addInReadingOrder(&window, order);
    QStringList faults;
    int last = -1;
    QWidget *widget = window.nextInFocusChain();
    for (; widget != &window; widget = widget->nextInFocusChain()) {
        const int place = order.indexOf(widget);
        if (place < 0 || (widget->focusPolicy() & Qt::TabFocus) == 0 || !widget->isEnabled())
            continue;
        if (place < last)
            faults << described(widget, QStringLiteral("comes after ") + order.at(last)->objectName());
        last = place;
    }
    return faults;
}

QStringList faintTexts(const QWidget &window)
{
    QStringList faults;
    for (QWidget *widget : visibleChildren(window)) {
        const auto *label = qobject_cast<const QLabel *>(widget);
        const auto *button = qobject_cast<const QAbstractButton *>(widget);
        const bool hasText = (label != nullptr && !label->text().isEmpty()) ||
                             (button != nullptr && !button->text().isEmpty()) ||
                             qobject_cast<const QAbstractSpinBox *>(widget) != nullptr;
        if (!hasText || !widget->isEnabled())
            continue;
        const QImage image = window.windowHandle() == nullptr
                                 ? QImage()
                                 : const_cast<QWidget &>(window)
                                       .grab(QRect(widget->mapTo(&window, QPoint()), widget->size()))
                                       .toImage();
        const bool isWarning = label != nullptr && label->text().contains(QLatin1String("color=red"));
        const double found =
            contrastIn(image, label != nullptr && !Qt::mightBeRichText(label->text()) ? label : nullptr);
        if (found < (isWarning ? 3.0 : 4.5))
            faults << described(widget, QString::number(found) + QLatin1Char(' ') +
                                            widget->palette().color(widget->foregroundRole()).name());
    }
    return faults;
}

QStringList texts(QWidget &window)
{
    QStringList found{window.windowTitle(), window.whatsThis()};
    for (const QWidget *widget : window.findChildren<QWidget *>())
        addTexts(widget, found);
    return found;
}

} // namespace WindowAudit
