#pragma once

#include "voxi2_qt/kernel/qttext.h"

#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionFocusRect>

#include <string>

namespace VOXI {

/// What makes a label something that the user can come to and press: its text in both encodings,
/// the Tab key, the frame that says where the focus is, and the keys. Its peer owns it and asks it.
template <class Peer, class Emitters>
class QtTextEventFilter2
{
public:
    QtTextEventFilter2(Peer& peer, Emitters*) : m_label(peer)
    {
        m_label.setTextFormat(Qt::PlainText);
        m_label.setFocusPolicy(Qt::StrongFocus);
    }
    QtTextEventFilter2(const QtTextEventFilter2&) = delete;
    QtTextEventFilter2& operator=(const QtTextEventFilter2&) = delete;

    void setText(const std::string& text) { m_label.setText(toQString(text)); }
    void setTextU(const std::wstring& text) { m_label.setText(toQString(text)); }
    std::string text() const { return toStdString(m_label.text()); }
    std::wstring textU() const { return toStdWString(m_label.text()); }

    /// Whether a key presses the label. One that is held down does so once.
    static bool isPress(const QKeyEvent& event)
    {
        const bool isKey = event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter
                           || event.key() == Qt::Key_Space;
        return isKey && !event.isAutoRepeat();
    }

    /// Inside of a paint event, over the text.
    void paintFocus() const
    {
        if (!m_label.hasFocus())
            return;
        QStyleOptionFocusRect option;
        option.initFrom(&m_label);
        option.rect = m_label.contentsRect();
        option.backgroundColor = m_label.palette().color(m_label.backgroundRole());
        QPainter painter(&m_label);
        m_label.style()->drawPrimitive(QStyle::PE_FrameFocusRect, &option, &painter, &m_label);
    }

private:
    QLabel& m_label;
};

} // namespace VOXI
