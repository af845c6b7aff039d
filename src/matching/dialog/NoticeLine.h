#pragma once

#include <QString>

#include <array>
#include <functional>

class QLabel;
class QScrollArea;

/// The line below the report. Several sides of the dialog tell their sentences in it, the most pressing
/// first.
class NoticeLine
{
public:
    /// Who speaks, in the order of the sentences. While the tools have something to say, nobody else does.
    enum class Side { Tools, Data, Lists, Points, Result, Scaling };

    using Text = std::function<QString()>;

    /// Both must outlive this; the label stands in the area.
    NoticeLine(QScrollArea *area, QLabel *label);

    /// Replaces what a side says. The text is asked for again when the language changes; none or an empty one
    /// says nothing.
    void say(Side side, Text text);

    /// Tells everything in the present language.
    void show();

private:
    static constexpr std::size_t sides = 6;

    QScrollArea *m_area;
    QLabel *m_label;
    std::array<Text, sides> m_texts;
};
