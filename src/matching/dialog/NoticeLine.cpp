#include "NoticeLine.h"

#include <QLabel>
#include <QScrollArea>

#include <utility>

namespace
{

constexpr int lines = 3;

} // namespace

NoticeLine::NoticeLine(QScrollArea *area, QLabel *label)
    : m_area(area)
    , m_label(label)
{
    show();
}

void NoticeLine::say(Side side, Text text)
{
    m_texts[static_cast<std::size_t>(side)] = std::move(text);
    show();
}

void NoticeLine::setTip(Text tip)
{
    m_tip = std::move(tip);
    show();
}

QStringList NoticeLine::told(std::initializer_list<Side> asked) const
{
    QStringList sentences;
    for (const Side side : asked) {
        const Text &text = m_texts[static_cast<std::size_t>(side)];
        if (text)
            sentences << text().split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    }
    return sentences;
}

void NoticeLine::show()
{
    QStringList sentences;
    for (const Text &text : m_texts) {
        const QString sentence = text ? text() : QString();
        if (!sentence.isEmpty())
            sentences << sentence;
        if (&text == &m_texts.front() && !sentences.isEmpty())
            break;
    }
    m_label->setText(sentences.join(QLatin1Char('\n')));
    const QString tip = m_tip ? m_tip() : QString();
    m_area->setToolTip(tip);
    m_area->setAccessibleDescription(tip);
    m_area->setFixedHeight(lines * m_label->fontMetrics().height());
}
