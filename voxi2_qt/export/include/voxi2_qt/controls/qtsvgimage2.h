#pragma once

#include "voxi2/controls/vxsvgimage2.h"
#include "voxi2_qt/kernel/qtwidget2shim.h"
#include "voxi2_qt_svg/voxi2_qt_svg_export.h"

#include <QSize>
#include <QSvgWidget>

namespace VOXI {

/// The peer of the drawing. It lies in a library of its own, which the factory loads with the first
/// drawing: few programs have any, and Qt's library for them takes each program time to load.
class VOXI2_QT_SVG_EXPORT QtSvgImage2
    : public QtWidget2Shim<VXSvgImage2, VXSvgImage2Emitters, QtWidget2, QSvgWidget>
{
    Q_OBJECT

public:
    QtSvgImage2(VXSvgImage2* object, VXSvgImage2Emitters* emitters, QWidget* parent);

    // Requests, in the order of the emitters table
    virtual void doSetFile(const std::string& path);
    virtual void doSetFileU(const std::wstring& path);
    virtual void doSetData(const ByteArray& bytes);
    virtual void doSetHeight(int height);
    virtual Pixmap doGetPixmap(int height);
    virtual Size<int> doGetImageSize();

    /// Shows the drawing in `length` bytes.
    virtual void doSetContents(const char* bytes, int length);

    /// The drawing's own size, made smaller where it is one that no widget should have.
    QSize sizeHint() const override;

private:
    void loadHarmless(const QByteArray& bytes);
    bool isShown() const;

    QSize m_defaultSize; // invalid until it is needed
};

} // namespace VOXI
