#pragma once

#include "voxi2_qt/voxi2_qt_export.h"

#include <QPointer>
#include <QTabBar>
#include <QTabWidget>

namespace VOXI {

/// The tabs of a tab container. Qt tells of each step of a drag, as the neighbour's move; this bar
/// tells of the whole of it. And what the mouse does to tabs the keys can do as well: Alt and an
/// arrow move the current one, Delete asks for its closing.
class VOXI2_QT_EXPORT QtTabBar : public QTabBar
{
    Q_OBJECT

public:
    explicit QtTabBar(QTabWidget* container);

Q_SIGNALS:
    /// The user has let a tab go that was dragged to another place, or moved it there by keys.
    void pageDragged(QWidget* page, int from, int to);
    /// The user wants the menu of a tab; whoever has one for it says that it is taken.
    void menuRequested(int index, QPoint global, bool* taken);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    bool moveCurrent(int key);

    QTabWidget& m_container;
    QPointer<QWidget> m_pressed;
    int m_from = -1; // before the drag; -1 while the tab has not moved
};

} // namespace VOXI
