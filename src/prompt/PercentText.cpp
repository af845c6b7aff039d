#include "PercentText.h"

#include <QLabel>
#include <QProgressBar>

void showPercentBeside(QProgressBar *bar, QLabel *label)
{
    const auto show = [bar, label] { label->setText(bar->text()); };
    label->setText(QStringLiteral("100%"));
    label->setMinimumWidth(label->sizeHint().width());
    QObject::connect(bar, &QProgressBar::valueChanged, label, show);
    bar->setTextVisible(false);
    show();
}
