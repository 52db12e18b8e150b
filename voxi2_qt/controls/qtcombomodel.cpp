#include "qtcombomodel.h"

#include "../modelview/cellrecord.h"

namespace VOXI {

namespace {

bool matches(const QString& text, const QString& wanted, Qt::MatchFlags flags)
{
    const auto sensitivity =
        flags.testFlag(Qt::MatchCaseSensitive) ? Qt::CaseSensitive : Qt::CaseInsensitive;
    switch (flags & Qt::MatchTypeMask) {
    case Qt::MatchExactly:
        return text == wanted;
    case Qt::MatchFixedString:
        return text.compare(wanted, sensitivity) == 0;
    case Qt::MatchStartsWith:
        return text.startsWith(wanted, sensitivity);
    default:
        return text.contains(wanted, sensitivity);
    }
}

} // namespace

QVariant QtComboModel::data(const QModelIndex& index, int role) const
{
    return QtViewModel2::data(index, role == Qt::EditRole ? Qt::DisplayRole : role);
}

Qt::ItemFlags QtComboModel::flags(const QModelIndex& index) const
{
    const Qt::ItemFlags flags = QtViewModel2::flags(index);
    return index.isValid() && !isKnown(index) ? flags | Qt::ItemIsEnabled : flags;
}

/// Of texts; nothing else is looked for in a combo box.
QModelIndexList QtComboModel::match(const QModelIndex& start, int, const QVariant& value, int hits,
                                    Qt::MatchFlags flags) const
{
    QModelIndexList found;
    const QString wanted = value.toString();
    const int count = rowCount();
    const int steps = flags.testFlag(Qt::MatchWrap) ? count : count - start.row();
    for (int i = 0; i < steps && start.isValid() && (hits < 0 || found.size() < hits); ++i) {
        const QModelIndex each = index((start.row() + i) % count, start.column());
        const CellRecord* const record = peekCell(each);
        if (record && matches(record->data(Qt::DisplayRole).toString(), wanted, flags))
            found.push_back(each);
    }
    return found;
}

} // namespace VOXI
