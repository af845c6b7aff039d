#pragma once

#include <QByteArray>

/// The n-th of the words of an answer, which single blanks separate, counted from 0; empty when there are
/// fewer.
QByteArray answerWord(const QByteArray &answer, int n);
