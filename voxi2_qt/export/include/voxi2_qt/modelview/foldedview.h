#pragma once

#include "voxi2_qt/voxi2_qt_export.h"

#include <QAbstractItemView>
#include <QAccessible>
#include <QBasicTimer>
#include <QHash>
#include <QPersistentModelIndex>
#include <QStyle>
#include <QVariantAnimation>

#include <memory>
#include <unordered_map>
#include <vector>

namespace VOXI {

class CellRecord;
class ExtentSums;
class QtKeyboardSearch;
class QtViewModel2;
class QtViewSight;
class TextLayouts;
class VXAbstractViewModel2;

/// Shows the rows of a model without a parent as headers of groups that fold, and the rows below
/// them as what is in the groups, in lines of one or more. What they look like is said by derived
/// classes.
///
/// All that is in a group is equally high, so that nothing is done for each row of it: where a row
/// is comes from counts, and from sums over the groups.
class VOXI2_QT_EXPORT FoldedView : public QAbstractItemView
{
    Q_OBJECT

public:
    /// Whom it tells what happens. Handlers that run then may end anything.
    class VOXI2_QT_EXPORT Host
    {
    public:
        /// Another row is the current one, 0 for none.
        virtual void noteCurrent(unsigned row) = 0;
        virtual void noteActivated(unsigned row) = 0;
        /// By the user.
        virtual void noteFolded(unsigned group, bool folded) = 0;
        /// The pointer draws a row of a group away.
        virtual void noteDrag(unsigned row);
        /// The keys shift a row of a group by one place. False where it stays.
        virtual bool noteShift(unsigned row, bool isForward);

    protected:
        ~Host() = default;
    };

    enum class By { Program, User };

    ~FoldedView() override;

    /// Before anything of it goes, or of its host: it shows nothing from then on and is silent.
    void end();

    /// Null for none. Does nothing for a model that is dead.
    void showModel(VXAbstractViewModel2* model);
    /// Never null; one that shows nothing while no abstract model is set.
    QtViewModel2& viewModel() const { return *m_model; }

    /// Does nothing for what is no group; the user, for what has nothing in it.
    void setFolded(unsigned group, bool folded, By by);
    bool isFolded(unsigned group) const;
    /// Also those that come later.
    void setAllFolded(bool folded);

    /// Shows only the rows of groups in which the text occurs, and the groups that have some; all
    /// for an empty one. Rows that are not known are fetched; of the first 20 000, no more.
    void setFilter(const QString& text);
    const QString& filter() const { return m_filter; }

    /// Does nothing for a row that is not there.
    void setCurrent(unsigned row);
    unsigned currentRow() const;
    /// Unfolds its group, and has it in sight.
    void reveal(unsigned row);
    /// As the user does.
    void activate(unsigned row);
    QModelIndex indexOf(unsigned row) const;
    /// Whether it is drawn, or would be if it were in sight.
    bool isShown(const QModelIndex& index) const;
    bool isEnabledRow(const QModelIndex& index) const;
    /// Of the icons.
    QSize pictureSize() const;
    /// What rows are measured by has changed.
    void looksChanged();
    /// Does what waits to be laid out.
    void layOutNow();

    // For assistive programs
    virtual QAccessible::Role rowRole() const = 0;
    /// Whether it is the one that is chosen; nothing where there is no such thing.
    virtual bool isChosen(unsigned row) const;
    virtual bool hasChoice() const;
    QAccessibleInterface* accessOf(unsigned row);
    int groupCount() const;
    int shownCount(int group) const;
    int rowAtPlace(int group, int place) const;
    /// -1 where it is not shown.
    int placeOfRow(int group, int row) const;

    // Qt's
    QRect visualRect(const QModelIndex& index) const override;
    void scrollTo(const QModelIndex& index, ScrollHint hint = EnsureVisible) override;
    QModelIndex indexAt(const QPoint& point) const override;
    void doItemsLayout() override;
    void keyboardSearch(const QString& text) override;
    void dataChanged(const QModelIndex& topLeft, const QModelIndex& bottomRight,
                     const QList<int>& roles = {}) override;

protected:
    /// In pixels.
    struct Metrics
    {
        int margin = 0;    ///< around all
        int gap = 0;       ///< below each group
        int header = 1;    ///< how high
        int pad = 0;       ///< above and below what is in a group
        int rowHeight = 1; ///< of what is in a group
        int rowsPerLine = 1;
    };
    /// A row to be drawn.
    struct Row
    {
        QModelIndex index;
        const CellRecord* record; ///< never null
        QRect rect;
        QPalette::ColorGroup colors;
        bool isHovered;
        bool isCurrent; ///< and the view has the focus
        bool isEnabled;
    };
    enum class Fold { None, Folded, Unfolded }; ///< none: there is nothing in it, or it cannot

    FoldedView(QWidget* parent, Host& host);
    /// To be called by the constructors of derived classes.
    void begin();

