#pragma once

#include "voxi2/modelview/vxpaletteview2.h"
#include "voxi2_qt/kernel/qtouterwidget2shim.h"
#include "voxi2_qt/modelview/qtabstractgroupview2.h"
#include "voxi2_qt/voxi2_qt_export.h"

#include <memory>

QT_BEGIN_NAMESPACE
class QLineEdit;
QT_END_NAMESPACE

namespace VOXI {

class PaletteEntries;

/// The peer of the palette: a field, and below it what it looks through.
class VOXI2_QT_EXPORT QtPaletteView2
    : public QtOuterWidget2Shim<VXPaletteView2, VXPaletteView2Emitters, QtAbstractGroupView2>
{
    Q_OBJECT

public:
    QtPaletteView2(VXPaletteView2* object, VXPaletteView2Emitters* emitters, QWidget* parent);
    ~QtPaletteView2() override;

    void doSetMouseTracking(bool tracking) override;
    void doSetAcceptDrops(bool accept) override;
    bool doCanAcceptDrops() override;

    // Requests, in the order of the emitters table
    virtual void doSetEntryLayout(PaletteLayout layout);
    virtual PaletteLayout doGetEntryLayout();
    virtual void doSetCurrentEntry(unsigned entry);
    virtual void doimSetCurrentEntry(unsigned entry);
    virtual unsigned doGetCurrentEntry();
    virtual void doSetSearchVisible(bool visible);
    virtual bool doIsSearchVisible();
    virtual void doSetSearchText(const std::wstring& text);
    virtual void doimSetSearchText(const std::wstring& text);
    virtual std::wstring doGetSearchText();
    virtual void doSetFiltering(bool filtering);
    virtual bool doIsFiltering();
    virtual void doSetReorderable(bool reorderable);
    virtual bool doIsReorderable();
    virtual void doimMoveEntry(unsigned entry, unsigned group, unsigned before);

    FoldedView& foldedView() const override;

    // What the entries tell
    void noteCurrent(unsigned row) override;
    void noteDrag(unsigned row) override;
    bool noteShift(unsigned row, bool isForward) override;
    /// The pointer over the entries. False when there is nothing more to be done about it.
    bool passPointer(QWidget& receiver, QMouseEvent& event);

    bool eventFilter(QObject* object, QEvent* event) override;

protected:
    bool showToPeer(QWidget* receiver, QEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private Q_SLOTS:
    void slotSearchChanged(const QString& text);

private:
    struct Move;

    void applySearch();
    unsigned ownEntry(const QDropEvent& event) const;
    /// Whether it would be another place, and may be.
    bool mayMove(const Move& move);
    void followMove(QDragMoveEvent& event);
    void forgetMove();

    QLineEdit* m_search;
    PaletteEntries* m_entries = nullptr; ///< which tells something while it is made
    std::unique_ptr<Move> m_move;        ///< that was asked for last; null while none is dragged
    bool m_isMoveAllowed = false;
    bool m_filters = true;
    bool m_isReorderable = false;
    bool m_takesDrops = false;
};

} // namespace VOXI
