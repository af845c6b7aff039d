#pragma once

#include <QStringList>

#include <array>
#include <functional>
#include <initializer_list>

class QLabel;
class QScrollArea;

/// The line below the report. Several sides of the dialog tell their sentences in it, the most pressing
/// first.
class NoticeLine
{
public:
    /// Who speaks, in the order of the sentences. While the tools have something to say, nobody else does.
    enum class Side { Tools, Data, Lists, Handout, Points, Worst, Result, Scaling };

    using Text = std::function<QString()>;

    /// Both must outlive this; the label stands in the area.
    NoticeLine(QScrollArea *area, QLabel *label);

    /// Replaces what a side says. The text is asked for again when the language changes; none or an empty one
    /// says nothing.
    void say(Side side, Text text);

    /// What is told of the line when it is pointed at, to screen readers, too.
    void setTip(Text tip);

    /// What these sides say, in the present language; the line itself may be silent about it.
    [[nodiscard]] QStringList told(std::initializer_list<Side> asked) const;

    /// Tells everything in the present language.
    void show();

private:
    static constexpr std::size_t sides = 8;

    QScrollArea *m_area;
    QLabel *m_label;
    std::array<Text, sides> m_texts;
    Text m_tip;
};
