#pragma once

class QString;
class QWidget;

/// Message boxes with an OK button that bear being destroyed together with their parent while they are open.
///
/// The texts are shown as they are, never as rich text. After the return the parent may be gone: a caller
/// that goes on must have looked after itself with a QPointer.
namespace ModalMessage
{

void critical(QWidget *parent, const QString &title, const QString &text);
void information(QWidget *parent, const QString &title, const QString &text);

} // namespace ModalMessage
