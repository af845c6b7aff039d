#include "AnswerWords.h"

QByteArray answerWord(const QByteArray &answer, int n)
{
    int begin = 0;
    for (; n > 0; --n) {
        const int blank = answer.indexOf(' ', begin);
        if (blank < 0)
            return {};
        begin = blank + 1;
    }
    const int end = answer.indexOf(' ', begin);
    return answer.mid(begin, end < 0 ? -1 : end - begin);
}
