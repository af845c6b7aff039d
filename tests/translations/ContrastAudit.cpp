#include "ContrastAudit.h"

#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QStyleOption>
#include <QTabBar>
#include <QTextEdit>

#include <algorithm>
#include <cmath>

namespace
{

constexpr double enough = 4.5;
constexpr double enoughForBoldWarnings = 3.0;

/// A text of a widget: what it says, and where it stands in the widget.
struct Text {
    QString words;
    QRect place;
    double least = enough; ///< of contrast
};

using Texts = QList<Text>;

// --- Where the texts stand

/// Makes the style options of the widgets known, which their classes keep to themselves.
template <typename Widget>
struct Opened : Widget {
    using Widget::initStyleOption;
};

template <typename Option, typename Widget>
Option optionOf(const Widget *widget)
{
    Option option;
    (widget->*(&Opened<Widget>::initStyleOption))(&option);
    return option;
}

QRect textRect(const QWidget *widget, const QRect &room, int alignment, const QString &text)
{
    return widget->style()->itemTextRect(widget->fontMetrics(), room, alignment | Qt::TextShowMnemonic, true,
                                         text);
}

void add(const QLabel *label, Texts &texts)
{
    if (label->text().isEmpty())
        return;
    const bool isWarning = label->text().contains(QLatin1String("color=red"));
    texts << Text{label->text(), label->rect(), isWarning ? enoughForBoldWarnings : enough};
}

void add(const QPushButton *button, Texts &texts)
{
    const auto option = optionOf<QStyleOptionButton>(button);
    const QRect room = button->style()->subElementRect(QStyle::SE_PushButtonContents, &option, button);
    texts << Text{button->text(), textRect(button, room, Qt::AlignCenter, button->text())};
}

void add(const QCheckBox *box, Texts &texts)
{
    const auto option = optionOf<QStyleOptionButton>(box);
    const QRect room = box->style()->subElementRect(QStyle::SE_CheckBoxContents, &option, box);
    texts << Text{box->text(), textRect(box, room, Qt::AlignLeft | Qt::AlignVCenter, box->text())};
}

void add(const QGroupBox *box, Texts &texts)
{
    const auto option = optionOf<QStyleOptionGroupBox>(box);
    texts << Text{box->title(),
                  box->style()->subControlRect(QStyle::CC_GroupBox, &option, QStyle::SC_GroupBoxLabel, box)};
}

void add(const QTabBar *bar, Texts &texts)
{
    for (int i = 0; i < bar->count(); ++i)
        texts << Text{bar->tabText(i), textRect(bar, bar->tabRect(i), Qt::AlignCenter, bar->tabText(i))};
}

void add(const QHeaderView *header, Texts &texts)
{
    const int margin = header->style()->pixelMetric(QStyle::PM_HeaderMargin, nullptr, header);
    for (int i = 0; header->model() != nullptr && i < header->count(); ++i) {
        const int start = header->sectionViewportPosition(i);
        const int size = header->sectionSize(i);
        const QRect section = header->orientation() == Qt::Horizontal
                                  ? QRect(start, 0, size, header->height())
                                  : QRect(0, start, header->width(), size);
        const QString words = header->model()->headerData(i, header->orientation()).toString();
        const QRect room = section.intersected(header->rect()).adjusted(margin, margin, -margin, -margin);
        texts << Text{words, textRect(header, room, int(header->defaultAlignment()), words)};
    }
}

void add(const QAbstractItemView *view, Texts &texts)
{
    const QAbstractItemModel *model = view->model();
    if (model == nullptr || qobject_cast<const QHeaderView *>(view) != nullptr)
        return;
    for (int row = 0; row < model->rowCount(); ++row) {
        for (int column = 0; column < model->columnCount(); ++column) {
            const QModelIndex index = model->index(row, column);
            const QRect cell = view->visualRect(index).intersected(view->viewport()->rect());
            const int gridLine = 1;
            texts << Text{index.data().toString(), cell.adjusted(gridLine, gridLine, -gridLine, -gridLine)
                                                       .translated(view->viewport()->mapTo(view, QPoint()))};
        }
    }
}

void add(const QComboBox *box, Texts &texts)
{
    const auto option = optionOf<QStyleOptionComboBox>(box);
    texts << Text{box->currentText(), box->style()->subControlRect(QStyle::CC_ComboBox, &option,
                                                                   QStyle::SC_ComboBoxEditField, box)};
}

void add(const QLineEdit *edit, Texts &texts)
{
    texts << Text{edit->displayText(), edit->rect()};
}

void add(const QTextEdit *edit, Texts &texts)
{
    texts << Text{edit->toPlainText(), edit->viewport()->geometry()};
}

/// Half of the text may stand on the filled part of the bar, half beside it.
void add(const QProgressBar *bar, Texts &texts)
{
    if (!bar->isTextVisible())
        return;
    QRect left = textRect(bar, bar->rect(), Qt::AlignCenter, bar->text());
    QRect right = left;
    left.setRight(left.center().x() - 1);
    right.setLeft(right.center().x() + 1);
    texts << Text{bar->text() + QStringLiteral(" left"), left}
          << Text{bar->text() + QStringLiteral(" right"), right};
}

template <typename Widget>
void addIfIs(const QWidget *widget, Texts &texts)
{
    if (const auto *found = qobject_cast<const Widget *>(widget))
        add(found, texts);
}

Texts textsOf(const QWidget *widget)
{
    Texts texts;
    addIfIs<QLabel>(widget, texts);
    addIfIs<QPushButton>(widget, texts);
    addIfIs<QCheckBox>(widget, texts);
    addIfIs<QGroupBox>(widget, texts);
    addIfIs<QTabBar>(widget, texts);
    addIfIs<QHeaderView>(widget, texts);
    addIfIs<QAbstractItemView>(widget, texts);
    addIfIs<QComboBox>(widget, texts);
    addIfIs<QLineEdit>(widget, texts); // those of the spin boxes too
    addIfIs<QTextEdit>(widget, texts);
    addIfIs<QProgressBar>(widget, texts);
    const auto isUnseen = [](const Text &text) {
        return text.words.trimmed().isEmpty() || text.place.isEmpty();
    };
    texts.erase(std::remove_if(texts.begin(), texts.end(), isUnseen), texts.end());
    return texts;
}

QList<QWidget *> readableWidgets(const QWidget &window)
{
    QList<QWidget *> found;
    const auto allWidgets = window.findChildren<QWidget *>();
    for (QWidget *widget : allWidgets) {
        if (widget->isVisible() && widget->isEnabled() && widget->window() == &window)
            found << widget;
    }
    return found;
}

// --- What the picture shows

double luminance(const QColor &colour)
{
    const auto linear = [](double c) {
        return c <= 0.03928 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

double contrast(const QColor &one, const QColor &other)
{
    const double a = luminance(one);
    const double b = luminance(other);
    return (std::max(a, b) + 0.05) / (std::min(a, b) + 0.05);
}

QHash<QRgb, int> countColours(const QImage &image)
{
    QHash<QRgb, int> counts;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            ++counts[image.pixel(x, y)];
    }
    return counts;
}

/// A part of the window, enlarged, so that thin strokes show their colour and not a blend with the
/// background.
QImage pictureOf(QWidget &window, const QRect &place)
{
    const int enlargement = 4;
    QImage image(place.size() * enlargement, QImage::Format_RGB32);
    image.setDevicePixelRatio(enlargement);
    image.fill(window.palette().color(QPalette::Window));
    window.render(&image, QPoint(), place);
    return image;
}

/// The strongest contrast of a pixel to the colour that most pixels have.
double contrastIn(const QImage &image)
{
    const QHash<QRgb, int> counts = countColours(image);
    QRgb ground = 0;
    for (auto it = counts.cbegin(); it != counts.cend(); ++it) {
        if (it.value() > counts.value(ground))
            ground = it.key();
    }
    double best = 1.0;
    for (auto it = counts.cbegin(); it != counts.cend(); ++it)
        best = std::max(best, contrast(QColor(it.key()), QColor(ground)));
    return best;
}

void deselect(QWidget &window)
{
    if (window.focusWidget() != nullptr)
        window.focusWidget()->clearFocus();
    const auto edits = window.findChildren<QLineEdit *>();
    for (QLineEdit *edit : edits)
        edit->deselect();
    const auto views = window.findChildren<QAbstractItemView *>();
    for (QAbstractItemView *view : views) {
        if (view->selectionModel() != nullptr)
            view->clearSelection();
    }
}

void addFaintTexts(QWidget &window, const QWidget *widget, QStringList &faults)
{
    const auto allTexts = textsOf(widget);
    for (const Text &text : allTexts) {
        const QRect place(widget->mapTo(&window, text.place.topLeft()), text.place.size());
        const double found = contrastIn(pictureOf(window, place));
        if (found < text.least)
            faults << QStringLiteral("%1 %2: \"%3\" has a contrast of %4 : 1")
                          .arg(QLatin1String(widget->metaObject()->className()), widget->objectName(),
                               text.words.left(40))
                          .arg(found, 0, 'f', 2);
    }
}

/// The texts on the bars at their ends and half way, which the window may not have reached.
void addFaintBars(QWidget &window, QStringList &faults)
{
    const auto allBars = window.findChildren<QProgressBar *>();
    for (QProgressBar *bar : allBars) {
        if (!bar->isVisible() || !bar->isEnabled() || bar->maximum() <= bar->minimum())
            continue;
        const int value = bar->value();
        for (const int shown : {bar->minimum(), (bar->minimum() + bar->maximum()) / 2, bar->maximum()}) {
            bar->setValue(shown);
            addFaintTexts(window, bar, faults);
        }
        bar->setValue(value);
    }
}

} // namespace

namespace ContrastAudit
{

QStringList faintTexts(QWidget &window)
{
    QStringList faults;
    deselect(window);
    const auto allWidgets = readableWidgets(window);
    for (const QWidget *widget : allWidgets)
        addFaintTexts(window, widget, faults);
    addFaintBars(window, faults);
    faults.removeDuplicates();
    return faults;
}

int textCount(QWidget &window)
{
    int count = 0;
    const auto allWidgets = readableWidgets(window);
    for (const QWidget *widget : allWidgets)
        count += textsOf(widget).size();
    return count;
}

} // namespace ContrastAudit
