#include "Prompt.h"

#include "ModalWindow.h"

namespace Prompt
{

QMessageBox::StandardButton ask(QWidget *parent, QMessageBox::Icon icon, const QString &title,
                                const QString &text, QMessageBox::StandardButtons buttons,
                                QMessageBox::StandardButton defaultButton)
{
    ModalWindow<QMessageBox> box(icon, title, text, buttons, parent);
    box->setTextFormat(Qt::PlainText);
    box->setDefaultButton(defaultButton);
    const int answer = box.exec();
    return box ? static_cast<QMessageBox::StandardButton>(answer) : QMessageBox::NoButton;
}

} // namespace Prompt
