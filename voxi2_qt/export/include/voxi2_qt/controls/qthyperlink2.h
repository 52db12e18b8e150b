#pragma once

#include "voxi2/controls/vxhyperlink2.h"
#include "voxi2_qt/controls/qttexteventfilter2.h"
#include "voxi2_qt/kernel/qtwidget2shim.h"
#include "voxi2_qt/voxi2_qt_export.h"

#include <QColor>
#include <QLabel>

#include <map>
#include <set>

namespace VOXI {

/// The peer of the link.
class VOXI2_QT_EXPORT QtHyperLink2
    : public QtWidget2Shim<VXHyperLink2, VXHyperLink2Emitters, QtWidget2, QLabel>
{
    Q_OBJECT

public:
    QtHyperLink2(VXHyperLink2* object, VXHyperLink2Emitters* emitters, QWidget* parent);

    // Requests, in the order of the emitters table
    void doSetText(const std::string& text);
    void doSetTextU(const std::wstring& text);
    std::string doGetText();
    std::wstring doGetTextU();
    virtual void doSetLinkColor(LinkMode mode, Color color);
    Color doGetLinkColor(LinkMode mode);
    virtual void doimClick();
    bool doIsVisited();

protected:
    void changeEvent(QEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void handleClick();
    void showMode(LinkMode mode);
    QColor shownColor() const;

    QtTextEventFilter2<QtHyperLink2, VXHyperLink2Emitters> m_textEventFilter;
    std::map<LinkMode, QColor> m_linkColors;
    std::set<LinkMode> m_chosen; // modes whose colour the program has set
    LinkMode m_mode = LinkMode::Normal;
    bool m_visited = false;
};

} // namespace VOXI
