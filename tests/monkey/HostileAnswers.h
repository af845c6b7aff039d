#pragma once

#include <QByteArray>
#include <QString>

#include <random>

/// What a hostile host answers: mostly something that gets the module further, else anything at all.
class HostileAnswers
{
public:
    explicit HostileAnswers(unsigned seed)
        : m_random(seed)
    {
    }

    /// From 0 to below the count.
    int upTo(int count);
    /// True once in so many times.
    bool onceIn(int times) { return upTo(times) == 0; }

    /// The answer to a question or command; it may hold zeros and be as long as the smallest buffer bears.
    QByteArray text(const QString &question);
    int wholeNumber();
    double number();
    /// A measurement record, whole or not.
    QByteArray record();

private:
    QByteArray sensible(const QString &question);
    QByteArray garbage();

    std::mt19937 m_random;
};
