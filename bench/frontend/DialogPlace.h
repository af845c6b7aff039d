#pragma once

#include <QObject>
#include <QRect>
#include <QVector>

#include <optional>

class QWidget;

/// Opens the dialogs of a window where they leave it in sight, or one part of it at least, if the screen has
/// room for that.
///
/// A dialog that somebody has moved stays where it is.
class DialogPlace : public QObject
{
    Q_OBJECT

public:
    /// For the dialogs whose parent is `window`; `inSight` is the part of it, `neighbour` a window beside it
    /// that is left in sight too. All must outlive this object.
    DialogPlace(QWidget *window, QWidget *inSight, QWidget *neighbour);

    bool eventFilter(QObject *watched, QEvent *event) override;

    /// The first place within the screen at which a rectangle of that size covers none of `free`: below or
    /// right of one of them, or in the lower corner of the screen. Nothing when there is none.
    static std::optional<QPoint> find(const QSize &size, const QRect &screen, const QVector<QRect> &free);

private:
    void place(QWidget *dialog) const;

    QWidget *m_window;
    QWidget *m_inSight;
    QWidget *m_neighbour;
};
