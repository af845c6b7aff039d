#include "NoticeLine.h"

#include <QLabel>

#include <utility>

NoticeLine::NoticeLine(QLabel *label)
    : m_label(label)
{
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
}
