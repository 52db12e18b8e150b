#include "qtsavedcolumns.h"

#include "../kernel/qtsavedtext.h"

#include <QDataStream>
#include <QIODevice>
#include <QWidget>

#include <unordered_set>

namespace VOXI {

namespace {

constexpr char Kind[] = "header";

bool isSound(const QtSavedColumns& saved)
{
    std::unordered_set<unsigned> known;
    for (const QtSavedColumns::Column& column : saved.columns) {
        if (column.uid == 0 || column.width < 0 || column.width > QWIDGETSIZE_MAX
            || !known.insert(column.uid).second)
            return false;
    }
    return true;
}

} // namespace

std::string QtSavedColumns::toText() const
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream.setVersion(QDataStream::Qt_6_0);
    stream << quint32(sort.column) << quint8(sort.order == SortOrder::Descending);
    for (const Column& column : columns)
        stream << quint32(column.uid) << qint32(column.width) << quint8(column.isHidden);
    return toSavedText(Kind, bytes);
}

std::optional<QtSavedColumns> QtSavedColumns::fromText(const std::string& text)
{
    const auto bytes = fromSavedText(Kind, text);
    if (!bytes)
        return std::nullopt;
    QDataStream stream(*bytes);
    stream.setVersion(QDataStream::Qt_6_0);
    QtSavedColumns saved;
    quint32 uid = 0;
    qint32 width = 0;
    quint8 flag = 0;
    stream >> uid >> flag;
    saved.sort = {uid, flag != 0 ? SortOrder::Descending : SortOrder::Ascending};
    while (stream.status() == QDataStream::Ok && !stream.atEnd()) {
        stream >> uid >> width >> flag;
        saved.columns.push_back({uid, width, flag != 0});
    }
    if (stream.status() != QDataStream::Ok || !isSound(saved))
        return std::nullopt;
    return saved;
}

} // namespace VOXI
