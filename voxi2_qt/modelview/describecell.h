#pragma once

#include <QtGlobal>

QT_BEGIN_NAMESPACE
class QFont;
class QPalette;
QT_END_NAMESPACE

namespace VOXI {

class CellRecord;
struct CellInfo;

/// Adds what the model has answered of a cell; what that leaves open is the view's.
void describeCell(CellInfo& info, const CellRecord& record, const QPalette& palette,
                  const QFont& font);

} // namespace VOXI
