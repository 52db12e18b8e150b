#pragma once

#include "voxi2/kernel/events.h"
#include "voxi2_qt/voxi2_qt_export.h"
#include "voxi_util/any.h"
#include "voxi_util/vxmimedata2.h"

#include <QMimeData>
#include <QString>

#include <functional>
#include <memory>

namespace VOXI {

class QtObject2;

/// A new object with every format of `data`, for a clipboard or a drag; the caller owns it. Never
/// null.
///
/// Bytes are given as they are, pictures as PNG (and as Qt's own image format, which other programs
/// read), values of other types as their text in UTF-8. Within this program the values themselves
/// come back. What has yet to be made is made when it is asked for, as a handler of `peer`, and not
/// any more once that has ended; what is thrown there is reported.
VOXI2_QT_EXPORT QMimeData* VX2Qt(const VXMimeData2& data, QtObject2* peer = nullptr);

/// Whether the application is making data that Qt has asked for; Qt goes on with what it has asked.
VOXI2_QT_EXPORT bool isMimeDataBeingMade() noexcept;

/// Calls `function`, for as long as `peer` lives, in a turn of the loop in which nothing is being
/// made. To be called while something is.
VOXI2_QT_EXPORT void afterMimeDataIsMade(QtObject2& peer, std::function<void()> function);

/// Every format with its data, as anyFromMime gives them, in Qt's order. Data of another program
/// are fetched from it.
VOXI2_QT_EXPORT VXMimeData2 Qt2VX(const QMimeData& data);

/// The data of one format: the value itself if it was set in this program, a Pixmap for an image,
/// else a ByteArray. Empty when there is no such format.
VOXI2_QT_EXPORT any anyFromMime(const QMimeData& data, const QString& format);

/// Reads `data` when it is asked to, on the thread that calls this; elsewhere, and when `data` is
/// no more, it has no formats. Data of this program it keeps, and reads anywhere.
VOXI2_QT_EXPORT std::shared_ptr<const VXDragData2> dragDataOf(const QMimeData& data);

} // namespace VOXI
