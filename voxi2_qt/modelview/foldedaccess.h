#pragma once

#include <QtGlobal>

QT_BEGIN_NAMESPACE
class QAccessibleInterface;
QT_END_NAMESPACE

namespace VOXI {

class FoldedView;

/// Has assistive programs see the groups of each such view, and what is in them.
void makeFoldedAccessible();

/// What they see of a row. Whoever makes it registers it.
QAccessibleInterface* makeRowAccess(FoldedView& view, unsigned row);

} // namespace VOXI
