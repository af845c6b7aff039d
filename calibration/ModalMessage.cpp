#include "ModalMessage.h"

#include <QMessageBox>
#include <QPointer>

namespace
{

void show(QMessageBox::Icon icon, QWidget *parent, const QString &title, const QString &text)
{
    const QPointer<QMessageBox> box = new QMessageBox(icon, title, text, QMessageBox::Ok, parent);
    box->setTextFormat(Qt::PlainText);
    box->exec();
    delete box.data();
}

} // namespace

namespace ModalMessage
{

void critical(QWidget *parent, const QString &title, const QString &text)
{
    show(QMessageBox::Critical, parent, title, text);
}

void information(QWidget *parent, const QString &title, const QString &text)
{
    show(QMessageBox::Information, parent, title, text);
}

} // namespace ModalMessage
