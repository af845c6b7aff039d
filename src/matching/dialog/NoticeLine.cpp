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
    m_area->setFixedHeight(lines * m_label->fontMetrics().height());
}
