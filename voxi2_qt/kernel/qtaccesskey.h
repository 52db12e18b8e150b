#pragma once

#include <QKeySequence>
#include <QString>

namespace VOXI {

/// The keys for the letter that is marked in a label, as they are written; empty for none.
inline QString accessKeyOf(const QString& label)
{
    for (qsizetype i = 0; i + 1 < label.size(); ++i) {
        if (label[i] == u'&' && label[++i] != u'&')
            return QKeySequence(Qt::ALT).toString(QKeySequence::NativeText) + label[i];
    }
    return {};
}

/// As a label is read, and drawn.
inline QString withoutAccessKey(const QString& label)
{
    QString result;
    for (qsizetype i = 0; i < label.size(); ++i) {
        if (label[i] == u'&' && ++i == label.size())
            break;
        result += label[i];
    }
    return result;
}

} // namespace VOXI
