#pragma once

#include "voxi2_qt/modelview/foldedview.h"

namespace VOXI {

/// Groups as cards one below the other, and in them links.
class VOXI2_QT_EXPORT ExplorerBar : public FoldedView
{
    Q_OBJECT

public:
    ExplorerBar(QWidget* parent, Host& host);

    QAccessible::Role rowRole() const override { return QAccessible::Link; }

protected:
    Metrics measure(int width) const override;
    void paintFrame(QPainter& painter, const QRect& rect) const override;
    void paintHeader(QPainter& painter, const Row& row, Fold fold) const override;
    void paintRow(QPainter& painter, const Row& row) const override;
    bool isTextCut(const QModelIndex& index, const CellRecord& record) const override;
    bool activatesOnClick() const override { return true; }
    void noteHover(const QModelIndex& index) override;

private:
    /// Where the text of a row is.
    QRect textRect(const QRect& rect, bool isHeader, bool hasIcon) const;
};

} // namespace VOXI
