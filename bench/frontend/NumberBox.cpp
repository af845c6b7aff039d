#include "NumberBox.h"

#include <QToolTip>

NumberBox::NumberBox(QWidget *parent)
    : QDoubleSpinBox(parent)
{
    QLocale pointed = QLocale::c();
    pointed.setNumberOptions(QLocale::OmitGroupSeparator | QLocale::RejectGroupSeparator);
    setLocale(pointed);
}

QValidator::State NumberBox::validate(QString &text, int &position) const
{
    QString pointed = text;
    pointed.replace(QLatin1Char(','), QLatin1Char('.'));
    const int points = pointed.count(QLatin1Char('.'));
    const bool isAmbiguous = points > 1;
    if (isAmbiguous || (points == 1 && decimals() == 0)) {
        explain(isAmbiguous ? tr("Not taken: %1 has more than one decimal point or comma.").arg(text)
                            : tr("Not taken: %1 is no whole number.").arg(text));
        return QValidator::Invalid;
    }
    text = pointed;
    return QDoubleSpinBox::validate(text, position);
}

void NumberBox::explain(const QString &reason) const
{
    auto *self = const_cast<NumberBox *>(this); // the bubble belongs to a widget, but does not change it
    QToolTip::showText(mapToGlobal(rect().bottomLeft()), reason, self);
}
