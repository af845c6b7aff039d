#pragma once

#include <QWidget>

#include <functional>

/// One line in letters as large as it has room for, to be read from afar. Readable on light and dark
/// palettes.
class LargeDisplay : public QWidget
{
    Q_OBJECT

public:
    /// Asked for again when the language changes.
    using Text = std::function<QString()>;

    explicit LargeDisplay(QWidget *parent = nullptr);

    void say(Text text);
    /// In the present language.
    [[nodiscard]] QString text() const;
    /// The font in which the text fills the width or the height.
    [[nodiscard]] QFont largestFont() const;

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void changeEvent(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    void tell();

    Text m_text;
};
