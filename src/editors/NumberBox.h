#pragma once

#include <QCoreApplication>
#include <QDoubleSpinBox>

#include <optional>

/// A box for one number that takes what a hand enters as it is meant, or refuses it visibly.
///
/// Comma and point both work as the decimal point, typed or pasted, and the box shows points in every locale.
/// A text with more than one of them is no number. Pasted, it is not taken at all. Typed, it stays in sight,
/// but the value is at once the one from before the typing, and Enter or leaving the box shows that one. A
/// tip below the box tells what fits whenever something is refused.
///
/// A click on the number of a box that did not have the focus selects all of it; the next click places the
/// cursor.
///
/// It is found as a QDoubleSpinBox, by its class name too.
class NumberBox : public QDoubleSpinBox
{
    Q_DECLARE_TR_FUNCTIONS(NumberBox)

public:
    explicit NumberBox(QWidget *parent = nullptr);

    QValidator::State validate(QString &input, int &position) const override;
    [[nodiscard]] double valueFromText(const QString &text) const override;
    void fixup(QString &input) const override;

protected:
    bool event(QEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;

private:
    void noteTyping(const QEvent *event);
    void noteText(const QString &text);
    void tellWhatFits() const;
    void showWhatFits() const;

    double m_valueBeforeTyping = 0.0;
    std::optional<QString> m_editedText; ///< as the hand left it last, since the number was last confirmed
    bool m_isTyping = false;
    bool m_isFirstClick = false; ///< from the focus by a click up to its release
};
