#pragma once

#include "voxi2_qt/voxi2_qt_export.h"

#include <QAbstractButton>
#include <QString>

namespace VOXI {

/// A button that is a picture, and another one while it is disabled. It lights up under the pointer
/// and shows the keyboard focus; its tool tip is its name for assistive programs.
class VOXI2_QT_EXPORT HoverButton : public QAbstractButton
{
    Q_OBJECT

public:
    /// Paths of resources, without ":/" before them.
    HoverButton(const QString& image, const QString& disabledImage, QWidget* parent = nullptr);

    QSize sizeHint() const override;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
};

} // namespace VOXI
