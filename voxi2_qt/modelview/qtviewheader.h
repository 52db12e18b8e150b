#pragma once

#include <QHeaderView>
#include <QIcon>

QT_BEGIN_NAMESPACE
class QHelpEvent;
QT_END_NAMESPACE

namespace VOXI {

/// The header above the columns or beside the rows, which knows when it is the user who changes it.
/// It shows icons and tool tips by roles of ours (`HeaderIconRole`, `HeaderToolTipRole`): the
/// models answer Qt's for cells only.
class QtViewHeader final : public QHeaderView
{
public:
    QtViewHeader(Qt::Orientation orientation, QWidget* parent);

    /// Whether what happens now is done with the pointer: not by the program, nor in a loop that a
    /// handler has opened meanwhile.
    bool isUserActing() const;

    /// Whether Qt decides how wide the section is.
    bool isFlexible(int section) const;

protected:
    bool viewportEvent(QEvent* event) override;
    void initStyleOptionForIndex(QStyleOptionHeader* option, int section) const override;
    QSize sectionSizeFromContents(int section) const override;

private:
    QIcon iconOf(int section) const;
    bool showToolTip(const QHelpEvent& event);

    int m_userLevel = -1; // the loop level at which the pointer's event is handled
};

} // namespace VOXI
