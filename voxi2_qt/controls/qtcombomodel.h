#pragma once

#include "../modelview/qtviewmodel2.h"

namespace VOXI {

/// What a combo box shows of an abstract model: its rows without a parent.
///
/// A combo box goes through all rows more often than it seems, to find a text or the next row that
/// can be chosen. Here it finds only what is known, so that nobody asks a model for a million rows.
class QtComboModel final : public QtViewModel2
{
    Q_OBJECT

public:
    using QtViewModel2::QtViewModel2;

    /// One that can be edited shows what there is to edit, which is the same text.
    QVariant data(const QModelIndex& index, int role) const override;
    /// What is not known yet can be chosen.
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    /// Among what is known.
    QModelIndexList match(const QModelIndex& start, int role, const QVariant& value, int hits,
                          Qt::MatchFlags flags) const override;
};

} // namespace VOXI