    virtual Metrics measure(int width) const = 0;
    /// How large icons are where nobody has said it.
    virtual QStyle::PixelMetric pictureMetric() const { return QStyle::PM_SmallIconSize; }
    /// What is behind a group; not seldom but a part of it is seen.
    virtual void paintFrame(QPainter& painter, const QRect& rect) const;
    virtual void paintHeader(QPainter& painter, const Row& row, Fold fold) const = 0;
    virtual void paintRow(QPainter& painter, const Row& row) const = 0;
    /// Whether not all of its text is seen.
    virtual bool isTextCut(const QModelIndex& index, const CellRecord& record) const = 0;
    virtual bool activatesOnClick() const = 0;
    /// The pointer is over another row, or none.
    virtual void noteHover(const QModelIndex& index);
    /// Letters of a text; nobody reads more of them in a line.
    static constexpr int MostDrawn = 1000;
    static QString lineOf(const CellRecord& record);
    void paintText(QPainter& painter, const Row& row, const QRect& rect, const QFont& base,
                   const QColor& color, Qt::Alignment alignment, bool takesOwnColor = true) const;
    void paintIcon(QPainter& painter, const Row& row, const QRect& rect, bool isSelected) const;
    void paintFocus(QPainter& painter, const Row& row, const QRect& rect) const;
    void paintArrow(QPainter& painter, const QRect& rect, Fold fold, const QColor& color) const;
    static QColor blend(const QColor& under, const QColor& over, double share);
    QRect mirrored(const QRect& rect, const QRect& inside) const;

    // Qt's
    bool viewportEvent(QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void timerEvent(QTimerEvent* event) override;
    void updateGeometries() override;
    void scrollContentsBy(int dx, int dy) override;
    void rowsInserted(const QModelIndex& parent, int first, int last) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    int horizontalOffset() const override;
    int verticalOffset() const override;
    bool isIndexHidden(const QModelIndex& index) const override;
    void setSelection(const QRect& rect, QItemSelectionModel::SelectionFlags command) override;
    QRegion visualRegionForSelection(const QItemSelection& selection) const override;

private:
    class Sight;
    /// A row by its group, as the model counts, and its place in it, as shown; -1: the header.
    struct Spot
    {
        int group;
        int place;
    };

    // Where things are
    /// Between its beginning and its end.
    bool isAlive() const { return m_host && m_model; }
    static int bounded(qint64 length);
    void layOut() const;
    void relayLater();
    qint64 fullBody(int group) const;
    int shownBody(int group) const;
    int extentOf(int group) const;
    void groupChanged(int group);
    bool isOpen(int group) const;
    bool isGroupShown(int group) const;
    int roomWidth() const;
    int topOf(int group) const;
    QRect headerRect(int group) const;
    QRect rowRect(int group, int place) const;
    QRect bodyRect(int group) const;
    int groupOf(const QModelIndex& index) const;
    Spot spotOf(const QModelIndex& index) const;
    QModelIndex indexOf(Spot spot) const;
    Spot spotAt(int y) const;
    Spot spotBelow(Spot spot, int rows) const;
    Spot spotAbove(Spot spot, int rows) const;
    QModelIndex rowBelow(const QModelIndex& index) const;

    // What is there
    void regroup(const QModelIndex& parent);
    void rowsRemoved(const QModelIndex& parent);
    void sizeChanged();
    void findMatches() const;
    void askForUnknown();
    void slideTo(unsigned group, bool folded);
    void setSlide(const QVariant& share);
    void endSlide();

    // Input
    void makeCurrent(const QModelIndex& index);
    void trigger(const QModelIndex& index);
    void toggle(const QModelIndex& group);
    bool goSideways(bool isForward);
    bool shift(int key);
    void hover(const QModelIndex& index);
    bool showToolTip(const QHelpEvent& event);

    // Painting
    void paintGroup(QPainter& painter, int group, const QRect& area) const;
    Row rowToPaint(const QModelIndex& index, const QRect& rect) const;
    Fold foldOf(int group) const;

    // For assistive programs
    void dropAccess(bool all);
    void tellAccess(unsigned row, QAccessible::Event what);
    void tellFolded(unsigned group);
    void tellKnownRows(const QModelIndex& parent, int first, int last, QAccessible::Event what);
    void noteArrivals(const QModelIndex& parent, int first, int last);
    void tellArrivals();
    void tellFiltered();

    Host* m_host;                    ///< null when it has ended
    QtViewModel2* m_model = nullptr; ///< the view's, as Qt sees it
    std::unique_ptr<Sight> m_sightView;
    std::unique_ptr<QtViewSight> m_sight;
    std::unique_ptr<QtKeyboardSearch> m_search; ///< null before the first
    std::shared_ptr<TextLayouts> m_layouts;

    std::unordered_map<unsigned, bool> m_folded; ///< what was said of single groups
    bool m_foldsAll = false;                     ///< the others
    bool m_hasLostRows = false;
    QString m_filter;

    // Computed when it is needed
    mutable bool m_isLaidOut = false;
    mutable Metrics m_metrics;
    std::unique_ptr<ExtentSums> m_sums;
    mutable std::vector<std::vector<int>> m_matches; ///< of each group, while there is a filter
    mutable std::vector<unsigned> m_unknown;         ///< rows that may match
    QBasicTimer m_askTimer;

    QVariantAnimation m_sliding;
    unsigned m_slidingGroup = 0;
    QPersistentModelIndex m_pressed;
    QPoint m_pressedAt;
    QPersistentModelIndex m_hovered;
    QHash<unsigned, QAccessible::Id> m_accessIds;
    std::vector<unsigned> m_arrivals; ///< rows that are to be told of
};

} // namespace VOXI
