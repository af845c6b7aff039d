#pragma once

#include <QDoubleSpinBox>

/// A number box that shows a decimal point in every locale and takes comma and point alike, typed or pasted.
///
/// A text with more than one of them could be meant in several ways: it is refused with a bubble that says
/// so, and changes nothing. Without decimals the box takes neither.
class NumberBox : public QDoubleSpinBox
{
    Q_OBJECT

public:
    explicit NumberBox(QWidget *parent = nullptr);

    QValidator::State validate(QString &text, int &position) const override;

private:
    void explain(const QString &reason) const;
};
