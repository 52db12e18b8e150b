#pragma once

#include "voxi2_qt/kernel/qtouterwidget2shim.h"
#include "voxi2_qt/modelview/foldedview.h"
#include "voxi2_qt/modelview/qtpaletteview2.h"

#include <QPersistentModelIndex>

namespace VOXI {

/// The categories and entries of a palette.
class PaletteEntries final : public QtInnerWidget<FoldedView, QtPaletteView2>
{
    Q_OBJECT

public:
    explicit PaletteEntries(QtPaletteView2& palette);

    void setGrid(bool isGrid);
    bool isGrid() const { return m_isGrid; }

    /// Which entry is the one that is chosen; 0 for none.
    void choose(unsigned entry);
    unsigned chosen() const;
    /// A row in a group of which it is not known that it is disabled.
    bool canBeChosen(unsigned row) const;

    /// A row in a group.
    bool canBeMoved(unsigned row) const;
    /// To the first entry that is shown, as the user.
    void goToFirst();
    QPixmap pictureOf(unsigned entry);

    /// Where an entry would go that is dropped.
    struct Gap
    {
        unsigned group = 0; ///< 0: nowhere
        unsigned before = 0;
        QRect mark{}; ///< to be drawn there
    };
    Gap gapAt(const QPoint& point) const;
    void mark(const QRect& gap);
    /// Where a drag comes near an edge there is more to see.
    void scrollAt(const QPoint& point);

    QAccessible::Role rowRole() const override { return QAccessible::ListItem; }
    bool isChosen(unsigned row) const override { return row != 0 && row == chosen(); }
    bool hasChoice() const override { return true; }

protected:
    Metrics measure(int width) const override;
    QStyle::PixelMetric pictureMetric() const override;
    void paintHeader(QPainter& painter, const Row& row, Fold fold) const override;
    void paintRow(QPainter& painter, const Row& row) const override;
    bool isTextCut(const QModelIndex& index, const CellRecord& record) const override;
    bool activatesOnClick() const override { return false; }
    bool viewportEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    struct Places
    {
        QRect icon;
        QRect text;
    };
    Places placesIn(const QRect& rect, bool isHeader, bool hasIcon) const;

    bool m_isGrid = true;
    QPersistentModelIndex m_chosen;
    QRect m_mark;
};

} // namespace VOXI
