#include "Prompt.h"

#include <QPointer>

namespace Prompt
{

QMessageBox::StandardButton ask(QWidget *parent, QMessageBox::Icon icon, const QString &title,
                                const QString &text, QMessageBox::StandardButtons buttons,
                                QMessageBox::StandardButton defaultButton)
{
    const QPointer<QMessageBox> box = new QMessageBox(icon, title, text, buttons, parent);
    box->setTextFormat(Qt::PlainText);
    box->setDefaultButton(defaultButton);
    const int answer = box->exec();
    if (box.isNull())
        return QMessageBox::NoButton;
    delete box.data();
    return static_cast<QMessageBox::StandardButton>(answer);
}

} // namespace Prompt
