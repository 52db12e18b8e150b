#pragma once

#include <QObject>

namespace bench {

/// A plain Qt sender.
class QtSender : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    void send(int value) { Q_EMIT changed(value); }

Q_SIGNALS:
    void changed(int value);
};

/// A plain Qt receiver, for signals and for calls from other threads.
class QtCounter : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    void count(int value)
    {
        m_sum += value;
        ++m_count;
    }
    int answer(int value) const { return value + 1; }

    long m_sum = 0;
    long m_count = 0;
};

} // namespace bench
