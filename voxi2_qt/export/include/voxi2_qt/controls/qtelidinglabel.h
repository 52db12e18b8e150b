#pragma once

#include "voxi2_qt/voxi2_qt_export.h"

#include <QLabel>

namespace VOXI {

/// A label that can shorten its text to the room it has, where that is plain, on lines of its own
/// and not to be selected; and whose links can be followed by pointer and key.
class VOXI2_QT_EXPORT QtElidingLabel : public QLabel
{
public:
    void setElideMode(Qt::TextElideMode mode);
    Qt::TextElideMode elideMode() const { return m_elideMode; }

    /// To be called when the text or its format has changed, too: only a text that has links is a
    /// stop for the Tab key.
    void chooseInteraction(bool isSelectable);

    /// No wider than a shortened text can be.
    QSize minimumSizeHint() const override;

protected:
    using QLabel::QLabel;

    void paintEvent(QPaintEvent* event) override;

private:
    bool mayElide() const;
    /// Of its lines each is as wide as `width` or less.
    QString elided(int width) const;

    Qt::TextElideMode m_elideMode = Qt::ElideNone;
};

} // namespace VOXI
