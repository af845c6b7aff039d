#pragma once

#include "WheelSteps.h"
#include "bsDoubleParts.h"

#include <QWidget>

#include <memory>

class EditorLayout;
class QDoubleSpinBox;
class QLabel;
class QwtWheel;

/// An editor of one number: a caption, a spin box and a thumb wheel that steps the spin box.
///
/// An edit begins with the first value that the user changes, or when the wheel is pressed; it is finished
/// when the spin box is left or Enter is pressed, when the wheel is released, or, after the wheel was turned
/// without a drag, when the pointer leaves the editor. Between both, valueChanged() reports every step.
/// Numbers are shown and read with a decimal point in every locale.
class bsDoubleWidget : public QWidget
{
    Q_OBJECT

public:
    explicit bsDoubleWidget(QWidget *parent = nullptr);
    ~bsDoubleWidget() override;

    double value() const;
    QString labelText() const;
    QColor labelColor() const;
    void setLabelColor(const QColor &color);
    double singleStep() const;

    /// Sets the step silently. While the value wraps, the maximum moves so that it stays one step below the
    /// end of the range.
    void setSingleStep(double step);

    bool wrapping() const;

    /// Turns wrapping on or off, silently; a change lowers or raises the maximum by 1.
    void setWrapping(bool wrapping);

signals:
    void valueChanged(double value);
    void editingFinished();
    void editingBegin();

public slots:
    /// Silent. While the value wraps, the maximum becomes 1 less than the given one, since both ends of the
    /// range are the same place then.
    void setRange(double minimum, double maximum);
    void showLabel(bool show);
    void setLabel(const QString &label);
    void setLabelFont(const QFont &font);
    void setSuffix(const QString &suffix);
    void setDecimals(int decimals);

    /// Takes a value that differs by more than 1e-5 from the present one, and reports it once.
    void setValue(double value);

    /// Takes a value silently: for echoes of a change that was made elsewhere.
    void adjustValue(double value);

    void setMode(bsDoubleMode mode);
    void setLabelPosition(bsDoublePosition position);
    void setWheelPosition(bsDoublePosition position);
    void setWheelOrientation(bsDoubleOrientation orientation);

    /// Value and wheel become 0, silently.
    void reset();

    /// Renews the texts of the editor in the present language.
    void languageChange();

    /// The wheel becomes 0, silently; the value stays.
    void resetWheel();

protected slots:
    void spinChanged(double value);
    void wheelChanged(double wheelValue);
    void setEditingBegin();
    void setEditingFinished();
    void setMouseEditingBegin();
    void setMouseEditingFinished();

protected:
    void leaveEvent(QEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    void buildSpinBox();
    void buildWheel();
    void connectParts();
    void releaseFocus();

    QLabel *m_label;
    QDoubleSpinBox *m_spinBox;
    QwtWheel *m_wheel;
    std::unique_ptr<EditorLayout> m_layout;
    WheelSteps m_wheelSteps;
    bool m_editing = false;
    bool m_mouseEditing = false;
    bool m_wheelTouched = false;
    bool m_wheelHeld = false; ///< a drag is on: setting the wheel's value now would abort it
};
